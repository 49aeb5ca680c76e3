#include "CLmLocalProjectCache.h"

#include "LmCarrowmereUILog.h"
#include "CLmControl.h"
#include "LmCityCategory.h"
#include "LmProjectConstants.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

// Timestamps are only as fine as the file system keeps them (two seconds on
// FAT): a file written this recently could change again without its stamp
// showing it, so its reading is not kept.
constexpr qint64 TimestampGranularityNs = 2000000000;
// Bumped whenever what a reading holds changes; older files are ignored.
constexpr int StoreFormat = 1;

qint64 Nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

QCborArray StringArray(const QStringList& strings)
{
    QCborArray array;
    for (const QString& string : strings)
        array.append(string);
    return array;
}

QStringList Strings(const QCborArray& array)
{
    QStringList strings;
    for (const QCborValue& value : array)
        strings.append(value.toString());
    return strings;
}

}  // namespace

bool CLmLocalProjectCache::SFileStamp::operator==(const SFileStamp& other) const
{
    return bExists == other.bExists && iInode == other.iInode && iSize == other.iSize
        && iModifiedNs == other.iModifiedNs && iChangedNs == other.iChangedNs;
}

CLmLocalProjectCache::CLmLocalProjectCache(const QString& storePath)
    : m_strStorePath(storePath)
{
}

QString CLmLocalProjectCache::DefaultStorePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        + QStringLiteral("/SkyConsole/project-scan.cbor");
}

QList<SLocalProjectFile> CLmLocalProjectCache::ReadFolder(const QString& folderPath, const QString& userId)
{
    Load();
    // Names only: the listing needs no stat, and only the databases get one.
    // Hidden files (backups, "._" files other systems leave) are not projects.
    const QStringList files = QDir(folderPath).entryList(QDir::Files, QDir::Name);
    QList<SLocalProjectFile> projects;
    for (const QString& file : files) {
        // The "*.proj" filter, without compiling a pattern for every folder.
        if (file.endsWith(QLatin1String(ProjectSuffix), Qt::CaseInsensitive))
            projects.append(ReadProject(folderPath, file, files, userId));
    }
    return projects;
}

void CLmLocalProjectCache::FinishScan()
{
    for (auto entry = m_hashEntries.begin(); entry != m_hashEntries.end();) {
        if (m_setVisited.contains(entry.key())) {
            ++entry;
            continue;
        }
        entry = m_hashEntries.erase(entry);
        m_bChanged = true;
    }
    m_setVisited.clear();
    if (m_bChanged)
        Save();
    m_bChanged = false;
}

SLocalProjectFile CLmLocalProjectCache::ReadProject(const QString& folderPath, const QString& fileName,
                                                    const QStringList& folderFiles, const QString& userId)
{
    const QString path = folderPath + QLatin1Char('/') + fileName;
    const QString missionPath = CLmControl::GetInstance()->GetFlightMissionFilePath(path);
    const SFileStamp projectStamp = Stamp(path);
    const SFileStamp missionStamp = Stamp(missionPath);
    const bool pending = HasPendingWrites(path, folderFiles) || HasPendingWrites(missionPath, folderFiles);
    m_setVisited.insert(path);

    const auto cached = m_hashEntries.constFind(path);
    if (!pending && cached != m_hashEntries.constEnd() && cached->strUserId == userId
        && cached->projectStamp == projectStamp && cached->missionStamp == missionStamp)
        return cached->content;

    const qint64 readAtNs = QDateTime::currentMSecsSinceEpoch() * 1'000'000;
    SEntry entry{userId, projectStamp, missionStamp,
                 CLmLocalProjectReader::Read(path, userId, CLmLocalProjectReader::WithCities)};
    if (!entry.content.bComplete || pending || MayStillChangeUnseen(projectStamp, readAtNs)
        || MayStillChangeUnseen(missionStamp, readAtNs)) {
        m_bChanged = m_hashEntries.remove(path) > 0 || m_bChanged;
        return entry.content;
    }
    m_hashEntries.insert(path, entry);
    m_bChanged = true;
    return entry.content;
}

CLmLocalProjectCache::SFileStamp CLmLocalProjectCache::Stamp(const QString& filePath)
{
    struct stat status {};
    if (::stat(QFile::encodeName(filePath).constData(), &status) != 0)
        return {};
    return {true, quint64(status.st_ino), qint64(status.st_size), Nanoseconds(status.st_mtim),
            Nanoseconds(status.st_ctim)};
}

// A journal or WAL beside a database holds changes its main file does not
// show yet.
bool CLmLocalProjectCache::HasPendingWrites(const QString& filePath, const QStringList& folderFiles)
{
    const QString fileName = QFileInfo(filePath).fileName();
    for (const char* suffix : {"-journal", "-wal"}) {
        const QString companion = fileName + QLatin1String(suffix);
        if (folderFiles.contains(companion) && Stamp(filePath + QLatin1String(suffix)).iSize > 0)
            return true;
    }
    return false;
}

