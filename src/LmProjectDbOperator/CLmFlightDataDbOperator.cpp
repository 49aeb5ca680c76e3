#include "CLmFlightDataDbOperator.h"

#include "CLmClock.h"
#include "CLmControl.h"
#include "CLmFlightDataWriter.h"
#include "CLmUpLoadObject.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "LmCloudForm.h"
#include "LmCloudRequest.h"
#include "LmProjectDbOperatorLog.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr char UploadPath[] = "/flight/upload";
constexpr char SharedMissionFileName[] = "Flight_Mission.db";

EUploadEnv SupportedEnv(EUploadEnv env)
{
    if (env == UploadEnvNone || env == UploadEnvCloud)
        return env;
    qCWarning(lcFlightData) << "upload environment" << int(env) << "is not supported; flight data is not sent";
    return UploadEnvNone;
}

QString CompactJson(const QJsonDocument& document)
{
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

}  // namespace

CLmFlightDataDbOperator::CLmFlightDataDbOperator(QObject* parent, EUploadEnv env)
    : CLmFlightDataDbOperator(parent, env, nullptr)
{
}

CLmFlightDataDbOperator::CLmFlightDataDbOperator(QObject* parent, EUploadEnv env, CLmClock* clock)
    : QObject(parent)
    , m_eEnv(SupportedEnv(env))
    , m_pClock(clock ? clock : new CLmClock)
{
    m_pClock->setParent(this);
    connect(m_pClock, &CLmClock::timeout, this, &CLmFlightDataDbOperator::slotCheckNewData);
}

void CLmFlightDataDbOperator::SetFlightMissionFilePath(const QString& filePath)
{
    m_strFlightMissionFilePath = filePath;
}

void CLmFlightDataDbOperator::slotParseJson(QJsonArray jArray, QString strFilePath, QString strMissionID,
                                            unsigned int iOperatorType, QString strProjectName)
{
    const int rows = CLmFlightDataWriter::Write(strFilePath, iOperatorType, jArray, strMissionID);
    qCDebug(lcFlightData) << "flight data of project" << strProjectName << "mission" << strMissionID << ":" << rows
                          << "of" << jArray.size() << "rows written to" << CLmFlightDataWriter::TableName(iOperatorType);
    Q_EMIT FlightDataParsed(strFilePath, strMissionID, iOperatorType, rows);
}

void CLmFlightDataDbOperator::slotStartUploadTimer(bool bStart)
{
    if (bStart)
        m_pClock->Start(UploadIntervalMs);
    else
        m_pClock->Stop();
}

void CLmFlightDataDbOperator::slotCheckNewData()
{
    qCDebug(lcFlightData) << "checking mission databases for new flight data";
    if (m_bUploading) {
        qCDebug(lcFlightData) << "the previous upload is still running";
        return;
    }
    m_listPending = FindPendingMissions();
    Q_EMIT NewDataChecked(m_listPending.size());
    if (m_listPending.isEmpty() || !MaySend()) {
        FinishCheck();
        return;
    }
    m_bUploading = true;
    Q_EMIT UpLoading();
    SendNextBatch();
}

QStringList CLmFlightDataDbOperator::MissionDatabaseFiles() const
{
    if (!m_strFlightMissionFilePath.isEmpty())
        return QFileInfo::exists(m_strFlightMissionFilePath) ? QStringList{m_strFlightMissionFilePath} : QStringList();
    QString folder = CLmControl::GetInstance()->GetRouteFolder();
    if (folder.isEmpty()) {
        const QString userId = CLmSessionStore().CurrentUser().strUserID;
        if (userId.isEmpty())
            return {};
        folder = CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/") + userId
                 + QStringLiteral("/Vireo_AirLine/");
    }
    QStringList files;
    const QFileInfoList entries =
        QDir(folder).entryInfoList({QStringLiteral("*.db")}, QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo& entry : entries) {
        if (entry.fileName() != QLatin1String(SharedMissionFileName))
            files.append(entry.absoluteFilePath());
    }
    return files;
}

