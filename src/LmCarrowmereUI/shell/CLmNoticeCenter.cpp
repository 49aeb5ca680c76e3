#include "CLmNoticeCenter.h"

#include "CLmCarrowmereUpgradeLauncher.h"
#include "CLmCarrowmereUpgradeSure.h"
#include "CLmCheckUpdateRet.h"
#include "CLmLinkManager.h"
#include "CLmMessageBox.h"
#include "CLmReplyEnvelope.h"
#include "CLmSureUpgrade.h"
#include "CLmTcpClientLink.h"
#include "LINK_TYPE.h"
#include "LmCarrowmereUILog.h"

#include <QJsonDocument>
#include <QLayout>
#include <QUrl>
#include <QWebEngineView>

namespace {

const char kIconExclamation[] = ":/images/Normal/Exclamation_mark.png";

// Push notifications are acted on only with these statuses.
bool IsActionableStatus(int status)
{
    return status == 0 || status == 2;
}

}  // namespace

CLmNoticeCenter::CLmNoticeCenter(QWidget* pWindow, QWidget* pNewsHost)
    : QObject(pWindow)
    , m_pWindow(pWindow)
    , m_pNewsHost(pNewsHost)
{
}

void CLmNoticeCenter::Dispatch(const QJsonObject& notice)
{
    // A notification has the shape of a cloud reply, whose reader takes the body.
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(QJsonDocument(notice).toJson(QJsonDocument::Compact));
    const QString action = notice.value(QStringLiteral("action")).toString();
    qCDebug(lcNotices) << "push notification" << envelope.Status() << action;
    if (!IsActionableStatus(envelope.Status()))
        return;

    if (action == QLatin1String("project_share")) {
        Q_EMIT ProjectNoticeArrived();
    } else if (action == QLatin1String("project_share_message")) {
        Q_EMIT MessageNoticeArrived();
    } else if (action == QLatin1String("apply_ios")) {
        Q_EMIT MessageNoticeArrived();
        Q_EMIT AccessRequestArrived();
    } else if (action == QLatin1String("news")) {
        Q_EMIT NewsArrived(envelope.Message());
    } else if (action == QLatin1String("lift_check")) {
        ConfirmLiftCheck(envelope.Message());
    } else if (action == QLatin1String("pc_assign")) {
        qCDebug(lcNotices) << "task assigned:" << envelope.Message();
        Q_EMIT ProjectNoticeArrived();
    }
}

void CLmNoticeCenter::ConfirmLiftCheck(const QString& message)
{
    CLmMessageBox box(message, QLatin1String(kIconExclamation), tr("System Information"), CLmMessageBox::BtnOk,
                      m_pWindow);
    box.exec();
    Q_EMIT LiftCheckConfirmed();
}

void CLmNoticeCenter::ShowNews(const QUrl& url)
{
    // The browser engine is costly to start, so the view exists only once
    // the cloud has been reached.
    if (!m_pNewsView) {
        m_pNewsView = new QWebEngineView(m_pNewsHost);
        m_pNewsView->setObjectName(QStringLiteral("m_pNewsWebView"));
        m_pNewsView->setContextMenuPolicy(Qt::NoContextMenu);
        m_pNewsHost->layout()->addWidget(m_pNewsView);
    }
    m_pNewsView->load(url);
}

void CLmNoticeCenter::StartUpdateChecks()
{
    auto* checkUpdate = new CLmCheckUpdateRet(this);
    connect(checkUpdate, &CLmCheckUpdateRet::DownLoadFinished, this, &CLmNoticeCenter::DownLoadFinished);
    connect(checkUpdate, &CLmCheckUpdateRet::LauncherUpgradeInfor, this, &CLmNoticeCenter::LauncherUpgradeInfor);
    checkUpdate->CheckUpdate();

    auto* sureUpgrade = new CLmSureUpgrade(this);
    connect(sureUpgrade, &CLmSureUpgrade::NeedDownLoad, this, &CLmNoticeCenter::NeedUpgradeSureNewVersion);
    sureUpgrade->CheckUpdate();
}

void CLmNoticeCenter::OpenPushLink(CLmLinkManager* pLinkManager)
{
    m_pPushLink = pLinkManager->AddTcpClientLink(this, LINK_TYPE_TCP_CLIENT);
}

void CLmNoticeCenter::RefreshPushSubscription()
{
    if (auto* pushLink = qobject_cast<CLmTcpClientLink*>(m_pPushLink))
        pushLink->Resubscribe();
}

bool CLmNoticeCenter::OfferFirmwareUpdate()
{
    if (m_pFirmwareNoticeBox)
        return false;
    m_pFirmwareNoticeBox = new CLmMessageBox(tr(" There is a new firmware version needs to be updated."), QString(),
                                             tr("SkyConsole"), CLmMessageBox::BtnOkCancel, m_pWindow);
    return m_pFirmwareNoticeBox->exec() == 1;
}

void CLmNoticeCenter::ForgetFirmwareOffer()
{
    delete m_pFirmwareNoticeBox;
    m_pFirmwareNoticeBox = nullptr;
}

void CLmNoticeCenter::OfferApplicationUpgrade(const QJsonObject& release)
{
    CLmMessageBox box(tr(" There is a new \"srtch\" version needs to be updated."), QString(), tr("SkyConsole"),
                      CLmMessageBox::BtnOkCancel, m_pWindow);
    if (box.exec() != 1)
        return;
    CLmCarrowmereUpgradeSure dialog(m_pWindow);
    dialog.SetDownloadData(release);
    dialog.exec(true);
}

void CLmNoticeCenter::OfferLauncherUpgrade()
{
    CLmCarrowmereUpgradeLauncher dialog(m_pWindow);
    dialog.exec(true);
}
