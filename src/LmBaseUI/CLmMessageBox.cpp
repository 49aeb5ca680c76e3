#include "CLmMessageBox.h"

#include "LmBaseUILog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

CLmMessageBox::CLmMessageBox(const QString& text, const QString& iconPath, const QString& title,
                             EMsgButtons buttons, QWidget* parent)
    : CLmBaseDialog(parent)
{
    setObjectName(QStringLiteral("CLmMessageBox"));
    SetTitle(title.isEmpty() ? tr("SkyConsole") : title);
    BuildContent(iconPath);
    m_pLabelText->setText(text);
    m_pBtnCancel->setVisible(buttons == BtnOkCancel);
    setMinimumWidth(380);
}

void CLmMessageBox::BuildContent(const QString& iconPath)
{
    m_pLabelIcon = new QLabel(ContentWidget());
    m_pLabelIcon->setObjectName(QStringLiteral("m_pLabelIcon"));
    const QPixmap icon(iconPath);
    if (icon.isNull()) {
        if (!iconPath.isEmpty())
            qCWarning(lcMessageBox) << "message box icon not found:" << iconPath;
        m_pLabelIcon->hide();
    } else {
        m_pLabelIcon->setPixmap(icon);
    }

    m_pLabelText = new QLabel(ContentWidget());
    m_pLabelText->setObjectName(QStringLiteral("m_pLabelText"));
    m_pLabelText->setWordWrap(true);
    m_pLabelText->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_pBtnOk = CreateButton(tr("OK"), QStringLiteral("m_pBtnOk"));
    m_pBtnOk->setDefault(true);
    connect(m_pBtnOk, &QPushButton::clicked, this, &QDialog::accept);
    m_pBtnCancel = CreateButton(tr("Cancel"), QStringLiteral("m_pBtnCancel"));
    connect(m_pBtnCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* messageRow = new QHBoxLayout;
    messageRow->setSpacing(16);
    messageRow->addWidget(m_pLabelIcon, 0, Qt::AlignTop);
    messageRow->addWidget(m_pLabelText, 1);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addWidget(m_pBtnOk);
    buttonRow->addWidget(m_pBtnCancel);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(20);
    layout->addLayout(messageRow, 1);
    layout->addLayout(buttonRow);
    SetContentLayout(layout);
}

QPushButton* CLmMessageBox::CreateButton(const QString& text, const QString& objectName)
{
    auto* button = new QPushButton(text, ContentWidget());
    button->setObjectName(objectName);
    button->setMinimumWidth(88);
    return button;
}

void CLmMessageBox::SetBtnHidden(bool bHideOk, bool bHideCancel, bool bHideClose)
{
    m_pBtnOk->setHidden(bHideOk);
    m_pBtnCancel->setHidden(bHideCancel);
    CloseButton()->setHidden(bHideClose);
}

void CLmMessageBox::SetOkText(const QString& text)
{
    m_pBtnOk->setText(text);
}

void CLmMessageBox::SetCancelText(const QString& text)
{
    m_pBtnCancel->setText(text);
}

QString CLmMessageBox::Text() const
{
    return m_pLabelText->text();
}
