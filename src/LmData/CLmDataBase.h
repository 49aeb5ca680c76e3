#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <chrono>

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
    // Opens a file that came from elsewhere (the cloud, a device, a disk, a
    // colleague) for reading only: query_only, trusted_schema off, and every
    // statement run on the connection afterwards is stopped once it has run
    // for statementBudgetMs. Refused, with LastError() telling why, when any
    // of expectedTables that the file has is not a plain table or when the
    // file carries a trigger.
    bool OpenForeign(const QStringList& expectedTables, int statementBudgetMs = DefaultStatementBudgetMs);
    // The same checks and time bound for a foreign file the hub writes into
    // (created when missing), without query_only.
    bool OpenForeignForWriting(const QStringList& expectedTables, int statementBudgetMs = DefaultStatementBudgetMs);
    // Attaches a second foreign file under schemaName with the same checks.
    bool AttachForeign(const QString& filePath, const QString& schemaName, const QStringList& expectedTables);
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

    static constexpr int DefaultStatementBudgetMs = 5000;

private:
    bool OpenChecked(bool readOnly, const QStringList& expectedTables, int statementBudgetMs);
    bool LockDown(bool readOnly, int statementBudgetMs);
    bool CheckSchema(const QString& schemaName, const QStringList& expectedTables);
    void RestartStatementClock();
    static int StatementOverBudget(void* self);
    static int StatementStarted(unsigned event, void* self, void* statement, void* sql);

    QString m_strFilePath;
    QString m_strConnection;
    QSqlDatabase m_db;
    QString m_strLastError;
    std::chrono::milliseconds m_statementBudget{0};
    std::chrono::steady_clock::time_point m_statementStart;
};
