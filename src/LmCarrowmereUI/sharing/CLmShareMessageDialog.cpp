#include "CLmShareMessageDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

CLmShareMessageDialog::CLmShareMessageDialog(const QString& strProject,
                                             const CLmShareManagerController::MessageList& messages, qint64 nOwnUserId,
                                             QWidget* parent)
    : CLmBaseDialog(parent)
    , m_pEditAnswer(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("CLmShareMessageDialog"));
    SetTitle(tr("Message"));
    auto* history = new QListWidget;
    history->setObjectName(QStringLiteral("m_pListMessages"));
    for (const CLmShareManagerController::SMessage& message : messages) {
        history->addItem(QStringLiteral("%1  %2\n%3")
                             .arg(message.nUserId == nOwnUserId ? tr("Me") : tr("Them"), message.strTime,
                                  message.strInfo));
    }
    history->scrollToBottom();
    m_pEditAnswer->setObjectName(QStringLiteral("m_pEditAnswer"));
    m_pEditAnswer->setPlaceholderText(tr("Your answer"));
    m_pEditAnswer->setMaximumHeight(90);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* send = buttons->button(QDialogButtonBox::Ok);
    send->setObjectName(QStringLiteral("m_pBtnOk"));
    send->setText(tr("Send"));
    send->setEnabled(false);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("m_pBtnCancel"));
    connect(m_pEditAnswer, &QPlainTextEdit::textChanged, this,
            [this, send] { send->setEnabled(!Text().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(new QLabel(tr("Project: %1").arg(strProject)));
    layout->addWidget(history, 1);
    layout->addWidget(m_pEditAnswer);
    layout->addWidget(buttons);
    SetContentLayout(layout);
    resize(460, 380);
}

QString CLmShareMessageDialog::Text() const
{
    return m_pEditAnswer->toPlainText().trimmed();
}
