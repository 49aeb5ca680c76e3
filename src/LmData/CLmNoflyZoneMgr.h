#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <rapidjson/fwd.h>

#include <memory>

class CLmDataBase;

// The local no-fly-zone database: its work copy (a plain SQLite file while
// it is being updated, enciphered once published), the zone and lift records
// the cloud sends, and the cipher of the published file. One object is used
// from one thread at a time; it owns its own database connection.
class CLmNoflyZoneMgr
{
public:
    // What applying a batch of records did.
    struct SApplyResult
    {
        bool bOk = false;  // false: nothing of the batch was kept
        int iApplied = 0;
        int iSkipped = 0;  // records that lack a field
    };

    // What applying the cloud's reply of changed zones did.
    struct SZoneUpdate
    {
        SApplyResult result;
        int iLiftCount = 0;  // the reply's "lift_count": lifts granted to the account
    };

    // The newest "updated_at" of a work copy that holds no zone yet.
    static const QString NoRecordsYet;

    // workFilePath empty: "<app data>/TmpData/NoflyZone.dat".
    explicit CLmNoflyZoneMgr(const QString& workFilePath = QString());
    ~CLmNoflyZoneMgr();
    CLmNoflyZoneMgr(const CLmNoflyZoneMgr&) = delete;
    CLmNoflyZoneMgr& operator=(const CLmNoflyZoneMgr&) = delete;

    QString WorkFilePath() const;

    // Opens the work copy (deciphering a published one first) and returns
    // its newest "updated_at"; empty when there is no usable work copy, so
    // the whole file has to be fetched.
    QString CheckExistNoflyFile();
    // Replaces the work copy with a downloaded zone database; a file that is
    // not a complete one of the expected shape leaves the work copy as it was.
    bool SaveNoflyFile(const QByteArray& data);
    // Upserts the records of a cloud reply, zones by "local_id" from
    // {"status": 0, "data": [...], "lift_count": n} and lifts by "id" from
    // {"status": 0, "data": {"lift": [...]}}, each reply in one transaction;
    // a record lacking a field is skipped. A reply that does not parse or
    // does not report success changes nothing.
    SZoneUpdate ApplyZoneReply(const QByteArray& reply);
    SApplyResult ApplyLiftReply(const QByteArray& reply);
    // Removes the lifts granted to other accounts than userId (all lifts
    // for an empty userId): the published file carries only the lifts of
    // the account signed in.
    bool RemoveLiftsExcept(const QString& userId);
    void CloseDataBase();
    // Enciphers sourcePath into targetPath (which may be the same file) under
    // the deployment key.
    bool EncryptionNoflyFile(const QString& sourcePath, const QString& targetPath);
    // The reverse, for readers of the published file; refuses a changed file.
    bool DecryptionNoflyFile(const QString& sourcePath, const QString& targetPath);

    // Read-only checks of an untrusted file: an intact SQLite database whose
    // schema holds only plain tables and indexes, with every zone field.
    static bool IsZoneDatabase(const QString& filePath);

private:
    bool OpenWorkCopy();
    // records: the reply's list, null when it has none; required: the key
    // first, then the other fields that may not be empty.
    SApplyResult Apply(const rapidjson::Value* records, const char* table, const QStringList& fields,
                       const QStringList& required);

    QString m_strWorkFilePath;
    std::unique_ptr<CLmDataBase> m_pDataBase;
};
