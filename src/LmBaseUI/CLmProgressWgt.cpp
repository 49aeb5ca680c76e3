#include "CLmProgressWgt.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

CLmProgressWgt::CLmProgressWgt(QWidget* parent)
    : CLmBaseDialog(parent)
{
    setObjectName(QStringLiteral("CLmProgressWgt"));
    BuildContent();
    setMinimumWidth(420);
}

void CLmProgressWgt::BuildContent()
{
    m_pLabelText = new QLabel(ContentWidget());
    m_pLabelText->setObjectName(QStringLiteral("m_pLabelText"));
    m_pLabelText->setWordWrap(true);

    m_pProgressBar = new QProgressBar(ContentWidget());
    m_pProgressBar->setObjectName(QStringLiteral("m_pProgressBar"));
    m_pProgressBar->setRange(0, 100);
    m_pProgressBar->setValue(0);

    m_pBtnRetry = new QPushButton(tr("Retry"), ContentWidget());
    m_pBtnRetry->setObjectName(QStringLiteral("m_pBtnRetry"));
    m_pBtnRetry->setAutoDefault(false);
    connect(m_pBtnRetry, &QPushButton::clicked, this, &CLmProgressWgt::signalBtnRetryClicked);

    m_pBtnCancel = new QPushButton(tr("Cancel"), ContentWidget());
    m_pBtnCancel->setObjectName(QStringLiteral("m_pBtnCancel"));
    m_pBtnCancel->setAutoDefault(false);
    connect(m_pBtnCancel, &QPushButton::clicked, this, &CLmProgressWgt::OnCancelClicked);

    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addWidget(m_pBtnRetry);
    buttonRow->addWidget(m_pBtnCancel);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(m_pLabelText);
    layout->addWidget(m_pProgressBar);
    layout->addLayout(buttonRow);
    SetContentLayout(layout);
}

int CLmProgressWgt::exec(bool bVisibleButtons)
{
    VisibleBtnCannel(bVisibleButtons);
    VisibleBtnClose(bVisibleButtons);
    VisibleBtnRetry(false);
    return exec();
}

void CLmProgressWgt::VisibleBtnCannel(bool bVisible)
{
    m_pBtnCancel->setVisible(bVisible);
}

void CLmProgressWgt::VisibleBtnClose(bool bVisible)
{
    CloseButton()->setVisible(bVisible);
}

void CLmProgressWgt::VisibleBtnRetry(bool bVisible)
{
    m_pBtnRetry->setVisible(bVisible);
}

void CLmProgressWgt::SetCurrentText(const QString& text)
{
    m_pLabelText->setText(text);
}

void CLmProgressWgt::SetValue(int value)
{
    m_pProgressBar->setValue(value);
}

void CLmProgressWgt::SetProgress(qint64 current, qint64 total)
{
    if (total <= 0)
        return;
    SetValue(static_cast<int>(qBound<qint64>(0, current, total) * 100 / total));
}

void CLmProgressWgt::OnCancelClicked()
{
    emit signalBtnCancelClicked();
    reject();
}

void CLmProgressWgt::OnCloseClicked()
{
    emit signalBtnCloseClicked();
    reject();
}

// Escape acts as the visible Cancel or Close button; while both are hidden the
// work cannot be abandoned, so Escape does nothing.
void CLmProgressWgt::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || event->modifiers() != Qt::NoModifier) {
        CLmBaseDialog::keyPressEvent(event);
        return;
    }
    if (!m_pBtnCancel->isHidden())
        m_pBtnCancel->click();
    else if (!CloseButton()->isHidden())
        CloseButton()->click();
    event->accept();
}
