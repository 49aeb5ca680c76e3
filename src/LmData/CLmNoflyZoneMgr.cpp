#include "CLmNoflyZoneMgr.h"

#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmRecordUpsert.h"
#include "LmConstants.h"
#include "LmDataLog.h"
#include "LmFileReplace.h"
#include "LmNoflyCipher.h"
#include "LmNoflyZoneSchema.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <rapidjson/document.h>
#include <sqlite3.h>

#include <climits>
#include <cmath>

using namespace LmNoflyZoneSchema;

namespace {

// An untrusted file gets this long for all its checks together.
constexpr int kValidationBudgetMs = 20000;

const QStringList kZoneRequired{QLatin1String(ZoneKey), QStringLiteral("updated_at")};
const QStringList kLiftRequired{QLatin1String(LiftKey)};

int StopPastDeadline(void* deadline)
{
    return static_cast<QDeadlineTimer*>(deadline)->hasExpired() ? 1 : 0;
}

// SQLite calls back every thousand steps and gives up once the deadline
// passed; no deadline removes the bound.
void BoundInTime(QSqlDatabase& db, QDeadlineTimer* deadline)
{
    if (sqlite3* connection = CLmRecordUpsert::Handle(db))
        sqlite3_progress_handler(connection, 1000, deadline ? StopPastDeadline : nullptr, deadline);
}

bool HasSqliteHeader(const QString& filePath)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) && file.read(16) == QByteArray("SQLite format 3\0", 16);
}

// Only tables and their indexes: a view, trigger or virtual table in a file
// from elsewhere could run code of the file's author against ours.
bool HoldsOnlyPlainTables(CLmDataBase& db)
{
    QSqlQuery schema(db.Database());
    if (!db.Exec(QStringLiteral("SELECT type, sql FROM sqlite_master"), {}, &schema))
        return false;
    while (schema.next()) {
        const QString type = schema.value(0).toString();
        const QString sql = schema.value(1).toString().simplified();
        const bool plainTable =
            type == QLatin1String("table") && !sql.startsWith(QLatin1String("CREATE VIRTUAL"), Qt::CaseInsensitive);
        if (!plainTable && type != QLatin1String("index"))
            return false;
    }
    return true;
}

const rapidjson::Value* Member(const rapidjson::Value& object, const char* key)
{
    if (!object.IsObject())
        return nullptr;
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

// A whole number in range, as the replies' "status" and counts are read everywhere.
int IntOf(const rapidjson::Value* value, int fallback)
{
    if (!value || !value->IsNumber())
        return fallback;
    const double number = value->GetDouble();
    return number >= INT_MIN && number <= INT_MAX && number == std::trunc(number) ? int(number) : fallback;
}

// A cloud reply parsed in place: the texts of its records stay in the copy
// kept here and are bound to the statement without a copy of their own.
// A reply of 50,000 zones is some 29 MB, which QJsonDocument takes about as
// long to read as SQLite takes to store its records; RapidJSON a fifth.
class CParsedReply
{
public:
    explicit CParsedReply(const QByteArray& body)
        : m_body(body)
    {
        m_document.ParseInsitu(m_body.data());
    }

    // "data" of a reply that parsed and reports the service's "done" (0).
    const rapidjson::Value* SuccessData() const
    {
        if (m_document.HasParseError() || IntOf(Member(m_document, "status"), -1) != 0)
            return nullptr;
        return Member(m_document, "data");
    }

    int Int(const char* key) const
    {
        return IntOf(Member(m_document, key), 0);
    }

private:
    QByteArray m_body;
    rapidjson::Document m_document;
};

}  // namespace

const QString CLmNoflyZoneMgr::NoRecordsYet = QStringLiteral("1970-01-01 00:00:00");

CLmNoflyZoneMgr::CLmNoflyZoneMgr(const QString& workFilePath)
    : m_strWorkFilePath(workFilePath.isEmpty()
                            ? CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/TmpData/NoflyZone.dat")
                            : workFilePath)
{
}

