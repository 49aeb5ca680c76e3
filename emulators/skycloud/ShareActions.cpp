#include "ShareActions.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"
#include "ProjectStore.h"

#include <QUuid>

namespace {

qint64 SenderOf(const ShareStore::Record& record)
{
    return record.value(QStringLiteral("share_from_user_id")).toVariant().toLongLong();
}

qint64 ReceiverOf(const ShareStore::Record& record)
{
    return record.value(QStringLiteral("share_to_user_id")).toVariant().toLongLong();
}

bool IsOnSide(const ShareStore::Record& record, qint64 accountId, ShareActions::ESide side)
{
    const bool sender = SenderOf(record) == accountId;
    const bool receiver = ReceiverOf(record) == accountId;
    switch (side) {
    case ShareActions::ReceiverSide:
        return receiver;
    case ShareActions::SenderSide:
        return sender;
    case ShareActions::EitherSide:
        break;
    }
    return sender || receiver;
}

// A name that can be a folder of its own: none of the forbidden characters
// and no leading dot (".." would name the parent).
bool IsValidName(const QString& name)
{
    for (const QChar c : ShareActions::ForbiddenNameCharacters()) {
        if (name.contains(c))
            return false;
    }
    return !name.startsWith(QLatin1Char('.'));
}

}  // namespace

ShareActions::ShareActions(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel)
    : m_projects(projects)
    , m_shares(shares)
    , m_notifier(store, channel)
{
}

std::optional<QList<ShareStore::Record>> ShareActions::OwnRecords(const Account& caller, const FormFields& fields,
                                                                  ESide side, const char* kind,
                                                                  httplib::Response& res)
{
    const std::optional<QStringList> ids = fields.RequireList("id", res);
    if (!ids)
        return std::nullopt;
    QList<ShareStore::Record> records;
    for (const QString& idText : *ids) {
        bool isNumber = false;
        const qint64 id = idText.toLongLong(&isNumber);
        const std::optional<ShareStore::Record> record =
            isNumber ? m_shares.Find(id, caller.id) : std::optional<ShareStore::Record>();
        if (!record || (kind && record->value(QStringLiteral("kind")).toString() != QLatin1String(kind))) {
            Envelope::Fail(res, 404, QStringLiteral("Unknown share"));
            return std::nullopt;
        }
        if (!IsOnSide(*record, caller.id, side)) {
            Envelope::Fail(res, 403, QStringLiteral("The share belongs to another account"));
            return std::nullopt;
        }
        records.append(*record);
    }
    return records;
}

std::optional<ShareStore::Record> ShareActions::OwnRecord(const Account& caller, const FormFields& fields,
                                                          ESide side, const char* kind, httplib::Response& res)
{
    if (fields.List("id").size() > 1) {
        Envelope::Fail(res, 400, QStringLiteral("Invalid field: id"));
        return std::nullopt;
    }
    const std::optional<QList<ShareStore::Record>> records = OwnRecords(caller, fields, side, kind, res);
    if (!records)
        return std::nullopt;
    return records->first();
}

void ShareActions::Accept(const Account& caller, const FormFields& fields, const char* kind, httplib::Response& res)
{
    const std::optional<ShareStore::Record> record = OwnRecord(caller, fields, ReceiverSide, kind, res);
    if (!record)
        return;
    if (record->value(QStringLiteral("status")).toInt() != ShareStore::Waiting) {
        WriteState(res, 200, 409, QStringLiteral("The share has already been answered"));
        return;
    }
    const std::optional<STarget> target = AcceptTarget(caller, *record, fields, res);
    if (!target)
        return;
    const ProjectStore::UploadResult copy = m_projects.CopyInto(
        caller.id, record->value(QStringLiteral("project_id")).toString(), target->id, target->name);
    if (!copy.error.isEmpty()) {
        WriteState(res, copy.httpStatus == 404 ? 200 : copy.httpStatus, copy.httpStatus, copy.error);
        return;
    }
    if (!m_shares.SetStatus(record->value(QStringLiteral("id")).toVariant().toLongLong(), ShareStore::Accepted)) {
        WriteState(res, 500, 500, QStringLiteral("Cannot store the share"));
        return;
    }
    WriteState(res, 200, 0, QStringLiteral("Accept success"), copy.data);
}

std::optional<ShareActions::STarget> ShareActions::AcceptTarget(const Account& caller,
                                                                const ShareStore::Record& record,
                                                                const FormFields& fields, httplib::Response& res)
{
    const QString type = fields.Value("type");
    const QString sharedName = record.value(QStringLiteral("project_name")).toString();
    const QString newId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (type == QLatin1String("1")) {
        // Replacing keeps the caller's project id, so its copies elsewhere follow.
        const std::optional<ProjectStore::Project> own = m_projects.FindByName(caller.id, sharedName);
        return STarget{own ? own->id : newId, sharedName};
    }
    QString name = sharedName;
    if (type == QLatin1String("2")) {
        name = fields.Value("name").trimmed();
        if (name.isEmpty()) {
            WriteState(res, 400, 400, QStringLiteral("Missing field: name"));
            return std::nullopt;
        }
        if (!IsValidName(name)) {
            WriteState(res, 400, 400, QStringLiteral("Invalid project name"));
            return std::nullopt;
        }
    } else if (type != QLatin1String("0")) {
        WriteState(res, 400, 400, QStringLiteral("Invalid field: type"));
        return std::nullopt;
    }
    if (m_projects.FindByName(caller.id, name)) {
        WriteState(res, 200, 409, QStringLiteral("A project of this name already exists"));
        return std::nullopt;
    }
    return STarget{newId, name};
}

void ShareActions::Reply(const Account& caller, const FormFields& fields, const char* kind, httplib::Response& res)
{
    if (!fields.RequireAll({"message"}, res))
        return;
    const std::optional<ShareStore::Record> record = OwnRecord(caller, fields, EitherSide, kind, res);
    if (!record)
        return;
    const qint64 id = record->value(QStringLiteral("id")).toVariant().toLongLong();
    const std::optional<QJsonArray> messages = m_shares.AppendMessage(id, caller.id, fields.Value("message"));
    if (!messages) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot store the message"));
        return;
    }
    const qint64 other = SenderOf(*record) == caller.id ? ReceiverOf(*record) : SenderOf(*record);
    const QString text = QStringLiteral("%1 answered about %2: %3")
                             .arg(caller.nickName, record->value(QStringLiteral("project_name")).toString(),
                                  fields.Value("message"));
    m_notifier.Notify(other, {QStringLiteral("project_share_message"), text,
                              QJsonObject{{"id", id}, {"messages", *messages}}});
    Envelope::Ok(res, QJsonObject{{"id", id}, {"messages", *messages}}, QStringLiteral("Reply success"));
}

QString ShareActions::ForbiddenNameCharacters()
{
    return QStringLiteral("\\/:*?\"<>|");
}

void ShareActions::WriteState(httplib::Response& res, int httpStatus, int state, const QString& message,
                              const QJsonObject& data)
{
    Envelope::WriteUnder(res, "state", httpStatus, state, message, data);
}
