#pragma once

#include "Account.h"
#include "ProjectStore.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <mutex>
#include <optional>

// The project shares between accounts, in <data>/shares.db: one record per
// project and receiver with the sender (id, phone and nick name as they were
// then), the receiver likewise, the project's id and name, the sender's
// message, the state and the times. Calls are serialised by one mutex and
// open their own connection.
class ShareStore
{
public:
    // The state of a share that its receiver has not answered yet.
    static constexpr int Waiting = 0;

    struct NewShares
    {
        Account sender;
        Account receiver;
        QString message;
        QList<ProjectStore::Project> projects;
    };

    explicit ShareStore(const QString& dataDir);

    bool Open(QString* error);

    // Stores a waiting share of every project, all or none. Returns the
    // records in the order of the projects, or nothing when the database
    // failed.
    std::optional<QJsonArray> Add(const NewShares& shares);

private:
    QString DatabasePath() const;
    // A record as the store keeps it; its keys are the names of the columns.
    static QJsonObject Record(qint64 id, const NewShares& shares, const ProjectStore::Project& project,
                              const QString& time);

    QString m_dataDir;
    std::mutex m_mutex;
};