CLmNoflyZoneMgr::~CLmNoflyZoneMgr()
{
    CloseDataBase();
}

QString CLmNoflyZoneMgr::WorkFilePath() const
{
    return m_strWorkFilePath;
}

QString CLmNoflyZoneMgr::CheckExistNoflyFile()
{
    CloseDataBase();
    if (!QFileInfo::exists(m_strWorkFilePath))
        return {};
    if (LmNoflyCipher::IsEnciphered(m_strWorkFilePath)
        && !DecryptionNoflyFile(m_strWorkFilePath, m_strWorkFilePath))
        return {};
    if (!OpenWorkCopy()) {
        qCWarning(lcNoflyZone) << "the work copy is no zone database; it is fetched anew";
        return {};
    }
    QSqlQuery newest(m_pDataBase->Database());
    if (!m_pDataBase->Exec(QStringLiteral("select updated_at from %1 order by updated_at desc limit 0, 1")
                               .arg(QLatin1String(ZoneTable)),
                           {}, &newest)) {
        CloseDataBase();
        return {};
    }
    const QString updatedAt = newest.next() ? newest.value(0).toString() : QString();
    return updatedAt.isEmpty() ? NoRecordsYet : updatedAt;
}

bool CLmNoflyZoneMgr::SaveNoflyFile(const QByteArray& data)
{
    CloseDataBase();
    const QString folder = QFileInfo(m_strWorkFilePath).absolutePath();
    QDir().mkpath(folder);
    QTemporaryFile temp(folder + QStringLiteral("/.XXXXXX.part"));
    if (!temp.open() || temp.write(data) != data.size() || !temp.flush()) {
        qCWarning(lcNoflyZone) << "cannot write the downloaded zone file:" << temp.errorString();
        return false;
    }
    temp.close();
    if (!IsZoneDatabase(temp.fileName())) {
        qCWarning(lcNoflyZone) << "the downloaded zone file is no zone database; the work copy stays";
        return false;
    }
    {
        CLmDataBase db(temp.fileName());
        if (!db.Open() || !CreateTables(db))
            return false;
    }
    if (!LmFileReplace::Replace(temp.fileName(), m_strWorkFilePath))
        return false;
    temp.setAutoRemove(false);
    qCInfo(lcNoflyZone) << "zone file of" << data.size() << "bytes saved";
    return true;
}

CLmNoflyZoneMgr::SZoneUpdate CLmNoflyZoneMgr::ApplyZoneReply(const QByteArray& reply)
{
    const CParsedReply parsed(reply);
    SZoneUpdate update;
    update.result = Apply(parsed.SuccessData(), ZoneTable, ZoneFields(), kZoneRequired);
    update.iLiftCount = parsed.Int("lift_count");
    return update;
}

CLmNoflyZoneMgr::SApplyResult CLmNoflyZoneMgr::ApplyLiftReply(const QByteArray& reply)
{
    const CParsedReply parsed(reply);
    const rapidjson::Value* data = parsed.SuccessData();
    return Apply(data ? Member(*data, "lift") : nullptr, LiftTable, LiftFields(), kLiftRequired);
}

CLmNoflyZoneMgr::SApplyResult CLmNoflyZoneMgr::Apply(const rapidjson::Value* records, const char* table,
                                                     const QStringList& fields, const QStringList& required)
{
    SApplyResult result;
    if (!records || !records->IsArray()) {
        qCWarning(lcNoflyZone) << "the reply holds no list of" << table << "records; nothing changed";
        return result;
    }
    if (!OpenWorkCopy() || !m_pDataBase->Database().transaction())
        return result;
    CLmRecordUpsert upsert(m_pDataBase->Database(), table, fields, required);
    if (!upsert.Write(*records, &result.iApplied, &result.iSkipped)) {
        qCWarning(lcNoflyZone) << "cannot store the records of" << table << upsert.Error();
        m_pDataBase->Database().rollback();
        return {};
    }
    result.bOk = m_pDataBase->Database().commit();
    qCInfo(lcNoflyZone) << result.iApplied << "records of" << table << "stored";
    if (result.iSkipped > 0)
        qCInfo(lcNoflyZone) << result.iSkipped << "records of" << table << "lack a field and were skipped";
    return result;
}

