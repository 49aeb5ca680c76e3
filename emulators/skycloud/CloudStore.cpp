#include "CloudStore.h"

#include "SecretHasher.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>

#include <sqlite3.h>

namespace {

constexpr qint64 kCodeLifetimeSeconds = 600;
constexpr int kMaxWrongGuesses = 5;

const char* const kAccountColumns =
    "a.id, a.phone, a.nick_name, a.email, a.company, a.type, a.permission, a.avatar, a.created_at";

QString Now()
{
    return QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

const char* PurposeName(CloudStore::CodePurpose purpose)
{
    return purpose == CloudStore::CodePurpose::ResetPassword ? "reset" : "validate";
}

QString GuessKey(const QString& phone, CloudStore::CodePurpose purpose)
{
    return QLatin1String(PurposeName(purpose)) + QLatin1Char(' ') + phone;
}

// A prepared statement that finalises itself; binds are 1-based.
class Statement
{
public:
    Statement(sqlite3* db, const char* sql) { sqlite3_prepare_v2(db, sql, -1, &m_stmt, nullptr); }
    ~Statement() { sqlite3_finalize(m_stmt); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(int index, const QString& value)
    {
        const QByteArray utf8 = value.toUtf8();
        sqlite3_bind_text(m_stmt, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& Bind(int index, const QByteArray& value)
    {
        sqlite3_bind_text(m_stmt, index, value.constData(), value.size(), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& Bind(int index, qint64 value)
    {
        sqlite3_bind_int64(m_stmt, index, value);
        return *this;
    }

    bool Step() { return sqlite3_step(m_stmt) == SQLITE_ROW; }
    bool Run() { return sqlite3_step(m_stmt) == SQLITE_DONE; }

    QString Text(int column) const
    {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(m_stmt, column));
    }
    QByteArray Bytes(int column) const { return Text(column).toUtf8(); }
    qint64 Int(int column) const { return sqlite3_column_int64(m_stmt, column); }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

Account ReadAccount(const Statement& row)
{
    Account account;
    account.id = row.Int(0);
    account.phone = row.Text(1);
    account.nickName = row.Text(2);
    account.email = row.Text(3);
    account.company = row.Text(4);
    account.type = row.Text(5);
    account.permission = row.Text(6);
    account.avatar = row.Text(7);
    account.createdAt = row.Text(8);
    return account;
}

}  // namespace

CloudStore::CloudStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

CloudStore::~CloudStore()
{
    sqlite3_close(m_db);
}

bool CloudStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!QDir().mkpath(m_dataDir)) {
        *error = QStringLiteral("cannot create data folder %1").arg(m_dataDir);
        return false;
    }
    const QByteArray path = QDir(m_dataDir).filePath(QStringLiteral("skycloud.db")).toUtf8();
    if (sqlite3_open_v2(path.constData(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX,
                        nullptr)
        != SQLITE_OK) {
        *error = QStringLiteral("cannot open %1: %2").arg(QString::fromUtf8(path), QString::fromUtf8(sqlite3_errmsg(m_db)));
        return false;
    }
    if (!Exec("PRAGMA foreign_keys = ON", error))
        return false;
    if (!CreateSchema(error))
        return false;
    if (IsEmpty())
        SeedDemoData();
    return true;
}

bool CloudStore::Exec(const char* sql, QString* error)
{
    char* message = nullptr;
    const bool ok = sqlite3_exec(m_db, sql, nullptr, nullptr, &message) == SQLITE_OK;
    if (!ok && error)
        *error = QString::fromUtf8(message);
    sqlite3_free(message);
    return ok;
}

bool CloudStore::CreateSchema(QString* error)
{
    const char* const tables[] = {
        "CREATE TABLE IF NOT EXISTS accounts ("
        " id INTEGER PRIMARY KEY AUTOINCREMENT, phone TEXT NOT NULL UNIQUE,"
        " password_salt TEXT NOT NULL, password_hash TEXT NOT NULL,"
        " nick_name TEXT NOT NULL DEFAULT '', email TEXT NOT NULL DEFAULT '',"
        " company TEXT NOT NULL DEFAULT '', type TEXT NOT NULL DEFAULT '',"
        " permission TEXT NOT NULL DEFAULT '', avatar TEXT NOT NULL DEFAULT '',"
        " created_at TEXT NOT NULL)",
        "CREATE TABLE IF NOT EXISTS admins ("
        " username TEXT PRIMARY KEY, password_salt TEXT NOT NULL, password_hash TEXT NOT NULL)",
        "CREATE TABLE IF NOT EXISTS sessions ("
        " token TEXT PRIMARY KEY,"
        " account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,"
        " device_id TEXT NOT NULL DEFAULT '', created_at TEXT NOT NULL)",
        "CREATE TABLE IF NOT EXISTS admin_sessions ("
        " token TEXT PRIMARY KEY, username TEXT NOT NULL REFERENCES admins(username) ON DELETE CASCADE,"
        " created_at TEXT NOT NULL)",
        "CREATE TABLE IF NOT EXISTS verification_codes ("
        " phone TEXT NOT NULL, purpose TEXT NOT NULL, code TEXT NOT NULL, issued_at INTEGER NOT NULL,"
        " PRIMARY KEY (phone, purpose))",
        "CREATE TABLE IF NOT EXISTS messages ("
        " id INTEGER PRIMARY KEY AUTOINCREMENT,"
        " account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,"
        " action TEXT NOT NULL, message TEXT NOT NULL, data TEXT NOT NULL DEFAULT '{}',"
        " created_at TEXT NOT NULL)",
    };
    for (const char* sql : tables) {
        if (!Exec(sql, error))
            return false;
    }
    return true;
}

bool CloudStore::IsEmpty()
{
    Statement count(m_db, "SELECT (SELECT COUNT(*) FROM accounts) + (SELECT COUNT(*) FROM admins)");
    return count.Step() && count.Int(0) == 0;
}

void CloudStore::SeedDemoData()
{
    const QString demoPassword = QStringLiteral("skyconsole");
    const qint64 one = InsertAccount(QStringLiteral("13800000001"), demoPassword, QStringLiteral("Demo Pilot One"),
                                     QStringLiteral("enterprise"), QStringLiteral("project,share,flightlog,noflyzone"));
    const qint64 two = InsertAccount(QStringLiteral("13800000002"), demoPassword, QStringLiteral("Demo Pilot Two"),
                                     QStringLiteral("personal"), QStringLiteral("project,share"));
    for (const qint64 id : {one, two})
        InsertMessage(id, QStringLiteral("notice"), QStringLiteral("Welcome to SkyConsole cloud"), {});

    const QByteArray salt = SecretHasher::NewSalt();
    Statement admin(m_db, "INSERT INTO admins (username, password_salt, password_hash) VALUES (?, ?, ?)");
    admin.Bind(1, QStringLiteral("admin")).Bind(2, salt).Bind(3, SecretHasher::Hash(demoPassword, salt)).Run();
}

qint64 CloudStore::InsertAccount(const QString& phone, const QString& password, const QString& nickName,
                                 const QString& type, const QString& permission)
{
    const QByteArray salt = SecretHasher::NewSalt();
    Statement insert(m_db,
                     "INSERT INTO accounts (phone, password_salt, password_hash, nick_name, type, permission, created_at)"
                     " VALUES (?, ?, ?, ?, ?, ?, ?)");
    insert.Bind(1, phone).Bind(2, salt).Bind(3, SecretHasher::Hash(password, salt));
    insert.Bind(4, nickName).Bind(5, type).Bind(6, permission).Bind(7, Now());
    return insert.Run() ? sqlite3_last_insert_rowid(m_db) : 0;
}

qint64 CloudStore::InsertMessage(qint64 accountId, const QString& action, const QString& message,
                                 const QJsonObject& data)
{
    Statement insert(m_db, "INSERT INTO messages (account_id, action, message, data, created_at) VALUES (?, ?, ?, ?, ?)");
    insert.Bind(1, accountId).Bind(2, action).Bind(3, message);
    insert.Bind(4, QJsonDocument(data).toJson(QJsonDocument::Compact)).Bind(5, Now());
    return insert.Run() ? sqlite3_last_insert_rowid(m_db) : 0;
}

std::optional<Account> CloudStore::FindAccount(const char* sqlWhere, const QString& key)
{
    const QByteArray sql = QByteArray("SELECT ") + kAccountColumns + " FROM accounts a " + sqlWhere;
    Statement select(m_db, sql.constData());
    select.Bind(1, key);
    if (!select.Step())
        return std::nullopt;
    return ReadAccount(select);
}

std::optional<Account> CloudStore::AccountByCredentials(const QString& phone, const QString& password)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement select(m_db, "SELECT id, password_salt, password_hash FROM accounts WHERE phone = ?");
    select.Bind(1, phone);
    if (!select.Step() || !SecretHasher::Matches(password, select.Bytes(1), select.Bytes(2)))
        return std::nullopt;
    return FindAccount("WHERE a.id = ?", QString::number(select.Int(0)));
}

std::optional<Account> CloudStore::AccountByToken(const QByteArray& token)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return FindAccount("JOIN sessions s ON s.account_id = a.id WHERE s.token = ?", QString::fromLatin1(token));
}

std::optional<Account> CloudStore::AccountById(qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return FindAccount("WHERE a.id = ?", QString::number(accountId));
}

std::optional<Account> CloudStore::AccountByPhone(const QString& phone)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return FindAccount("WHERE a.phone = ?", phone);
}

bool CloudStore::IsPhoneRegistered(const QString& phone)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return FindAccount("WHERE a.phone = ?", phone).has_value();
}

std::optional<Account> CloudStore::CreateAccount(const QString& phone, const QString& password, const QString& nickName)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const qint64 id = InsertAccount(phone, password, nickName, QStringLiteral("personal"), QStringLiteral("project,share"));
    if (id == 0)
        return std::nullopt;
    return FindAccount("WHERE a.id = ?", QString::number(id));
}

