#include "LmNoflyZoneSchema.h"

#include "CLmDataBase.h"

#include <QSqlQuery>

namespace {

struct SColumn
{
    const char* name;
    const char* type;
};

const SColumn kZoneColumns[] = {
    {"name", "varchar(128)"},         {"elevation", "double"},        {"level", "int"},
    {"enable", "int"},                {"created_at", "datetime"},     {"continent", "varchar(32)"},
    {"country", "varchar(64)"},       {"region", "varchar(64)"},      {"city", "varchar(64)"},
    {"scheduled_service", "varchar(16)"}, {"name_code", "varchar(16)"}, {"notes", "varchar(300)"},
    {"type", "int"},                  {"local_id", "varchar(50)"},    {"num_runway", "int"},
    {"revision_num", "int"},          {"effective_date", "datetime"}, {"updated_at", "datetime"},
    {"area", "text"},                 {"gps_code", "varchar(16)"},    {"open_time", "varchar(64)"},
    {"open_altitude", "double"},      {"version", "varchar(16)"},     {"user_id", "int"},
    {"csv_id", "int"},
};

const SColumn kLiftColumns[] = {
    {"id", "varchar(50) primary key"}, {"name", "varchar(64)"},       {"user_id", "int"},
    {"area", "varchar(400)"},          {"begin_at", "datetime"},      {"expired_at", "datetime"},
    {"status", "int"},                 {"Notes", "varchar(300)"},     {"local_ids", "varchar(400)"},
    {"explain", "varchar(300)"},
};

template <std::size_t N>
QStringList Names(const SColumn (&columns)[N])
{
    QStringList names;
    for (const SColumn& column : columns)
        names.append(QLatin1String(column.name));
    return names;
}

template <std::size_t N>
QString CreateTableSql(const char* table, const SColumn (&columns)[N])
{
    QStringList definitions;
    for (const SColumn& column : columns)
        definitions.append(QStringLiteral("\"%1\" %2").arg(QLatin1String(column.name), QLatin1String(column.type)));
    return QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (%2)").arg(QLatin1String(table), definitions.join(", "));
}

}  // namespace

namespace LmNoflyZoneSchema {

bool HasFields(CLmDataBase& db, const char* table, const QStringList& fields)
{
    QSqlQuery info(db.Database());
    if (!db.Exec(QStringLiteral("PRAGMA table_info(%1)").arg(QLatin1String(table)), {}, &info))
        return false;
    QStringList present;
    while (info.next())
        present.append(info.value(1).toString());
    for (const QString& field : fields) {
        if (!present.contains(field, Qt::CaseInsensitive))
            return false;
    }
    return true;
}

const QStringList& ZoneFields()
{
    static const QStringList fields = Names(kZoneColumns);
    return fields;
}

const QStringList& LiftFields()
{
    static const QStringList fields = Names(kLiftColumns);
    return fields;
}

bool CreateTables(CLmDataBase& db)
{
    return db.Exec(CreateTableSql(ZoneTable, kZoneColumns)) && db.Exec(CreateTableSql(LiftTable, kLiftColumns))
           && HasFields(db, ZoneTable, ZoneFields()) && HasFields(db, LiftTable, LiftFields())
           && db.Exec(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS %1_%2 ON %1(%2)")
                          .arg(QLatin1String(ZoneTable), QLatin1String(ZoneKey)));
}

QString UpsertSql(const char* table, const QStringList& fields, const char* key)
{
    QStringList quoted;
    QStringList marks;
    QStringList updates;
    for (const QString& field : fields) {
        quoted.append(QLatin1Char('"') + field + QLatin1Char('"'));
        marks.append(QStringLiteral("?"));
        if (field != QLatin1String(key))
            updates.append(QStringLiteral("\"%1\" = excluded.\"%1\"").arg(field));
    }
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) ON CONFLICT(\"%4\") DO UPDATE SET %5")
        .arg(QLatin1String(table), quoted.join(QLatin1Char(',')),
             marks.join(QLatin1Char(',')),
             QLatin1String(key), updates.join(QStringLiteral(", ")));
}

}  // namespace LmNoflyZoneSchema
