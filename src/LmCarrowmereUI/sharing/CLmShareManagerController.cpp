#include "CLmShareManagerController.h"

#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

#include <QJsonObject>

#include <rapidjson/document.h>

namespace {

QString IdText(qint64 nId)
{
    return QString::number(nId);
}

// A list reply may hold thousands of records: it is read with RapidJSON,
// several times faster than QJsonDocument for documents of that size.
QString Text(const rapidjson::Value& object, const char* key)
{
    const auto found = object.FindMember(key);
    if (found == object.MemberEnd() || !found->value.IsString())
        return QString();
    return QString::fromUtf8(found->value.GetString(), static_cast<int>(found->value.GetStringLength()));
}

qint64 Number(const rapidjson::Value& object, const char* key)
{
    const auto found = object.FindMember(key);
    if (found == object.MemberEnd())
        return 0;
    if (found->value.IsInt64())
        return found->value.GetInt64();
    return found->value.IsNumber() ? static_cast<qint64>(found->value.GetDouble()) : 0;
}

const rapidjson::Value* Member(const rapidjson::Value& object, const char* key)
{
    const auto found = object.FindMember(key);
    return found == object.MemberEnd() ? nullptr : &found->value;
}

using Controller = CLmShareManagerController;
using Row = CLmShareManagerController::SShareRow;

Row RowOf(const rapidjson::Value& record, Controller::EKind kind)
{
    Row row;
    row.nId = Number(record, "id");
    row.eKind = kind;
    row.strProject = Text(record, "project_name");
    row.strProjectId = Text(record, "project_id");
    row.strTaskId = Text(record, "task_id");
    row.strPeer = Text(record, "nickname");
    row.strTime = Text(record, "updated_at");
    row.nState = static_cast<int>(Number(record, "status"));
    row.nSaveAs = static_cast<int>(Number(record, "save_as"));
    row.nSenderId = Number(record, "share_from_user_id");
    const rapidjson::Value* messages = Member(record, "messages");
    if (messages && messages->IsArray()) {
        for (const rapidjson::Value& message : messages->GetArray()) {
            if (message.IsObject())
                row.vecMessages.append({Number(message, "user_id"), Text(message, "info"), Text(message, "created_at")});
        }
    }
    return row;
}

QVector<Row> RowsOf(const rapidjson::Value& records, bool bReceived)
{
    QVector<Row> rows;
    rows.reserve(static_cast<int>(records.Size()));
    for (const rapidjson::Value& record : records.GetArray()) {
        if (!record.IsObject())
            continue;
        const bool bTask = Text(record, "kind") == QLatin1String("task");
        rows.append(RowOf(record, !bReceived ? Controller::KindSent : bTask ? Controller::KindReceivedTask : Controller::KindReceived));
    }
    return rows;
}

}  // namespace

CLmShareManagerController::CLmShareManagerController(QObject* parent)
    : QObject(parent)
{
}

bool CLmShareManagerController::ReadList(const QByteArray& reply)
{
    rapidjson::Document document;
    document.Parse(reply.constData(), static_cast<size_t>(reply.size()));
    if (document.HasParseError() || !document.IsObject())
        return false;
    const rapidjson::Value* status = Member(document, "status");
    const rapidjson::Value* data = Member(document, "data");
    if (!status || !status->IsInt() || status->GetInt() != 0 || !data || !data->IsObject())
        return false;
    const rapidjson::Value* received = Member(*data, "received");
    const rapidjson::Value* sent = Member(*data, "sent");
    if (!received || !received->IsArray() || !sent || !sent->IsArray())
        return false;
    QVector<SShareRow> receivedRows = RowsOf(*received, true);
    QVector<SShareRow> sentRows = RowsOf(*sent, false);

    QSet<qint64> waiting;
    m_nNewWaiting = 0;
    for (const SShareRow& row : qAsConst(receivedRows)) {
        if (row.nState != StateWaiting)
            continue;
        waiting.insert(row.nId);
        if (!m_setSeenWaiting.contains(row.nId))
            ++m_nNewWaiting;
    }
    m_setSeenWaiting = waiting;
    m_vecReceived = std::move(receivedRows);
    m_vecSent = std::move(sentRows);
    return true;
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
    m_setSeenWaiting.clear();
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
    return row.vecMessages.isEmpty() ? QString() : row.vecMessages.last().strInfo;
}

QString CLmShareManagerController::MessageHistory(const MessageList& messages)
{
    QStringList lines;
    for (const SMessage& message : messages)
        lines.append(message.strTime + QStringLiteral("  ") + message.strInfo);
    return lines.join(QLatin1Char('\n'));
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
