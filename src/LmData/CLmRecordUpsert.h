#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QVector>

class QSqlDatabase;
struct sqlite3;
struct sqlite3_stmt;

// Writes JSON records into one table, replacing the row with the same key,
// through a prepared statement of the C library: batches of many thousand
// records would spend more in QtSql's bound values than in SQLite itself.
// Runs inside the caller's transaction.
class CLmRecordUpsert
{
public:
    // required: the key first, then the other fields that may not be empty.
    CLmRecordUpsert(QSqlDatabase& db, const char* table, const QStringList& fields, const QStringList& required);
    ~CLmRecordUpsert();
    CLmRecordUpsert(const CLmRecordUpsert&) = delete;
    CLmRecordUpsert& operator=(const CLmRecordUpsert&) = delete;

    // Writes every record that has all fields; false at the first record
    // SQLite refused.
    bool Write(const QJsonArray& records, int* applied, int* skipped);
    QString Error() const;

    // The SQLite connection under a QtSql one, or null.
    static sqlite3* Handle(QSqlDatabase& db);

    // One field of a record as the C library takes it.
    struct SValue
    {
        enum EKind { Null, Number, Text } eKind = Null;
        double dNumber = 0;
        QByteArray text;
    };
    // A record's values in field order; empty when the record lacks a field.
    using Record = QVector<SValue>;

private:
    QVector<Record> ReadBatch(const QJsonArray& records, int begin) const;
    bool Step(const Record& record);

    QStringList m_lstFields;
    QVector<bool> m_vecRequired;
    sqlite3_stmt* m_pStatement = nullptr;
};
