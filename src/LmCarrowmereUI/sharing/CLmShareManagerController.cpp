#include "CLmShareManagerController.h"

#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString IdText(qint64 nId)
{
    return QString::number(nId);
}

}  // namespace

CLmShareManagerController::CLmShareManagerController(QObject* parent)
    : QObject(parent)
{
}

bool CLmShareManagerController::ReadList(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    const QJsonObject data = envelope.DataObject();
    if (!envelope.IsSuccess() || !data.value(QStringLiteral("received")).isArray()
        || !data.value(QStringLiteral("sent")).isArray())
        return false;
    QVector<SShareRow> received;
    for (const QJsonValue& record : data.value(QStringLiteral("received")).toArray()) {
        const bool bTask = record.toObject().value(QStringLiteral("kind")).toString() == QLatin1String("task");
        received.append(RowOf(record.toObject(), bTask ? KindReceivedTask : KindReceived));
    }
    QVector<SShareRow> sent;
    for (const QJsonValue& record : data.value(QStringLiteral("sent")).toArray())
        sent.append(RowOf(record.toObject(), KindSent));

    QList<qint64> waiting;
    m_nNewWaiting = 0;
    for (const SShareRow& row : qAsConst(received)) {
        if (row.nState != StateWaiting)
            continue;
        waiting.append(row.nId);
        if (!m_listSeenWaiting.contains(row.nId))
            ++m_nNewWaiting;
    }
    m_listSeenWaiting = waiting;
    m_vecReceived = std::move(received);
    m_vecSent = std::move(sent);
    return true;
}

CLmShareManagerController::SShareRow CLmShareManagerController::RowOf(const QJsonObject& record, EKind kind)
{
    SShareRow row;
    row.nId = record.value(QStringLiteral("id")).toVariant().toLongLong();
    row.eKind = kind;
    row.strProject = record.value(QStringLiteral("project_name")).toString();
    row.strProjectId = record.value(QStringLiteral("project_id")).toString();
    row.strTaskId = record.value(QStringLiteral("task_id")).toString();
    row.strPeer = record.value(QStringLiteral("nickname")).toString();
    row.strTime = record.value(QStringLiteral("updated_at")).toString();
    row.nState = record.value(QStringLiteral("status")).toInt();
    row.nSaveAs = record.value(QStringLiteral("save_as")).toInt();
    row.nSenderId = record.value(QStringLiteral("share_from_user_id")).toVariant().toLongLong();
    row.listMessages = record.value(QStringLiteral("messages")).toArray().toVariantList();
    return row;
}

const QVector<CLmShareManagerController::SShareRow>& CLmShareManagerController::Received() const
{
    return m_vecReceived;
}

const QVector<CLmShareManagerController::SShareRow>& CLmShareManagerController::Sent() const
{
    return m_vecSent;
}

const CLmShareManagerController::SShareRow* CLmShareManagerController::Find(qint64 nId) const
{
    for (const QVector<SShareRow>* rows : {&m_vecReceived, &m_vecSent}) {
        for (const SShareRow& row : *rows) {
            if (row.nId == nId)
                return &row;
        }
    }
    return nullptr;
}

int CLmShareManagerController::NewWaitingCount() const
{
    return m_nNewWaiting;
}

void CLmShareManagerController::Clear()
{
    m_vecReceived.clear();
    m_vecSent.clear();
    m_listSeenWaiting.clear();
    m_nNewWaiting = 0;
}

void CLmShareManagerController::SetState(qint64 nId, int nState)
{
    for (QVector<SShareRow>* rows : {&m_vecReceived, &m_vecSent}) {
        for (SShareRow& row : *rows) {
            if (row.nId == nId)
                row.nState = nState;
        }
    }
}

QString CLmShareManagerController::KindName(EKind kind)
{
    switch (kind) {
    case KindReceived:
        return QStringLiteral("RecivedItem");
    case KindReceivedTask:
        return QStringLiteral("RecivedTaskItem");
    case KindSent:
        break;
    }
    return QStringLiteral("SharedItem");
}

