#include "ShareStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QDir>
#include <QJsonObject>

ShareStore::ShareStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool ShareStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(m_dataDir);
    CLmDataBase db(DatabasePath());
    const bool ok =
        db.Open()
        && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS shares ("
                                  " id INTEGER PRIMARY KEY AUTOINCREMENT,"
                                  " share_from_user_id INTEGER NOT NULL, share_from_phone TEXT NOT NULL,"
                                  " share_from_nickname TEXT NOT NULL, share_to_user_id INTEGER NOT NULL,"
                                  " share_to_phone TEXT NOT NULL, share_to_nickname TEXT NOT NULL,"
                                  " project_id TEXT NOT NULL, project_name TEXT NOT NULL, message TEXT NOT NULL,"
                                  " status INTEGER NOT NULL, created_at TEXT NOT NULL, updated_at TEXT NOT NULL)"))
        && db.Exec(QStringLiteral("CREATE INDEX IF NOT EXISTS idx_shares_to ON shares(share_to_user_id)"))
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
    const QString now = QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat));
    QJsonArray records;
    for (const ProjectStore::Project& project : shares.projects) {
        if (!db.Exec(QStringLiteral("INSERT INTO shares (share_from_user_id, share_from_phone, share_from_nickname,"
                                    " share_to_user_id, share_to_phone, share_to_nickname, project_id, project_name,"
                                    " message, status, created_at, updated_at)"
                                    " VALUES (?, ?, ?, ?, ?, ?, ?, ?, COALESCE(?, ''), ?, ?, ?)"),
                     {shares.sender.id, shares.sender.phone, shares.sender.nickName, shares.receiver.id,
                      shares.receiver.phone, shares.receiver.nickName, project.id, project.name, shares.message,
                      Waiting, now, now})) {
            db.Database().rollback();
            return std::nullopt;
        }
        const qint64 id = db.SelectValue(QStringLiteral("SELECT last_insert_rowid()")).toLongLong();
        records.append(Record(id, shares, project, now));
    }
    if (!db.Database().commit()) {
        db.Database().rollback();
        return std::nullopt;
    }
    return records;
}

QJsonObject ShareStore::Record(qint64 id, const NewShares& shares, const ProjectStore::Project& project,
                               const QString& time)
{
    return QJsonObject{{"id", id},
                       {"share_from_user_id", shares.sender.id},
                       {"share_from_phone", shares.sender.phone},
                       {"share_from_nickname", shares.sender.nickName},
                       {"share_to_user_id", shares.receiver.id},
                       {"share_to_phone", shares.receiver.phone},
                       {"share_to_nickname", shares.receiver.nickName},
                       {"project_id", project.id},
                       {"project_name", project.name},
                       {"message", shares.message},
                       {"status", Waiting},
                       {"created_at", time},
                       {"updated_at", time}};
}

QString ShareStore::DatabasePath() const
{
    return m_dataDir + QStringLiteral("/shares.db");
}
