#include "ShareStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

constexpr char Columns[] =
    "id, share_from_user_id, share_from_phone, share_from_nickname, share_to_user_id, share_to_phone,"
    " share_to_nickname, project_id, project_name, message, status, created_at, updated_at, kind, task_id, messages";

}  // namespace

ShareStore::ShareStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool ShareStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(m_dataDir);
    CLmDataBase db(DatabasePath());
    bool ok =
        db.Open()
        && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS shares ("
                                  " id INTEGER PRIMARY KEY AUTOINCREMENT,"
                                  " share_from_user_id INTEGER NOT NULL, share_from_phone TEXT NOT NULL,"
                                  " share_from_nickname TEXT NOT NULL, share_to_user_id INTEGER NOT NULL,"
                                  " share_to_phone TEXT NOT NULL, share_to_nickname TEXT NOT NULL,"
                                  " project_id TEXT NOT NULL, project_name TEXT NOT NULL, message TEXT NOT NULL,"
                                  " status INTEGER NOT NULL, created_at TEXT NOT NULL, updated_at TEXT NOT NULL)"));
    // Folders made before assignments, answers and deletions keep their
    // records; the columns are added once.
    const QStringList added = {QStringLiteral("kind TEXT NOT NULL DEFAULT 'share'"),
                               QStringLiteral("task_id TEXT NOT NULL DEFAULT ''"),
                               QStringLiteral("messages TEXT NOT NULL DEFAULT '[]'"),
                               QStringLiteral("deleted_by_sender INTEGER NOT NULL DEFAULT 0"),
                               QStringLiteral("deleted_by_receiver INTEGER NOT NULL DEFAULT 0")};
    QStringList present;
    QSqlQuery columns(db.Database());
    ok = ok && db.Exec(QStringLiteral("SELECT name FROM pragma_table_info('shares')"), {}, &columns);
    while (columns.next())
        present.append(columns.value(0).toString());
    columns.finish();
    for (const QString& column : added) {
        if (!present.contains(column.section(QLatin1Char(' '), 0, 0)))
            ok = ok && db.Exec(QStringLiteral("ALTER TABLE shares ADD COLUMN ") + column);
    }
    ok = ok && db.Exec(QStringLiteral("CREATE INDEX IF NOT EXISTS idx_shares_to ON shares(share_to_user_id)"))
         && db.Exec(QStringLiteral("CREATE INDEX IF NOT EXISTS idx_shares_from ON shares(share_from_user_id)"));
    if (!ok)
        *error = QStringLiteral("cannot open the share store: ") + db.LastError();
    return ok;
}

std::optional<QJsonArray> ShareStore::Add(const NewShares& shares)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open() || !db.Database().transaction())
        return std::nullopt;
    const QString now = Now();
    QJsonArray messages;
    if (!shares.message.isEmpty())
        messages.append(QJsonObject{{"user_id", shares.sender.id}, {"info", shares.message}, {"created_at", now}});
    const QString messagesText = QString::fromUtf8(QJsonDocument(messages).toJson(QJsonDocument::Compact));
    QList<qint64> ids;
    for (const ProjectStore::Project& project : shares.projects) {
        if (!db.Exec(QStringLiteral("INSERT INTO shares (share_from_user_id, share_from_phone, share_from_nickname,"
                                    " share_to_user_id, share_to_phone, share_to_nickname, project_id, project_name,"
                                    " message, status, created_at, updated_at, kind, task_id, messages)"
                                    " VALUES (?, ?, ?, ?, ?, ?, ?, ?, COALESCE(?, ''), ?, ?, ?, ?, COALESCE(?, ''), ?)"),
                     {shares.sender.id, shares.sender.phone, shares.sender.nickName, shares.receiver.id,
                      shares.receiver.phone, shares.receiver.nickName, project.id, project.name, shares.message,
                      Waiting, now, now, shares.kind, shares.taskId, messagesText})) {
            db.Database().rollback();
            return std::nullopt;
        }
        ids.append(db.SelectValue(QStringLiteral("SELECT last_insert_rowid()")).toLongLong());
    }
    QJsonArray records;
    for (qint64 id : qAsConst(ids)) {
        QSqlQuery row(db.Database());
        if (db.Exec(QStringLiteral("SELECT %1 FROM shares WHERE id = ?").arg(QLatin1String(Columns)), {id}, &row)
            && row.next())
            records.append(RecordOf(row));
    }
    if (records.size() != ids.size() || !db.Database().commit()) {
        db.Database().rollback();
        return std::nullopt;
    }
    return records;
}

