#pragma once

#include "Account.h"
#include "ProjectStore.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <mutex>
#include <optional>

class QSqlQuery;

// The project shares and flight-task assignments between accounts, in
// <data>/shares.db: one record per project (or task) and receiver with the
// sender (id, phone and nick name as they were then), the receiver likewise,
// the project's id and name, the assigned task's id, the messages of both
// sides, the state, the times and which side deleted it from its list. Calls
// are serialised by one mutex and open their own connection.
class ShareStore
{
public:
    // States of a record.
    static constexpr int Waiting = 0;
    static constexpr int Cancelled = 1;  // the sender withdrew it before an answer
    static constexpr int Accepted = 2;
    static constexpr int Rejected = 3;

    // Kinds of a record.
    static constexpr char KindShare[] = "share";
    static constexpr char KindTask[] = "task";

    struct NewShares
    {
        Account sender;
        Account receiver;
        QString message;
        QList<ProjectStore::Project> projects;
        QString kind = QLatin1String(KindShare);
        QString taskId;  // the assigned flight task, for a task
    };

    // A record as stored; its keys are the names of the columns, "messages"
    // an array of {"user_id", "info", "created_at"}.
    using Record = QJsonObject;

    explicit ShareStore(const QString& dataDir);

    bool Open(QString* error);

    // Stores a waiting share of every project, all or none. Returns the
    // records in the order of the projects, or nothing when the database
    // failed.
    std::optional<QJsonArray> Add(const NewShares& shares);

    // The record, unless it is unknown or the account deleted it from its list.
    std::optional<Record> Find(qint64 shareId, qint64 accountId);
    // The account's records not deleted from its list, newest first.
    QJsonArray Received(qint64 accountId);
    QJsonArray Sent(qint64 accountId);

    bool SetStatus(qint64 shareId, int status);
    // Appends a message of the account; returns the messages after it.
    std::optional<QJsonArray> AppendMessage(qint64 shareId, qint64 accountId, const QString& text);
    // Takes the records off the account's list: a waiting record the
    // receiver deletes is rejected, one the sender deletes is cancelled.
    bool Delete(const QList<Record>& records, qint64 accountId);

private:
    QString DatabasePath() const;
    QJsonArray Select(const QString& where, qint64 accountId);
    static Record RecordOf(const QSqlQuery& row);
    static QJsonArray MessagesOf(const QString& text);
    static QString Now();

    QString m_dataDir;
    std::mutex m_mutex;
};
