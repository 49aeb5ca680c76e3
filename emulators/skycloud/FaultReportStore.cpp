#include "FaultReportStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>

FaultReportStore::FaultReportStore(const QString& dataDir)
    : m_strPath(QDir(dataDir).filePath(QStringLiteral("bugreports.jsonl")))
{
}

qint64 FaultReportStore::Add(qint64 accountId, QJsonObject report)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QFile file(m_strPath);
    if (m_nLastId < 0) {
        m_nLastId = 0;
        if (file.open(QIODevice::ReadOnly)) {
            while (!file.atEnd())
                m_nLastId += file.readLine().trimmed().isEmpty() ? 0 : 1;
            file.close();
        }
    }
    report.insert(QStringLiteral("id"), m_nLastId + 1);
    report.insert(QStringLiteral("account_id"), accountId);
    report.insert(QStringLiteral("received_at"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    if (!file.open(QIODevice::Append) || file.write(QJsonDocument(report).toJson(QJsonDocument::Compact) + '\n') < 0)
        return 0;
    return ++m_nLastId;
}
