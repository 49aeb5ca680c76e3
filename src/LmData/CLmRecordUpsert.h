#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <rapidjson/fwd.h>

#include <vector>

class QSqlDatabase;
struct sqlite3;
struct sqlite3_stmt;

// Writes JSON records into one table, replacing the row with the same key,
// through a statement of the C library prepared once, its values bound
// straight from the parsed reply: batches of many thousand records would
// spend more in QtSql's bound values and in copying every text than in
// SQLite itself. Runs inside the caller's transaction.
class CLmRecordUpsert
{
public:
    // required: the key first, then the other fields that may not be empty.
    CLmRecordUpsert(QSqlDatabase& db, const char* table, const QStringList& fields, const QStringList& required);
    ~CLmRecordUpsert();
    CLmRecordUpsert(const CLmRecordUpsert&) = delete;
    CLmRecordUpsert& operator=(const CLmRecordUpsert&) = delete;

    // Writes every record of the array that has all fields; false at the
    // first record SQLite refused. The texts of the records are bound
    // without a copy, so the document must outlive the call.
    bool Write(const rapidjson::Value& records, int* applied, int* skipped);
    QString Error() const;

    // The SQLite connection under a QtSql one, or null.
    static sqlite3* Handle(QSqlDatabase& db);

private:
    // Binds the fields of a record; false when it lacks one.
    bool Bind(const rapidjson::Value& record);
    bool BindField(int column, const rapidjson::Value& value);
    // A key or time sent as a number is the same value as its text.
    bool BindRequired(int column, const rapidjson::Value& value);
    // The column of the record's member at position, -1 for a name that is
    // no field.
    int ColumnOf(const rapidjson::Value& name, int position);
    bool IsField(int column, const rapidjson::Value& name) const;
    bool Step();

    struct SField
    {
        QByteArray name;
        bool bRequired;
    };

    std::vector<SField> m_vecFields;
    // The columns bound for the record at hand.
    std::vector<bool> m_vecBound;
    // The column found at each member position of the last record, tried
    // first: the cloud sends every record with its fields in one order.
    std::vector<int> m_vecColumnAt;
    sqlite3_stmt* m_pStatement = nullptr;
};
