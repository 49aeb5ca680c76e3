#include "CLmBaseDialog.h"

#include "CLmWindowDragger.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const char* const kDialogStyle =
    "CLmBaseDialog { background: #ffffff; border: 1px solid #1f3b63; }"
    "#m_pTitleBar { background: #1f3b63; }"
    "#m_pLabelTitle { color: #ffffff; font-weight: bold; }"
    "#m_pBtnClose { color: #ffffff; border: none; background: transparent; font-size: 16px; }"
    "#m_pBtnClose:hover { background: #d9534f; }";

}  // namespace

CLmBaseDialog::CLmBaseDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::Dialog);
    setModal(true);
    setStyleSheet(QString::fromLatin1(kDialogStyle));

    m_pContentWgt = new QWidget(this);
    m_pContentWgt->setObjectName(QStringLiteral("m_pContentWgt"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(CreateTitleBar());
    layout->addWidget(m_pContentWgt, 1);
}

QWidget* CLmBaseDialog::CreateTitleBar()
{
    auto* titleBar = new QWidget(this);
    titleBar->setObjectName(QStringLiteral("m_pTitleBar"));
    titleBar->setAttribute(Qt::WA_StyledBackground);
    titleBar->setFixedHeight(36);

    m_pLabelTitle = new QLabel(titleBar);
    m_pLabelTitle->setObjectName(QStringLiteral("m_pLabelTitle"));

    m_pBtnClose = new QPushButton(QStringLiteral("\u00d7"), titleBar);
    m_pBtnClose->setObjectName(QStringLiteral("m_pBtnClose"));
    m_pBtnClose->setToolTip(tr("Close"));
    m_pBtnClose->setFixedSize(36, 36);
    m_pBtnClose->setFocusPolicy(Qt::NoFocus);
    m_pBtnClose->setAutoDefault(false);
    connect(m_pBtnClose, &QPushButton::clicked, this, [this] { OnCloseClicked(); });

    auto* layout = new QHBoxLayout(titleBar);
    layout->setContentsMargins(12, 0, 0, 0);
    layout->addWidget(m_pLabelTitle, 1);
    layout->addWidget(m_pBtnClose);

    new CLmWindowDragger(titleBar);
    return titleBar;
}

void CLmBaseDialog::SetTitle(const QString& title)
{
    m_pLabelTitle->setText(title);
    setWindowTitle(title);
}

QWidget* CLmBaseDialog::ContentWidget() const
{
    return m_pContentWgt;
}

void CLmBaseDialog::SetContentLayout(QLayout* layout)
{
    delete m_pContentWgt->layout();
    m_pContentWgt->setLayout(layout);
}

QPushButton* CLmBaseDialog::CloseButton() const
{
    return m_pBtnClose;
}

void CLmBaseDialog::OnCloseClicked()
{
    reject();
}