std::optional<ShareStore::Record> ShareStore::Find(qint64 shareId, qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    QSqlQuery row(db.Database());
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT %1 FROM shares WHERE id = ? AND NOT"
                                   " ((share_from_user_id = ? AND deleted_by_sender)"
                                   " OR (share_to_user_id = ? AND deleted_by_receiver))")
                        .arg(QLatin1String(Columns)),
                    {shareId, accountId, accountId}, &row)
        || !row.next())
        return std::nullopt;
    return RecordOf(row);
}

QJsonArray ShareStore::Received(qint64 accountId)
{
    return Select(QStringLiteral("share_to_user_id = ? AND NOT deleted_by_receiver"), accountId);
}

QJsonArray ShareStore::Sent(qint64 accountId)
{
    return Select(QStringLiteral("share_from_user_id = ? AND NOT deleted_by_sender"), accountId);
}

QJsonArray ShareStore::Select(const QString& where, qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    QSqlQuery rows(db.Database());
    QJsonArray records;
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT %1 FROM shares WHERE %2 ORDER BY updated_at DESC, id DESC")
                        .arg(QLatin1String(Columns), where),
                    {accountId}, &rows))
        return records;
    while (rows.next())
        records.append(RecordOf(rows));
    return records;
}

bool ShareStore::SetStatus(qint64 shareId, int status)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    return db.Open()
           && db.Exec(QStringLiteral("UPDATE shares SET status = ?, updated_at = ? WHERE id = ?"),
                      {status, Now(), shareId});
}

std::optional<QJsonArray> ShareStore::AppendMessage(qint64 shareId, qint64 accountId, const QString& text)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open() || !db.Database().transaction())
        return std::nullopt;
    const QString now = Now();
    QJsonArray messages =
        MessagesOf(db.SelectValue(QStringLiteral("SELECT messages FROM shares WHERE id = ?"), {shareId}).toString());
    messages.append(QJsonObject{{"user_id", accountId}, {"info", text}, {"created_at", now}});
    if (!db.Exec(QStringLiteral("UPDATE shares SET messages = ?, updated_at = ? WHERE id = ?"),
                 {QString::fromUtf8(QJsonDocument(messages).toJson(QJsonDocument::Compact)), now, shareId})
        || !db.Database().commit()) {
        db.Database().rollback();
        return std::nullopt;
    }
    return messages;
}

bool ShareStore::Delete(const QList<Record>& records, qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open() || !db.Database().transaction())
        return false;
    const QString now = Now();
    bool ok = true;
    for (const Record& record : records) {
        const bool bySender = record.value(QStringLiteral("share_from_user_id")).toVariant().toLongLong() == accountId;
        const bool waiting = record.value(QStringLiteral("status")).toInt() == Waiting;
        const int status = !waiting ? record.value(QStringLiteral("status")).toInt() : bySender ? Cancelled : Rejected;
        const QString side = bySender ? QStringLiteral("deleted_by_sender") : QStringLiteral("deleted_by_receiver");
        ok = ok
             && db.Exec(QStringLiteral("UPDATE shares SET %1 = 1, status = ?, updated_at = ? WHERE id = ?").arg(side),
                        {status, now, record.value(QStringLiteral("id")).toVariant()});
    }
    if (!ok || !db.Database().commit()) {
        db.Database().rollback();
        return false;
    }
    return true;
}

ShareStore::Record ShareStore::RecordOf(const QSqlQuery& row)
{
    Record record;
    const QSqlRecord columns = row.record();
    for (int i = 0; i < columns.count(); ++i) {
        const QString name = columns.fieldName(i);
        if (name == QLatin1String("messages"))
            record.insert(name, MessagesOf(row.value(i).toString()));
        else
            record.insert(name, QJsonValue::fromVariant(row.value(i)));
    }
    return record;
}

QJsonArray ShareStore::MessagesOf(const QString& text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

QString ShareStore::Now()
{
    return QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat));
}

QString ShareStore::DatabasePath() const
{
    return m_dataDir + QStringLiteral("/shares.db");
}
