#include "CLmDataBase.h"

#include "LmDataLog.h"

#include <QAtomicInteger>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlDriver>
#include <QThread>

#include <sqlite3.h>

namespace {

// The progress handler looks at the clock every this many virtual machine
// steps: often enough to stop within milliseconds, rare enough to cost nothing.
constexpr int ProgressSteps = 1000;

sqlite3* SqliteHandle(const QSqlDatabase& db)
{
    const QVariant handle = db.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}

QString UniqueConnectionName()
{
    static QAtomicInteger<quint64> counter;
    return QStringLiteral("LmData_%1_%2")
        .arg(reinterpret_cast<quintptr>(QThread::currentThreadId()))
        .arg(counter.fetchAndAddRelaxed(1));
}

}  // namespace

CLmDataBase::CLmDataBase(const QString& filePath)
    : m_strFilePath(filePath)
{
}

CLmDataBase::~CLmDataBase()
{
    Close();
}

bool CLmDataBase::Open(bool readOnly)
{
    Close();
    if (readOnly && !QFileInfo::exists(m_strFilePath)) {
        m_strLastError = QStringLiteral("no such file: ") + m_strFilePath;
        return false;
    }
    m_strConnection = UniqueConnectionName();
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_strConnection);
    m_db.setDatabaseName(m_strFilePath);
    if (readOnly)
        m_db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (!m_db.open()) {
        m_strLastError = m_db.lastError().text();
        qCWarning(lcDataBase) << "cannot open" << m_strFilePath << m_strLastError;
        Close();
        return false;
    }
    return true;
}

bool CLmDataBase::OpenForeign(const QStringList& expectedTables, int statementBudgetMs)
{
    return OpenChecked(true, expectedTables, statementBudgetMs);
}

bool CLmDataBase::OpenForeignForWriting(const QStringList& expectedTables, int statementBudgetMs)
{
    return OpenChecked(false, expectedTables, statementBudgetMs);
}

bool CLmDataBase::OpenChecked(bool readOnly, const QStringList& expectedTables, int statementBudgetMs)
{
    if (!Open(readOnly))
        return false;
    if (LockDown(readOnly, statementBudgetMs) && CheckSchema(QStringLiteral("main"), expectedTables))
        return true;
    qCWarning(lcDataBase) << "refused" << m_strFilePath << m_strLastError;
    Close();
    return false;
}

bool CLmDataBase::AttachForeign(const QString& filePath, const QString& schemaName, const QStringList& expectedTables)
{
    if (!Exec(QStringLiteral("ATTACH DATABASE ? AS %1").arg(schemaName), {filePath}))
        return false;
    if (CheckSchema(schemaName, expectedTables))
        return true;
    qCWarning(lcDataBase) << "refused" << filePath << m_strLastError;
    Exec(QStringLiteral("DETACH DATABASE %1").arg(schemaName));
    return false;
}

bool CLmDataBase::LockDown(bool readOnly, int statementBudgetMs)
{
    sqlite3* handle = SqliteHandle(m_db);
    if (!handle) {
        m_strLastError = QStringLiteral("not an SQLite connection");
        return false;
    }
    m_statementBudget = std::chrono::milliseconds(statementBudgetMs);
    RestartStatementClock();
    sqlite3_progress_handler(handle, ProgressSteps, &CLmDataBase::StatementOverBudget, this);
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, &CLmDataBase::StatementStarted, this);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    return (!readOnly || Exec(QStringLiteral("PRAGMA query_only = ON")))
        && Exec(QStringLiteral("PRAGMA trusted_schema = OFF")) && Exec(QStringLiteral("PRAGMA cell_size_check = ON"));
}

bool CLmDataBase::CheckSchema(const QString& schemaName, const QStringList& expectedTables)
{
    QSqlQuery entries(m_db);
    if (!Exec(QStringLiteral("SELECT type, name, sql FROM %1.sqlite_master").arg(schemaName), {}, &entries))
        return false;
    while (entries.next()) {
        const QString type = entries.value(0).toString();
        const QString name = entries.value(1).toString();
        if (type == QLatin1String("trigger")) {
            m_strLastError = QStringLiteral("the file carries trigger ") + name;
            return false;
        }
        if (!expectedTables.contains(name, Qt::CaseInsensitive))
            continue;
        const bool virtualTable = entries.value(2).toString().simplified().startsWith(
            QLatin1String("CREATE VIRTUAL"), Qt::CaseInsensitive);
        if (type != QLatin1String("table") || virtualTable) {
            m_strLastError = name + QStringLiteral(" is not a plain table");
            return false;
        }
    }
    if (entries.lastError().type() != QSqlError::NoError) {
        m_strLastError = entries.lastError().text();
        return false;
    }
    return true;
}

void CLmDataBase::RestartStatementClock()
{
    m_statementStart = std::chrono::steady_clock::now();
}

int CLmDataBase::StatementOverBudget(void* self)
{
    const auto* db = static_cast<const CLmDataBase*>(self);
    return std::chrono::steady_clock::now() - db->m_statementStart > db->m_statementBudget ? 1 : 0;
}

int CLmDataBase::StatementStarted(unsigned, void* self, void*, void*)
{
    static_cast<CLmDataBase*>(self)->RestartStatementClock();
    return 0;
}

void CLmDataBase::Close()
{
    if (m_strConnection.isEmpty())
        return;
    m_db.close();
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_strConnection);
    m_strConnection.clear();
}

bool CLmDataBase::IsOpen() const
{
    return !m_strConnection.isEmpty() && m_db.isOpen();
}

bool CLmDataBase::Exec(const QString& sql, const QVariantList& values, QSqlQuery* result)
{
    if (!IsOpen()) {
        m_strLastError = QStringLiteral("database not open");
        return false;
    }
    RestartStatementClock();
    QSqlQuery query(m_db);
    // Results are read once, front to back; nothing needs Qt's row cache.
    query.setForwardOnly(true);
    if (!query.prepare(sql)) {
        m_strLastError = query.lastError().text();
        qCWarning(lcDataBase) << "prepare failed:" << m_strLastError;
        return false;
    }
    for (const QVariant& value : values)
        query.addBindValue(value);
    if (!query.exec()) {
        m_strLastError = query.lastError().text();
        qCWarning(lcDataBase) << "statement failed:" << m_strLastError;
        return false;
    }
    if (result)
        *result = std::move(query);
    return true;
}

QVariant CLmDataBase::SelectValue(const QString& sql, const QVariantList& values)
{
    QSqlQuery query(m_db);
    if (!Exec(sql, values, &query) || !query.next())
        return {};
    return query.value(0);
}

bool CLmDataBase::TableExists(const QString& table) const
{
    return IsOpen() && m_db.tables().contains(table, Qt::CaseInsensitive);
}

QSqlDatabase& CLmDataBase::Database()
{
    return m_db;
}

QString CLmDataBase::LastError() const
{
    return m_strLastError;
}

bool CLmDataBase::IsSqliteFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    static const QByteArray header("SQLite format 3\0", 16);
    if (file.read(header.size()) != header)
        return false;
    file.close();
    CLmDataBase db(filePath);
    // quick_check reads every page, so a file cut short is refused; the file
    // may come from anywhere, so it is opened as a foreign one.
    return db.OpenForeign({}) && db.SelectValue(QStringLiteral("PRAGMA quick_check")).toString() == QLatin1String("ok");
}
