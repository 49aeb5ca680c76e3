#pragma once

#include <QString>
#include <QStringList>

class CLmDataBase;

// The tables of the no-fly-zone database, shared by the hub, which keeps
// the database current, and the cloud emulator, which serves it.
namespace LmNoflyZoneSchema {

inline constexpr char ZoneTable[] = "no_fly_zone";
inline constexpr char LiftTable[] = "lift_no_fly_zone";
// The key a zone record is stored under, and a lift record's.
inline constexpr char ZoneKey[] = "local_id";
inline constexpr char LiftKey[] = "id";

// The zone fields as the cloud sends them, in column order.
const QStringList& ZoneFields();
const QStringList& LiftFields();

// Creates the missing tables and the unique index on the zone key; false
// when a table lacks a field or two zones share a key.
bool CreateTables(CLmDataBase& db);

// The table has a column for each field.
bool HasFields(CLmDataBase& db, const char* table, const QStringList& fields);

// INSERT that replaces the row with the same key, the fields bound in order.
QString UpsertSql(const char* table, const QStringList& fields, const char* key);

}  // namespace LmNoflyZoneSchema
