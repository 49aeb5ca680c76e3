#include "CLmRecordUpsert.h"

#include "LmNoflyZoneSchema.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlDriver>

#include <sqlite3.h>

namespace {

// Records are read out of the JSON a batch at a time, to bound the memory.
constexpr int kBatchRecords = 4096;

CLmRecordUpsert::SValue Text(const QString& text)
{
    return {CLmRecordUpsert::SValue::Text, 0, text.toUtf8()};
}

CLmRecordUpsert::SValue ValueOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return {CLmRecordUpsert::SValue::Number, value.toDouble(), {}};
    case QJsonValue::Bool:
        return {CLmRecordUpsert::SValue::Number, value.toBool() ? 1.0 : 0.0, {}};
    case QJsonValue::String:
        return Text(value.toString());
    case QJsonValue::Array:
    case QJsonValue::Object:
        return {CLmRecordUpsert::SValue::Text, 0,
                QJsonDocument::fromVariant(value.toVariant()).toJson(QJsonDocument::Compact)};
    default:
        return {};
    }
}

// A number sent for a key or time is the same value as its text.
CLmRecordUpsert::SValue RequiredTextOf(const QJsonValue& value)
{
    return Text(value.isDouble() ? QString::number(value.toDouble(), 'g', 17) : value.toString());
}

}  // namespace

CLmRecordUpsert::CLmRecordUpsert(QSqlDatabase& db, const char* table, const QStringList& fields,
                                 const QStringList& required)
    : m_lstFields(fields)
{
    for (const QString& field : fields)
        m_vecRequired.append(required.contains(field));
    const QByteArray sql =
        LmNoflyZoneSchema::UpsertSql(table, fields, required.first().toLatin1().constData()).toUtf8();
    if (sqlite3* connection = Handle(db))
        sqlite3_prepare_v3(connection, sql.constData(), -1, SQLITE_PREPARE_PERSISTENT, &m_pStatement, nullptr);
}

CLmRecordUpsert::~CLmRecordUpsert()
{
    sqlite3_finalize(m_pStatement);
}

bool CLmRecordUpsert::Write(const QJsonArray& records, int* applied, int* skipped)
{
    if (!m_pStatement)
        return false;
    for (int begin = 0; begin < records.size(); begin += kBatchRecords) {
        const QVector<Record> batch = ReadBatch(records, begin);
        for (const Record& record : batch) {
            if (record.isEmpty()) {
                ++*skipped;
                continue;
            }
            if (!Step(record))
                return false;
            ++*applied;
        }
    }
    return true;
}

QVector<CLmRecordUpsert::Record> CLmRecordUpsert::ReadBatch(const QJsonArray& records, int begin) const
{
    QVector<Record> batch;
    const int end = qMin(records.size(), begin + kBatchRecords);
    batch.reserve(end - begin);
    for (int index = begin; index < end; ++index) {
        const QJsonObject object = records.at(index).toObject();
        Record record(m_lstFields.size());
        for (int column = 0; column < m_lstFields.size(); ++column) {
            const QJsonValue value = object.value(m_lstFields.at(column));
            record[column] = m_vecRequired.at(column) ? RequiredTextOf(value) : ValueOf(value);
            const bool missing = value.isUndefined() || (m_vecRequired.at(column) && record.at(column).text.isEmpty());
            if (missing) {
                record.clear();
                break;
            }
        }
        batch.append(record);
    }
    return batch;
}

bool CLmRecordUpsert::Step(const Record& record)
{
    for (int column = 0; column < record.size(); ++column) {
        const SValue& value = record.at(column);
        if (value.eKind == SValue::Number)
            sqlite3_bind_double(m_pStatement, column + 1, value.dNumber);
        else if (value.eKind == SValue::Text)
            sqlite3_bind_text(m_pStatement, column + 1, value.text.constData(), value.text.size(), SQLITE_STATIC);
        else
            sqlite3_bind_null(m_pStatement, column + 1);
    }
    const bool done = sqlite3_step(m_pStatement) == SQLITE_DONE;
    sqlite3_reset(m_pStatement);
    return done;
}

QString CLmRecordUpsert::Error() const
{
    return m_pStatement ? QString::fromUtf8(sqlite3_errmsg(sqlite3_db_handle(m_pStatement)))
                        : QStringLiteral("statement not prepared");
}

sqlite3* CLmRecordUpsert::Handle(QSqlDatabase& db)
{
    const QVariant handle = db.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}