QList<CLmFlightUploadState::SMission> CLmFlightDataDbOperator::FindPendingMissions() const
{
    QList<CLmFlightUploadState::SMission> pending;
    for (const QString& file : MissionDatabaseFiles())
        pending.append(CLmFlightUploadState::PendingMissions(file));
    return pending;
}

bool CLmFlightDataDbOperator::MaySend() const
{
    if (m_eEnv != UploadEnvCloud)
        return false;
    if (!CLmSessionStore().IsSignedIn()) {
        qCDebug(lcFlightData) << "nobody signed in: flight data waits";
        return false;
    }
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        qCDebug(lcFlightData) << "no network: flight data waits";
        return false;
    }
    return true;
}

void CLmFlightDataDbOperator::SendNextBatch()
{
    while (!m_listPending.isEmpty()) {
        const CLmFlightUploadState::SMission& mission = m_listPending.first();
        const CLmFlightUploadState::SBatch batch =
            CLmFlightUploadState::NextBatch(mission.strFilePath, mission.iMissionID, UploadBatchRows);
        if (!batch.jRows.isEmpty()) {
            m_iSentLastLogID = batch.iLastLogID;
            PostBatch(mission, batch.jRows);
            return;
        }
        m_listPending.removeFirst();
    }
    FinishCheck();
}

void CLmFlightDataDbOperator::PostBatch(const CLmFlightUploadState::SMission& mission, const QJsonArray& rows)
{
    const QByteArray body = LmCloudForm::Body({{"project_id", mission.strProjectID},
                                               {"flight_task_id", mission.strTaskID},
                                               {"flight_mission_id", QString::number(mission.iMissionID)},
                                               {"mission", CompactJson(QJsonDocument(mission.jMission))},
                                               {"rows", CompactJson(QJsonDocument(rows))}});
    CLmUpLoadObject* upload = LmCloudRequest::AddressSignedIn(UploadObject(), UploadPath);
    upload->SetFilePathArray(body);
    upload->PostNetWorkReplyMessage();
}

void CLmFlightDataDbOperator::slotUploadAnswered(const QByteArray& reply)
{
    if (!IsConfirmed(reply)) {
        qCInfo(lcFlightData) << "the cloud refused the flight data:"
                             << CLmReplyEnvelope::Parse(reply).Status();
        FinishCheck();
        return;
    }
    const CLmFlightUploadState::SMission& mission = m_listPending.first();
    if (!CLmFlightUploadState::MarkUploaded(mission.strFilePath, mission.iMissionID, m_iSentLastLogID)) {
        FinishCheck();
        return;
    }
    SendNextBatch();
}

void CLmFlightDataDbOperator::slotUploadFailed()
{
    qCInfo(lcFlightData) << "flight data upload failed; the next check sends it again";
    FinishCheck();
}

bool CLmFlightDataDbOperator::IsConfirmed(const QByteArray& reply) const
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    const QJsonObject data = envelope.DataObject();
    return envelope.IsSuccess()
           && data.value(QStringLiteral("flight_mission_id")).toDouble(-1) == double(m_listPending.first().iMissionID)
           && data.value(QStringLiteral("last_log_id")).toDouble(-1) == double(m_iSentLastLogID);
}

void CLmFlightDataDbOperator::FinishCheck()
{
    m_bUploading = false;
    m_listPending.clear();
    Q_EMIT UploadFinished();
}

CLmUpLoadObject* CLmFlightDataDbOperator::UploadObject()
{
    if (!m_pUpload) {
        m_pUpload = new CLmUpLoadObject(this);
        connect(m_pUpload, &CLmUpLoadObject::UpLoadFinished, this, &CLmFlightDataDbOperator::slotUploadAnswered);
        connect(m_pUpload, &CLmUpLoadObject::UpLoadNetWorkError, this, &CLmFlightDataDbOperator::slotUploadFailed);
    }
    return m_pUpload;
}