std::optional<Account> CloudStore::UpdateProfile(qint64 accountId, const ProfileChanges& changes)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement update(m_db,
                     "UPDATE accounts SET nick_name = COALESCE(?, nick_name), email = COALESCE(?, email),"
                     " company = COALESCE(?, company) WHERE id = ?");
    const std::optional<QString>* fields[] = {&changes.nickName, &changes.email, &changes.company};
    for (int i = 0; i < 3; ++i) {
        if (fields[i]->has_value())
            update.Bind(i + 1, fields[i]->value());
    }
    update.Bind(4, accountId).Run();
    return FindAccount("WHERE a.id = ?", QString::number(accountId));
}

bool CloudStore::ChangePhone(qint64 accountId, const QString& phone)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement update(m_db, "UPDATE accounts SET phone = ? WHERE id = ?");
    return update.Bind(1, phone).Bind(2, accountId).Run();
}

bool CloudStore::ResetPassword(const QString& phone, const QString& password)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const QByteArray salt = SecretHasher::NewSalt();
    Statement update(m_db, "UPDATE accounts SET password_salt = ?, password_hash = ? WHERE phone = ?");
    if (!update.Bind(1, salt).Bind(2, SecretHasher::Hash(password, salt)).Bind(3, phone).Run()
        || sqlite3_changes(m_db) == 0)
        return false;
    Statement drop(m_db, "DELETE FROM sessions WHERE account_id = (SELECT id FROM accounts WHERE phone = ?)");
    return drop.Bind(1, phone).Run();
}

