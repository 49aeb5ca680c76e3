#include "CLmRecordUpsert.h"

#include "LmNoflyZoneSchema.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

namespace {

bool BindText(sqlite3_stmt* statement, int column, const QByteArray& text)
{
    return sqlite3_bind_text(statement, column + 1, text.constData(), text.size(), SQLITE_TRANSIENT) == SQLITE_OK;
}

// The text stays in the parsed document, which outlives the statement's step.
bool BindString(sqlite3_stmt* statement, int column, const rapidjson::Value& value)
{
    return sqlite3_bind_text(statement, column + 1, value.GetString(), int(value.GetStringLength()), SQLITE_STATIC)
           == SQLITE_OK;
}

// A nested object or array is kept as its compact JSON text.
QByteArray CompactJson(const rapidjson::Value& value)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return QByteArray(buffer.GetString(), int(buffer.GetSize()));
}

QByteArray NumberText(const rapidjson::Value& value)
{
    return value.IsInt64() ? QByteArray::number(qint64(value.GetInt64())) : QByteArray::number(value.GetDouble(), 'g', 17);
}

}  // namespace

CLmRecordUpsert::CLmRecordUpsert(QSqlDatabase& db, const char* table, const QStringList& fields,
                                 const QStringList& required)
    : m_vecBound(fields.size())
    , m_vecColumnAt(fields.size(), -1)
{
    for (const QString& field : fields)
        m_vecFields.push_back({field.toUtf8(), required.contains(field)});
    const QByteArray sql =
        LmNoflyZoneSchema::UpsertSql(table, fields, required.first().toLatin1().constData()).toUtf8();
    if (sqlite3* connection = Handle(db))
        sqlite3_prepare_v3(connection, sql.constData(), -1, SQLITE_PREPARE_PERSISTENT, &m_pStatement, nullptr);
}

CLmRecordUpsert::~CLmRecordUpsert()
{
    sqlite3_finalize(m_pStatement);
}

bool CLmRecordUpsert::Write(const rapidjson::Value& records, int* applied, int* skipped)
{
    if (!m_pStatement || !records.IsArray())
        return false;
    for (const rapidjson::Value& record : records.GetArray()) {
        if (!Bind(record)) {
            ++*skipped;
            continue;
        }
        if (!Step())
            return false;
        ++*applied;
    }
    return true;
}

bool CLmRecordUpsert::Bind(const rapidjson::Value& record)
{
    if (!record.IsObject())
        return false;
    std::fill(m_vecBound.begin(), m_vecBound.end(), false);
    std::size_t bound = 0;
    int position = 0;
    for (const auto& member : record.GetObject()) {
        const int column = ColumnOf(member.name, position++);
        if (column < 0)
            continue;
        if (!BindField(column, member.value))
            return false;
        bound += m_vecBound[column] ? 0 : 1;
        m_vecBound[column] = true;
    }
    return bound == m_vecFields.size();
}

bool CLmRecordUpsert::BindField(int column, const rapidjson::Value& value)
{
    if (m_vecFields[column].bRequired)
        return BindRequired(column, value);
    int result = SQLITE_OK;
    switch (value.GetType()) {
    case rapidjson::kNullType:
        result = sqlite3_bind_null(m_pStatement, column + 1);
        break;
    case rapidjson::kFalseType:
    case rapidjson::kTrueType:
        result = sqlite3_bind_int(m_pStatement, column + 1, value.GetBool() ? 1 : 0);
        break;
    case rapidjson::kNumberType:
        result = value.IsInt64() ? sqlite3_bind_int64(m_pStatement, column + 1, value.GetInt64())
                                 : sqlite3_bind_double(m_pStatement, column + 1, value.GetDouble());
        break;
    case rapidjson::kStringType:
        return BindString(m_pStatement, column, value);
    case rapidjson::kObjectType:
    case rapidjson::kArrayType:
        return BindText(m_pStatement, column, CompactJson(value));
    }
    return result == SQLITE_OK;
}

bool CLmRecordUpsert::BindRequired(int column, const rapidjson::Value& value)
{
    if (value.IsNumber())
        return BindText(m_pStatement, column, NumberText(value));
    return value.IsString() && value.GetStringLength() > 0 && BindString(m_pStatement, column, value);
}

int CLmRecordUpsert::ColumnOf(const rapidjson::Value& name, int position)
{
    const bool remembered = std::size_t(position) < m_vecColumnAt.size();
    if (remembered && m_vecColumnAt[position] >= 0 && IsField(m_vecColumnAt[position], name))
        return m_vecColumnAt[position];
    for (std::size_t column = 0; column < m_vecFields.size(); ++column) {
        if (IsField(int(column), name)) {
            if (remembered)
                m_vecColumnAt[position] = int(column);
            return int(column);
        }
    }
    return -1;
}

bool CLmRecordUpsert::IsField(int column, const rapidjson::Value& name) const
{
    const QByteArray& field = m_vecFields[column].name;
    return std::size_t(field.size()) == name.GetStringLength()
           && std::memcmp(field.constData(), name.GetString(), name.GetStringLength()) == 0;
}

bool CLmRecordUpsert::Step()
{
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