QString CLmShareManagerController::StateText(int nState)
{
    switch (nState) {
    case StateWaiting:
        return tr("Waiting");
    case StateCancelled:
        return tr("Cancelled");
    case StateAccepted:
        return tr("Accepted");
    case StateRejected:
        return tr("Rejected");
    default:
        return QString();
    }
}

QString CLmShareManagerController::LatestMessage(const SShareRow& row)
{
    return row.listMessages.isEmpty() ? QString()
                                      : row.listMessages.last().toMap().value(QStringLiteral("info")).toString();
}

CLmShareManagerController::ENameCheck CLmShareManagerController::CheckName(const QString& name)
{
    if (name.trimmed().isEmpty())
        return NameEmpty;
    for (const QChar c : ForbiddenCharacters()) {
        if (name.contains(c))
            return NameForbidden;
    }
    // A name of dots alone would name the project folder's parent or itself.
    return name.startsWith(QLatin1Char('.')) ? NameForbidden : NameOk;
}

QString CLmShareManagerController::ForbiddenCharacters()
{
    return QStringLiteral("\\/:*?\"<>|");
}

QByteArray CLmShareManagerController::AcceptBody(qint64 nId, EAcceptType type, const QString& name)
{
    LmCloudForm::Fields fields{{"id", IdText(nId)}, {"type", QString::number(type)}};
    if (type == AcceptSaveAs)
        fields.append({"name", name.trimmed()});
    return LmCloudForm::Body(fields);
}

CLmShareManagerController::SAcceptAnswer CLmShareManagerController::ReadAcceptAnswer(const QByteArray& reply,
                                                                                    const QString& rowProjectName)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    SAcceptAnswer answer;
    answer.bParsed = envelope.IsParsed();
    answer.strMessage = envelope.Message();
    // This one reply carries its result under "state", not "status".
    answer.bAccepted = envelope.StatusUnder(QStringLiteral("state")) == 0;
    const QJsonObject data = envelope.DataObject();
    answer.strProjectId = data.value(QStringLiteral("id")).toString();
    answer.strProjectName = data.value(QStringLiteral("name")).toString();
    if (answer.strProjectName.isEmpty())
        answer.strProjectName = rowProjectName;
    return answer;
}

CLmNetWorkRequest* CLmShareManagerController::NewListRequest()
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::ShareList);
    request->SetNetWorkReplyTimeout(ShareCallTimeoutMs);
    return request;
}

CLmNetWorkRequest* CLmShareManagerController::NewAcceptRequest(const SShareRow& row, const QByteArray& body)
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(row.eKind == KindReceivedTask ? LmCloudPath::TaskAcceptAssign
                                                                                           : LmCloudPath::ShareAccept);
    request->SetBody(body);
    request->SetNetWorkReplyTimeout(ShareCallTimeoutMs);
    return request;
}

CLmNetWorkRequest* CLmShareManagerController::NewDeleteRequest(const QList<qint64>& ids)
{
    QStringList idTexts;
    for (qint64 nId : ids)
        idTexts.append(IdText(nId));
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::ShareDelete);
    request->SetBody(LmCloudForm::Body({{"id", idTexts.join(QLatin1Char(','))}}));
    request->SetNetWorkReplyTimeout(ShareCallTimeoutMs);
    return request;
}

CLmNetWorkRequest* CLmShareManagerController::NewReplyRequest(const SShareRow& row, const QString& text)
{
    CLmNetWorkRequest* request =
        LmCloudRequest::NewSignedIn(row.eKind == KindReceivedTask ? LmCloudPath::TaskReply : LmCloudPath::ShareReply);
    request->SetBody(LmCloudForm::Body({{"id", IdText(row.nId)}, {"message", text}}));
    return request;
}

CLmNetWorkRequest* CLmShareManagerController::NewShareAgainRequest(const SShareRow& row)
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::ShareShareAgain);
    request->SetBody(LmCloudForm::Body({{"id", IdText(row.nId)}}));
    request->SetNetWorkReplyTimeout(ShareCallTimeoutMs);
    return request;
}
