#include "CLmNoFlyZoneUpgrade.h"

#include "CLmControl.h"
#include "CLmDownLoadObject.h"
#include "CLmNetWorkRequest.h"
#include "CLmNoflyZoneMgr.h"
#include "CLmProgressWgt.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmFileReplace.h"

#include <QApplication>
#include <QFileInfo>
#include <QJsonObject>
#include <QUrl>

namespace {

constexpr int kCheckUpdateTimeoutMs = 5000;
const char kPublishedName[] = "/NoflyZone.dat";

// The zone file may only come over the web, never from a local path.
bool IsWebAddress(const QString& address)
{
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
           && !url.host().isEmpty();
}

bool HasToken()
{
    return !CLmSessionStore().Token().isEmpty();
}

}  // namespace

CLmNoFlyZoneUpgrade::CLmNoFlyZoneUpgrade(QObject* parent)
    : QObject(parent)
{
    m_threadDataBase.setObjectName(QStringLiteral("noflyzone-database"));
    m_workerContext.moveToThread(&m_threadDataBase);
    // The manager's connection belongs to the database thread, so it is made
    // and closed there.
    connect(&m_threadDataBase, &QThread::started, &m_workerContext,
            [this] { m_pNoflyZoneMgr = std::make_unique<CLmNoflyZoneMgr>(); }, Qt::DirectConnection);
    connect(&m_threadDataBase, &QThread::finished, &m_workerContext, [this] { m_pNoflyZoneMgr.reset(); },
            Qt::DirectConnection);
    m_threadDataBase.start();
}

CLmNoFlyZoneUpgrade::~CLmNoFlyZoneUpgrade()
{
    m_threadDataBase.quit();
    m_threadDataBase.wait();
    delete m_pProgressWgt;
}

QString CLmNoFlyZoneUpgrade::PublishedFilePath()
{
    const QFileInfo applicationDir(CLmControl::GetInstance()->GetApplicationDirectory());
    if (applicationDir.isDir() && applicationDir.isWritable())
        return applicationDir.absoluteFilePath() + QLatin1String(kPublishedName);
    return CLmControl::GetInstance()->GetAppDataDirectory() + QLatin1String(kPublishedName);
}

template <class TWork, class TThen>
void CLmNoFlyZoneUpgrade::OnWorker(TWork work, TThen then)
{
    QMetaObject::invokeMethod(
        &m_workerContext,
        [this, work, then] {
            auto result = work(*m_pNoflyZoneMgr);
            QMetaObject::invokeMethod(
                this, [this, then, result] { (this->*then)(result); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void CLmNoFlyZoneUpgrade::Start()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        Q_EMIT UpdateEnded(false);
        return;
    }
    if (m_bRunning)
        return;
    m_bRunning = true;
    CheckWorkCopy();
}

void CLmNoFlyZoneUpgrade::CheckWorkCopy()
{
    OnWorker([](CLmNoflyZoneMgr& manager) { return manager.CheckExistNoflyFile(); },
             &CLmNoFlyZoneUpgrade::ContinueWithWorkCopy);
}

void CLmNoFlyZoneUpgrade::ContinueWithWorkCopy(const QString& newestUpdatedAt)
{
    if (!newestUpdatedAt.isEmpty()) {
        CheckUpdate(newestUpdatedAt);
        return;
    }
    m_strUrl.clear();
    Download();
}

void CLmNoFlyZoneUpgrade::Download()
{
    if (!m_pDownLoad) {
        m_pDownLoad = new CLmDownLoadObject(this);
        m_pDownLoad->SetMethod(CLmDownLoadObject::MethodGet);
        connect(m_pDownLoad, &CLmDownLoadObject::DownLoadFinished, this, &CLmNoFlyZoneUpgrade::slotDownLoadNoFlyZone);
        connect(m_pDownLoad, &CLmDownLoadObject::DownLoadProcess, this, &CLmNoFlyZoneUpgrade::slotDownloadProgress);
        connect(m_pDownLoad, &CLmDownLoadObject::DownLoadError, this, &CLmNoFlyZoneUpgrade::slotNetWorkError);
    }
    m_pDownLoad->SetUrl(m_strUrl.isEmpty() ? GetServerIP() + LmCloudPath::NoFlyZoneDownload : m_strUrl.toUtf8());
    m_pDownLoad->slotRequestData();
    if (!m_strUrl.isEmpty())
        ShowProgressDialog();
}

void CLmNoFlyZoneUpgrade::ShowProgressDialog()
{
    if (!m_pProgressWgt) {
        m_pProgressWgt = new CLmProgressWgt(QApplication::activeWindow());
        m_pProgressWgt->SetTitle(tr("Downloading NoFlyZone File..."));
        connect(this, &CLmNoFlyZoneUpgrade::signalCloseLoadWgt, m_pProgressWgt, &CLmProgressWgt::accept);
        connect(this, &CLmNoFlyZoneUpgrade::signalDownLoadProcess, m_pProgressWgt, &CLmProgressWgt::SetProgress);
        connect(m_pProgressWgt, &CLmProgressWgt::signalBtnRetryClicked, this,
                &CLmNoFlyZoneUpgrade::slotBtnRetryClicked);
    }
    m_pProgressWgt->VisibleBtnCannel(false);
    m_pProgressWgt->VisibleBtnClose(false);
    m_pProgressWgt->VisibleBtnRetry(false);
    m_pProgressWgt->SetCurrentText(QString());
    m_pProgressWgt->SetValue(0);
    // A retry runs while the dialog is still open from the first try.
    if (!m_pProgressWgt->isVisible())
        m_pProgressWgt->exec(false);
}

void CLmNoFlyZoneUpgrade::slotDownLoadNoFlyZone()
{
    const QByteArray data = m_pDownLoad->GetDownLoadData();
    if (!m_strUrl.isEmpty()) {
        OnWorker([data](CLmNoflyZoneMgr& manager) { return manager.SaveNoflyFile(data); },
                 &CLmNoFlyZoneUpgrade::ZoneFileSaved);
        return;
    }
    const CLmReplyEnvelope reply = CLmReplyEnvelope::Parse(data);
    const QString url = reply.DataObject().value(QStringLiteral("url")).toString();
    if (!reply.IsSuccess() || !IsWebAddress(url)) {
        qCInfo(lcNoFly) << "the cloud named no zone file; status" << reply.Status();
        End(false);
        return;
    }
    m_strUrl = url;
    Download();
}

void CLmNoFlyZoneUpgrade::ZoneFileSaved(bool bSaved)
{
    if (!bSaved) {
        ShowDownloadFailed();
        return;
    }
    m_strUrl.clear();
    Q_EMIT signalCloseLoadWgt();
    CheckWorkCopy();
}

void CLmNoFlyZoneUpgrade::slotDownloadProgress(qlonglong iCur, qlonglong iTotal)
{
    Q_EMIT signalDownLoadProcess(static_cast<int>(iCur), static_cast<int>(iTotal));
}

void CLmNoFlyZoneUpgrade::slotNetWorkError()
{
    qCInfo(lcNoFly) << "zone download failed";
    ShowDownloadFailed();
}

void CLmNoFlyZoneUpgrade::ShowDownloadFailed()
{
    if (m_pProgressWgt && m_pProgressWgt->isVisible()) {
        m_pProgressWgt->VisibleBtnCannel(true);
        m_pProgressWgt->VisibleBtnRetry(true);
        m_pProgressWgt->SetCurrentText(tr("Download File Failed."));
    }
    End(false);
}

void CLmNoFlyZoneUpgrade::slotBtnRetryClicked()
{
    Start();
}

void CLmNoFlyZoneUpgrade::CheckUpdate(const QString& newestUpdatedAt)
{
    if (!HasToken()) {
        End(false);
        return;
    }
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::NoFlyZoneCheckUpdate);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmNoFlyZoneUpgrade::slotReplyFinished);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, [this] { End(false); });
    connect(request, &CLmNetWorkRequest::NetWorkError, this, [this] { End(false); });
    request->SetBody(LmCloudForm::Body({{QByteArrayLiteral("updated_at"), newestUpdatedAt}}));
    request->SetNetWorkReplyTimeout(kCheckUpdateTimeoutMs);
    request->PostNetWorkReplyMessage();
}

