#include "CLmDataBase.h"

#include "CLmQueryDeadline.h"
#include "LmDataLog.h"

#include <QAtomicInteger>
#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

#include <sqlite3.h>

namespace {

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

bool CLmDataBase::OpenForeign(const QStringList& plainTables, EForeignAccess access, int queryBudgetMs)
{
    if (!Open(access == EForeignAccess::ReadOnly))
        return false;
    if (!HardenForeign(access, queryBudgetMs) || !HasOnlyPlainTables(QStringLiteral("main"), plainTables)) {
        qCWarning(lcDataBase) << "refused" << m_strFilePath << m_strLastError;
        Close();
        return false;
    }
    return true;
}

bool CLmDataBase::AttachForeign(const QString& filePath, const QString& schemaName, const QStringList& plainTables)
{
    if (!m_pDeadline)
        return Refuse(QStringLiteral("not a connection to a file from outside"));
    if (!Exec(QStringLiteral("ATTACH DATABASE ? AS %1").arg(schemaName), {filePath}))
        return false;
    if (HasOnlyPlainTables(schemaName, plainTables))
        return true;
    qCWarning(lcDataBase) << "refused" << filePath << m_strLastError;
    const QString reason = m_strLastError;
    Exec(QStringLiteral("DETACH DATABASE %1").arg(schemaName));
    return Refuse(reason);
}

bool CLmDataBase::HardenForeign(EForeignAccess access, int queryBudgetMs)
{
    const QVariant handle = m_db.driver()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3*") != 0 || !*static_cast<sqlite3* const*>(handle.constData()))
        return Refuse(QStringLiteral("not an SQLite connection"));
    sqlite3* connection = *static_cast<sqlite3* const*>(handle.constData());
    m_pDeadline = std::make_unique<CLmQueryDeadline>(connection, queryBudgetMs);
    // Defensive mode keeps even a writable copy from corrupting itself
    // through writes to the schema or journal settings.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    return Exec(QStringLiteral("PRAGMA trusted_schema = OFF"))
           && (access == EForeignAccess::PrivateCopy || Exec(QStringLiteral("PRAGMA query_only = ON")));
}

bool CLmDataBase::HasOnlyPlainTables(const QString& schemaName, const QStringList& tables)
{
    const QVariant triggers =
        SelectValue(QStringLiteral("SELECT count(*) FROM %1.sqlite_master WHERE type = 'trigger'").arg(schemaName));
    if (!triggers.isValid())
        return false;
    if (triggers.toLongLong() != 0)
        return Refuse(QStringLiteral("the file carries triggers"));
    for (const QString& table : tables) {
        const QString sql = SelectValue(QStringLiteral("SELECT sql FROM %1.sqlite_master WHERE type = 'table'"
                                                       " AND name = ? COLLATE NOCASE")
                                            .arg(schemaName),
                                        {table})
                                .toString();
        if (sql.isEmpty() || sql.startsWith(QLatin1String("CREATE VIRTUAL"), Qt::CaseInsensitive))
            return Refuse(QStringLiteral("%1 is not a plain table").arg(table));
    }
    return true;
}

bool CLmDataBase::Refuse(const QString& reason)
{
    m_strLastError = reason;
    return false;
}

void CLmDataBase::Close()
{
    m_pDeadline.reset();
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
    if (m_pDeadline)
        m_pDeadline->Arm();
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
        m_strLastError = m_pDeadline && m_pDeadline->Expired() ? QStringLiteral("the query took too long")
                                                                : query.lastError().text();
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
    // may come from anywhere, so it is opened as one from outside.
    return db.OpenForeign({}) && db.SelectValue(QStringLiteral("PRAGMA quick_check")).toString() == QLatin1String("ok");
}