bool CLmLocalProjectCache::MayStillChangeUnseen(const SFileStamp& stamp, qint64 readAtNs)
{
    return stamp.bExists && stamp.iModifiedNs > readAtNs - TimestampGranularityNs;
}

// ---- keeping readings between runs ----------------------------------------------

// A missing, foreign or damaged file leaves the cache empty: every project is
// then simply read from disk.
void CLmLocalProjectCache::Load()
{
    if (m_bLoaded || m_strStorePath.isEmpty())
        return;
    m_bLoaded = true;
    QFile file(m_strStorePath);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QCborParserError error;
    const QCborMap store = QCborValue::fromCbor(file.readAll(), &error).toMap();
    if (error.error != QCborError::NoError || store.value(QStringLiteral("format")).toInteger() != StoreFormat
        || store.value(QStringLiteral("cities")).toString() != LmCityCategory::TableVersion()) {
        qCInfo(lcProjSynch) << "project scan cache ignored:" << m_strStorePath;
        return;
    }
    for (const QCborValue& value : store.value(QStringLiteral("entries")).toArray()) {
        QString path;
        SEntry entry;
        if (FromCbor(value.toMap(), &path, &entry))
            m_hashEntries.insert(path, entry);
    }
}

void CLmLocalProjectCache::Save() const
{
    if (m_strStorePath.isEmpty())
        return;
    QCborArray entries;
    for (auto entry = m_hashEntries.cbegin(); entry != m_hashEntries.cend(); ++entry)
        entries.append(ToCbor(entry.key(), entry.value()));
    const QCborMap store{{QStringLiteral("format"), StoreFormat},
                         {QStringLiteral("cities"), LmCityCategory::TableVersion()},
                         {QStringLiteral("entries"), entries}};

    QDir().mkpath(QFileInfo(m_strStorePath).absolutePath());
    QSaveFile file(m_strStorePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(store.toCborValue().toCbor()) < 0 || !file.commit())
        qCWarning(lcProjSynch) << "cannot keep the project scan cache in" << m_strStorePath;
}

QCborMap CLmLocalProjectCache::ToCbor(const QString& path, const SEntry& entry)
{
    const auto stamp = [](const SFileStamp& s) {
        return QCborArray{s.bExists, qint64(s.iInode), s.iSize, s.iModifiedNs, s.iChangedNs};
    };
    QCborArray projects;
    for (const SProjInfor& info : entry.content.listProjects)
        projects.append(QCborArray{info.strProjID, info.strProjName, info.strUpdateTime, info.iMissionCount,
                                   info.iFlownCount});
    QCborArray cities;
    for (const auto& projectCities : entry.content.listCities)
        cities.append(QCborArray{projectCities.first, StringArray(projectCities.second)});
    return QCborMap{{QStringLiteral("path"), path},
                    {QStringLiteral("user"), entry.strUserId},
                    {QStringLiteral("project"), stamp(entry.projectStamp)},
                    {QStringLiteral("mission"), stamp(entry.missionStamp)},
                    {QStringLiteral("projects"), projects},
                    {QStringLiteral("cities"), cities}};
}

bool CLmLocalProjectCache::FromCbor(const QCborMap& map, QString* path, SEntry* entry)
{
    const auto stamp = [](const QCborValue& value, SFileStamp* s) {
        const QCborArray fields = value.toArray();
        if (fields.size() != 5)
            return false;
        *s = {fields.at(0).toBool(), quint64(fields.at(1).toInteger()), fields.at(2).toInteger(),
              fields.at(3).toInteger(), fields.at(4).toInteger()};
        return true;
    };
    *path = map.value(QStringLiteral("path")).toString();
    entry->strUserId = map.value(QStringLiteral("user")).toString();
    if (path->isEmpty() || !stamp(map.value(QStringLiteral("project")), &entry->projectStamp)
        || !stamp(map.value(QStringLiteral("mission")), &entry->missionStamp))
        return false;
    for (const QCborValue& value : map.value(QStringLiteral("projects")).toArray()) {
        const QCborArray fields = value.toArray();
        SProjInfor info;
        info.strProjID = fields.at(0).toString();
        info.strProjName = fields.at(1).toString();
        info.strUpdateTime = fields.at(2).toString();
        info.iMissionCount = int(fields.at(3).toInteger());
        info.iFlownCount = int(fields.at(4).toInteger());
        info.strProjPath = *path;
        entry->content.listProjects.append(info);
    }
    entry->content.bComplete = true;
    for (const QCborValue& value : map.value(QStringLiteral("cities")).toArray()) {
        const QCborArray fields = value.toArray();
        entry->content.listCities.append({fields.at(0).toString(), Strings(fields.at(1).toArray())});
    }
    return true;
}
