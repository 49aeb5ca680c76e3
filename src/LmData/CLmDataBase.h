#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <memory>

class CLmQueryDeadline;
class QSqlQuery;

// One SQLite database file opened through QtSql. Every object owns its own
// uniquely named connection, so objects may live in any thread; an object is
// used only in the thread that opened it.
class CLmDataBase
{
public:
    // How a file that came from outside (the network, a device, a disk) is
    // opened: only read, or written as a private copy the caller owns.
    enum class EForeignAccess { ReadOnly, PrivateCopy };

    static constexpr int DefaultForeignQueryBudgetMs = 3000;

    explicit CLmDataBase(const QString& filePath);
    ~CLmDataBase();
    CLmDataBase(const CLmDataBase&) = delete;
    CLmDataBase& operator=(const CLmDataBase&) = delete;

    // Opens the file; read-only never creates a missing file.
    bool Open(bool readOnly = false);
    // Opens a file from outside: trusted_schema off (and query_only unless
    // it is a private copy), refused when one of the tables is missing or
    // is not a plain table, or when the file carries triggers; every
    // statement and the reading of its rows is bounded in time afterwards.
    bool OpenForeign(const QStringList& plainTables, EForeignAccess access = EForeignAccess::ReadOnly,
                     int queryBudgetMs = DefaultForeignQueryBudgetMs);
    // Attaches a second file from outside to a connection opened with
    // OpenForeign, under schemaName, with the same checks of its tables.
    bool AttachForeign(const QString& filePath, const QString& schemaName, const QStringList& plainTables);
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
    bool HardenForeign(EForeignAccess access, int queryBudgetMs);
    bool HasOnlyPlainTables(const QString& schemaName, const QStringList& tables);
    bool Refuse(const QString& reason);

    QString m_strFilePath;
    QString m_strConnection;
    QSqlDatabase m_db;
    QString m_strLastError;
    std::unique_ptr<CLmQueryDeadline> m_pDeadline;
};