void CLmNoFlyZoneUpgrade::slotReplyFinished(const QByteArray& reply)
{
    // A reply of many thousand zones takes a while to read, so the worker
    // parses it too.
    OnWorker(
        [reply](CLmNoflyZoneMgr& manager) {
            const CLmNoflyZoneMgr::SZoneUpdate update = manager.ApplyZoneReply(reply);
            SUpdateOutcome outcome;
            outcome.bApplied = update.result.bOk;
            outcome.iLiftCount = update.iLiftCount;
            // The cloud grants this account nothing, so no lift stays.
            if (outcome.bApplied && outcome.iLiftCount == 0)
                manager.RemoveLiftsExcept(QString());
            return outcome;
        },
        &CLmNoFlyZoneUpgrade::UpdateApplied);
}

void CLmNoFlyZoneUpgrade::UpdateApplied(const SUpdateOutcome& outcome)
{
    if (!outcome.bApplied)
        End(false);
    else if (outcome.iLiftCount == 0)
        Publish();
    else
        AcceptLifts();
}

void CLmNoFlyZoneUpgrade::AcceptLifts()
{
    if (!HasToken()) {
        Publish();
        return;
    }
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::NoFlyZoneLiftAccept);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmNoFlyZoneUpgrade::slotReplyLiftFinished);
    // Without an answer there is nothing to store, and the file is published as it is.
    connect(request, &CLmNetWorkRequest::FailedMsg, this, [this] { slotReplyLiftFinished({}); });
    connect(request, &CLmNetWorkRequest::NetWorkError, this, [this] { slotReplyLiftFinished({}); });
    request->PostNetWorkReplyMessage();
}

void CLmNoFlyZoneUpgrade::slotReplyLiftFinished(const QByteArray& reply)
{
    const QString userId = GetCurUserInfo().strUserID;
    OnWorker(
        [reply, userId](CLmNoflyZoneMgr& manager) {
            manager.ApplyLiftReply(reply);
            return manager.RemoveLiftsExcept(userId);
        },
        &CLmNoFlyZoneUpgrade::LiftsStored);
}

void CLmNoFlyZoneUpgrade::LiftsStored(bool)
{
    Publish();
}

void CLmNoFlyZoneUpgrade::Publish()
{
    const QString target = PublishedFilePath();
    OnWorker(
        [target](CLmNoflyZoneMgr& manager) {
            const QString work = manager.WorkFilePath();
            manager.CloseDataBase();
            if (!manager.EncryptionNoflyFile(work, work))
                return false;
            if (!LmFileReplace::CopyOver(work, target)) {
                qCWarning(lcNoFly) << "cannot publish to" << target << "; the file there stays";
                return false;
            }
            qCInfo(lcNoFly) << "published" << target;
            return true;
        },
        &CLmNoFlyZoneUpgrade::End);
}

void CLmNoFlyZoneUpgrade::End(bool bPublished)
{
    m_bRunning = false;
    Q_EMIT UpdateEnded(bPublished);
}