bool CloudStore::AdminCredentialsMatch(const QString& username, const QString& password)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement select(m_db, "SELECT password_salt, password_hash FROM admins WHERE username = ?");
    select.Bind(1, username);
    return select.Step() && SecretHasher::Matches(password, select.Bytes(0), select.Bytes(1));
}

bool CloudStore::IsAdminToken(const QByteArray& token)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement select(m_db, "SELECT 1 FROM admin_sessions WHERE token = ?");
    select.Bind(1, token);
    return select.Step();
}

QByteArray CloudStore::OpenSession(qint64 accountId, const QString& deviceId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const QByteArray token = SecretHasher::NewToken();
    Statement insert(m_db, "INSERT INTO sessions (token, account_id, device_id, created_at) VALUES (?, ?, ?, ?)");
    insert.Bind(1, token).Bind(2, accountId).Bind(3, deviceId).Bind(4, Now()).Run();
    return token;
}

QByteArray CloudStore::OpenAdminSession(const QString& username)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const QByteArray token = SecretHasher::NewToken();
    Statement insert(m_db, "INSERT INTO admin_sessions (token, username, created_at) VALUES (?, ?, ?)");
    insert.Bind(1, token).Bind(2, username).Bind(3, Now()).Run();
    return token;
}

void CloudStore::CloseSession(const QByteArray& token)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement drop(m_db, "DELETE FROM sessions WHERE token = ?");
    drop.Bind(1, token).Run();
}

