#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QVariantList>

class QSqlQuery;

// One SQLite database file opened through QtSql. Every object owns its own
// uniquely named connection, so objects may live in any thread; an object is
// used only in the thread that opened it.
class CLmDataBase
{
public:
    explicit CLmDataBase(const QString& filePath);
    ~CLmDataBase();
    CLmDataBase(const CLmDataBase&) = delete;
    CLmDataBase& operator=(const CLmDataBase&) = delete;

    // Opens the file; read-only never creates a missing file.
    bool Open(bool readOnly = false);
    void Close();
    bool IsOpen() const;

    // Runs one statement with its values bound in order; the query, when
    // given, receives the result for reading.
    bool Exec(const QString& sql, const QVariantList& values = {}, QSqlQuery* result = nullptr);
    // First column of the first row, or an invalid QVariant.
    QVariant SelectValue(const QString& sql, const QVariantList& values = {});
    bool TableExists(const QString& table) const;

    QSqlDatabase& Database();
    QString LastError() const;

    // True when the file starts with the SQLite header and opens as a database.
    static bool IsSqliteFile(const QString& filePath);

private:
    QString m_strFilePath;
    QString m_strConnection;
    QSqlDatabase m_db;
    QString m_strLastError;
};
