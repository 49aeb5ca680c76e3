#pragma once

#include <QJsonObject>
#include <QString>

#include <mutex>

// The fault reports of every account, one JSON object a line in
// <data>/bugreports.jsonl: id, account_id, version, system, level, type,
// data, log_url and received_at (UTC, ISO 8601).
class FaultReportStore
{
public:
    explicit FaultReportStore(const QString& dataDir);

    // Appends the report; returns its id, 0 when it could not be written.
    qint64 Add(qint64 accountId, QJsonObject report);

private:
    QString m_strPath;
    std::mutex m_mutex;
    qint64 m_nLastId = -1;
};