QString CloudStore::IssueCode(const QString& phone, CodePurpose purpose)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const QString code = SecretHasher::NewVerificationCode();
    Statement upsert(m_db, "INSERT OR REPLACE INTO verification_codes (phone, purpose, code, issued_at) VALUES (?, ?, ?, ?)");
    upsert.Bind(1, phone).Bind(2, QString::fromLatin1(PurposeName(purpose))).Bind(3, code);
    upsert.Bind(4, QDateTime::currentSecsSinceEpoch()).Run();
    m_wrongGuesses.remove(GuessKey(phone, purpose));
    return code;
}

bool CloudStore::ConsumeCode(const QString& phone, CodePurpose purpose, const QString& code)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement drop(m_db, "DELETE FROM verification_codes WHERE phone = ? AND purpose = ? AND code = ? AND issued_at >= ?");
    drop.Bind(1, phone).Bind(2, QString::fromLatin1(PurposeName(purpose))).Bind(3, code);
    drop.Bind(4, QDateTime::currentSecsSinceEpoch() - kCodeLifetimeSeconds);
    const QString key = GuessKey(phone, purpose);
    if (drop.Run() && sqlite3_changes(m_db) == 1) {
        m_wrongGuesses.remove(key);
        return true;
    }
    if (++m_wrongGuesses[key] >= kMaxWrongGuesses) {
        Statement spend(m_db, "DELETE FROM verification_codes WHERE phone = ? AND purpose = ?");
        spend.Bind(1, phone).Bind(2, QString::fromLatin1(PurposeName(purpose))).Run();
        m_wrongGuesses.remove(key);
    }
    return false;
}

QJsonArray CloudStore::Messages(qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Statement select(m_db, "SELECT id, action, message, data, created_at FROM messages WHERE account_id = ? ORDER BY id DESC");
    select.Bind(1, accountId);
    QJsonArray messages;
    while (select.Step()) {
        messages.append(QJsonObject{{"id", select.Int(0)},
                                    {"action", select.Text(1)},
                                    {"message", select.Text(2)},
                                    {"data", QJsonDocument::fromJson(select.Bytes(3)).object()},
                                    {"created_at", select.Text(4)}});
    }
    return messages;
}

qint64 CloudStore::AddMessage(qint64 accountId, const QString& action, const QString& message, const QJsonObject& data)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return InsertMessage(accountId, action, message, data);
}
