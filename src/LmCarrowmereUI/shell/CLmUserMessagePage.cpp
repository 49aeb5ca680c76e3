#include "CLmUserMessagePage.h"

#include "ui_CLmUserMessagePage.h"

#include <QJsonDocument>
#include <QJsonObject>

CLmUserMessagePage::CLmUserMessagePage(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmUserMessagePage>())
{
    m_pUi->setupUi(this);
    connect(m_pUi->m_pBtnBackHome, &QPushButton::clicked, this, &CLmUserMessagePage::BackToHome);
    connect(m_pUi->m_pBtnShowMessages, &QPushButton::clicked, this, &CLmUserMessagePage::ShowMessageView);
    connect(m_pUi->m_pBtnShowProfile, &QPushButton::clicked, this,
            [this] { m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pProfileView); });
    SetMessages({});
}

CLmUserMessagePage::~CLmUserMessagePage() = default;

void CLmUserMessagePage::ShowMessageView()
{
    m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pMessageView);
    m_pUi->m_pBtnShowMessages->setChecked(true);
    m_pUi->m_pBtnShowProfile->setChecked(false);
}

void CLmUserMessagePage::ShowProfileView(const QByteArray& reply)
{
    const QJsonObject profile = QJsonDocument::fromJson(reply).object().value(QStringLiteral("data")).toObject();
    if (!profile.isEmpty()) {
        m_pUi->m_pLabelNickName->setText(profile.value(QStringLiteral("nick_name")).toString());
        m_pUi->m_pLabelPhone->setText(profile.value(QStringLiteral("phone")).toString());
        m_pUi->m_pLabelEmail->setText(profile.value(QStringLiteral("email")).toString());
        m_pUi->m_pLabelCompany->setText(profile.value(QStringLiteral("company")).toString());
    }
    m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pProfileView);
    m_pUi->m_pBtnShowMessages->setChecked(false);
    m_pUi->m_pBtnShowProfile->setChecked(true);
}

void CLmUserMessagePage::SetMessages(const QJsonArray& messages)
{
    m_pUi->m_pListMessages->clear();
    for (const QJsonValue& value : messages) {
        const QJsonObject message = value.toObject();
        m_pUi->m_pListMessages->addItem(message.value(QStringLiteral("created_at")).toString() + QStringLiteral("  ")
                                        + message.value(QStringLiteral("message")).toString());
    }
    m_pUi->m_pLabelNoMessage->setVisible(messages.isEmpty());
}