bool CLmNoflyZoneMgr::RemoveLiftsExcept(const QString& userId)
{
    return OpenWorkCopy()
           && m_pDataBase->Exec(QStringLiteral("DELETE FROM %1 WHERE COALESCE(?, '') = '' OR CAST(user_id AS TEXT) <> ?")
                                    .arg(QLatin1String(LiftTable)),
                                {userId, userId});
}

void CLmNoflyZoneMgr::CloseDataBase()
{
    // Readers of the published file may have no write access beside it, so
    // the file leaves write-ahead logging behind.
    if (m_pDataBase)
        m_pDataBase->Exec(QStringLiteral("PRAGMA journal_mode = DELETE"));
    m_pDataBase.reset();
}

bool CLmNoflyZoneMgr::EncryptionNoflyFile(const QString& sourcePath, const QString& targetPath)
{
    CloseDataBase();
    return LmNoflyCipher::Encipher(sourcePath, targetPath, GetNoflyZoneKey());
}

bool CLmNoflyZoneMgr::DecryptionNoflyFile(const QString& sourcePath, const QString& targetPath)
{
    CloseDataBase();
    return LmNoflyCipher::Decipher(sourcePath, targetPath, GetNoflyZoneKey());
}

bool CLmNoflyZoneMgr::IsZoneDatabase(const QString& filePath)
{
    if (!HasSqliteHeader(filePath))
        return false;
    CLmDataBase db(filePath);
    if (!db.Open(true))
        return false;
    QDeadlineTimer deadline(kValidationBudgetMs);
    BoundInTime(db.Database(), &deadline);
    const bool ok = db.Exec(QStringLiteral("PRAGMA query_only = ON")) && db.Exec(QStringLiteral("PRAGMA trusted_schema = OFF"))
                    && db.SelectValue(QStringLiteral("PRAGMA quick_check")).toString() == QLatin1String("ok")
                    && HoldsOnlyPlainTables(db) && HasFields(db, ZoneTable, ZoneFields())
                    && (!db.TableExists(QLatin1String(LiftTable)) || HasFields(db, LiftTable, LiftFields()));
    BoundInTime(db.Database(), nullptr);
    return ok;
}

bool CLmNoflyZoneMgr::OpenWorkCopy()
{
    if (m_pDataBase && m_pDataBase->IsOpen())
        return true;
    if (!QFileInfo::exists(m_strWorkFilePath))
        return false;
    m_pDataBase = std::make_unique<CLmDataBase>(m_strWorkFilePath);
    // An update rewrites most of the file: a write-ahead log and a cache
    // holding the whole zone table keep that to one pass over the pages.
    // The log keeps the copy whole when the application dies in an update.
    // It is not synced, as no file written here is (they are renamed into
    // place): the copy is private, replaced by its enciphered form within
    // seconds of an update and fetched whole when it is not a usable
    // database. Syncing made an update of 50,000 zones up to a quarter slower.
    if (m_pDataBase->Open() && m_pDataBase->Exec(QStringLiteral("PRAGMA trusted_schema = OFF"))
        && m_pDataBase->Exec(QStringLiteral("PRAGMA cache_size = -65536"))
        && m_pDataBase->Exec(QStringLiteral("PRAGMA journal_mode = WAL"))
        && m_pDataBase->Exec(QStringLiteral("PRAGMA synchronous = OFF"))
        && CreateTables(*m_pDataBase))
        return true;
    m_pDataBase.reset();
    return false;
}
