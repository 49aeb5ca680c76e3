#include "CLmShareSender.h"

#include "CLmControl.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmNetWorkRequest.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

CLmShareSender::CLmShareSender(const QStringList& projectIds, const QStringList& projectFilePaths, QObject* parent)
    : QObject(parent)
    , m_listProjectIds(projectIds)
    , m_listMissionDatabases(MissionDatabases(projectIds, projectFilePaths))
{
}

CLmShareSender::~CLmShareSender()
{
    Stop();
}

QList<CLmShareSender::SMissionDatabase> CLmShareSender::MissionDatabases(const QStringList& projectIds,
                                                                         const QStringList& projectFilePaths)
{
    QList<SMissionDatabase> databases;
    for (int i = 0; i < projectIds.size() && i < projectFilePaths.size(); ++i) {
        // A project only in the cloud has no mission database here.
        if (!projectFilePaths.at(i).isEmpty()) {
            databases.append(
                {projectIds.at(i), CLmControl::GetInstance()->GetFlightMissionFilePath(projectFilePaths.at(i))});
        }
    }
    return databases;
}

void CLmShareSender::Send(const QString& receiver, const QString& message, bool withFlightLog)
{
    m_strReceiver = receiver;
    m_strMessage = message;
    // The flight logs go first: a receiver who opens the share at once
    // finds the shared flights in the cloud already.
    if (withFlightLog && !m_listMissionDatabases.isEmpty())
        UploadFlightLogs();
    else
        PostShare();
}

void CLmShareSender::UploadFlightLogs()
{
    if (m_listUploaders.isEmpty()) {
        for (const SMissionDatabase& database : m_listMissionDatabases)
            m_listUploaders.append(CreateUploader(database));
        m_uploadThread.start(QThread::InheritPriority);
    }
    m_iUploadsRunning = m_listUploaders.size();
    for (CLmFlightDataDbOperator* uploader : qAsConst(m_listUploaders))
        QMetaObject::invokeMethod(uploader, &CLmFlightDataDbOperator::slotCheckNewData, Qt::QueuedConnection);
}

CLmFlightDataDbOperator* CLmShareSender::CreateUploader(const SMissionDatabase& database)
{
    auto* uploader = new CLmFlightDataDbOperator(nullptr, UploadEnvCloud);
    uploader->SetFlightMissionFilePath(database.strFilePath);
    uploader->moveToThread(&m_uploadThread);
    connect(&m_uploadThread, &QThread::finished, uploader, &QObject::deleteLater);
    connect(uploader, &CLmFlightDataDbOperator::UpLoading, this,
            [this, database] { Q_EMIT FlightLogUploading(database.strProjectID, database.strFilePath); });
    connect(uploader, &CLmFlightDataDbOperator::UploadFinished, this,
            [this, database] { OnUploaderFinished(database); });
    return uploader;
}

void CLmShareSender::OnUploaderFinished(const SMissionDatabase& database)
{
    // A report still queued when Stop() ended the uploads starts nothing.
    if (m_iUploadsRunning == 0)
        return;
    qCDebug(lcShare) << "flight-log upload of" << database.strFilePath << "finished";
    Q_EMIT FlightLogUploaded(database.strProjectID, database.strFilePath);
    if (--m_iUploadsRunning == 0)
        PostShare();
}

void CLmShareSender::PostShare()
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::ShareShare);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmShareSender::ShareAnswered);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmShareSender::ShareFailed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmShareSender::ShareNetWorkError);
    request->SetBody(LmCloudForm::Body({{"id", m_listProjectIds.join(QLatin1Char(','))},
                                        {"phone", m_strReceiver},
                                        {"message", m_strMessage}}));
    request->PostNetWorkReplyMessage();
    qCDebug(lcShare) << "share of" << m_listProjectIds.size() << "project(s) posted";
}

void CLmShareSender::Stop()
{
    m_iUploadsRunning = 0;
    if (!m_uploadThread.isRunning())
        return;
    m_uploadThread.quit();
    m_uploadThread.wait();
    // The uploaders were deleted with the thread's end.
    m_listUploaders.clear();
}
