#pragma once

#include "Account.h"

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <mutex>
#include <optional>

struct sqlite3;

// The service's persistent state in one SQLite file of the data folder.
// Every public call is serialised by one mutex, because requests are served
// on a thread pool and share the single connection.
class CloudStore
{
public:
    enum class CodePurpose { Validate, ResetPassword };

    // Profile fields a user may edit; unset members stay as they are.
    struct ProfileChanges
    {
        std::optional<QString> nickName;
        std::optional<QString> email;
        std::optional<QString> company;
    };

    explicit CloudStore(const QString& dataDir);
    ~CloudStore();
    CloudStore(const CloudStore&) = delete;
    CloudStore& operator=(const CloudStore&) = delete;

    // Creates the folder, the schema and, in an empty store, the demo data.
    bool Open(QString* error);

    std::optional<Account> AccountByCredentials(const QString& phone, const QString& password);
    std::optional<Account> AccountByToken(const QByteArray& token);
    std::optional<Account> AccountById(qint64 accountId);
    std::optional<Account> AccountByPhone(const QString& phone);
    bool IsPhoneRegistered(const QString& phone);
    // Empty when the phone number is taken.
    std::optional<Account> CreateAccount(const QString& phone, const QString& password, const QString& nickName);
    std::optional<Account> UpdateProfile(qint64 accountId, const ProfileChanges& changes);
    // False when the phone number is taken.
    bool ChangePhone(qint64 accountId, const QString& phone);
    // Sets a new password and ends every session of the account.
    bool ResetPassword(const QString& phone, const QString& password);

    bool AdminCredentialsMatch(const QString& username, const QString& password);
    bool IsAdminToken(const QByteArray& token);

    QByteArray OpenSession(qint64 accountId, const QString& deviceId);
    QByteArray OpenAdminSession(const QString& username);
    void CloseSession(const QByteArray& token);

    // A new code for the phone and purpose replaces any earlier one.
    QString IssueCode(const QString& phone, CodePurpose purpose);
    // True once for a code issued within the last ten minutes. Five wrong
    // guesses spend the code as well, so it cannot be found by trying.
    bool ConsumeCode(const QString& phone, CodePurpose purpose, const QString& code);

    // Newest first.
    QJsonArray Messages(qint64 accountId);
    // Stores a message for the account; returns its id.
    qint64 AddMessage(qint64 accountId, const QString& action, const QString& message, const QJsonObject& data);

private:
    bool Exec(const char* sql, QString* error = nullptr);
    bool CreateSchema(QString* error);
    bool IsEmpty();
    void SeedDemoData();
    qint64 InsertAccount(const QString& phone, const QString& password, const QString& nickName,
                         const QString& type, const QString& permission);
    qint64 InsertMessage(qint64 accountId, const QString& action, const QString& message, const QJsonObject& data);
    std::optional<Account> FindAccount(const char* sqlWhere, const QString& key);

    QString m_dataDir;
    sqlite3* m_db = nullptr;
    std::mutex m_mutex;
    // Wrong guesses at the current code, by purpose and phone.
    QHash<QString, int> m_wrongGuesses;
};
