#include "CLmReferencePointStore.h"

#include "CLmControl.h"
#include "CLmDataBase.h"
#include "LmCarrowmereUILog.h"
#include "LmStationRules.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

const char* const kCreateTable =
    "CREATE TABLE Referencepoint(\t\tid integer primary key not null,\t\tknown_point varchar(32) DEFAULT NULL,"
    "\t\tlng double DEFAULT 0,\t\tlat double DEFAULT 0,\t\taltitude double DEFAULT 0,"
    "\t\tstation_vertical double DEFAULT 0,\t\tdifferential_data varchar(32) DEFAULT NULL\t)";

}  // namespace

CLmReferencePointStore::CLmReferencePointStore()
{
    Open(DefaultFilePath());
}

CLmReferencePointStore::CLmReferencePointStore(const QString& filePath)
{
    Open(filePath);
}

CLmReferencePointStore::~CLmReferencePointStore() = default;

QString CLmReferencePointStore::DefaultFilePath()
{
    return CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/Referencepoint.db");
}

void CLmReferencePointStore::Open(const QString& filePath)
{
    QDir().mkpath(QFileInfo(filePath).absolutePath());
    const bool existed = QFileInfo::exists(filePath);
    m_pDb = std::make_unique<CLmDataBase>(filePath);
    if (!m_pDb->Open()) {
        qCWarning(lcGnss) << "reference points not opened:" << m_pDb->LastError();
        return;
    }
    if (!existed || !m_pDb->TableExists(QStringLiteral("Referencepoint")))
        m_pDb->Exec(QString::fromLatin1(kCreateTable));
    Load();
}

bool CLmReferencePointStore::IsOpen() const
{
    return m_pDb->IsOpen() && m_pDb->TableExists(QStringLiteral("Referencepoint"));
}

void CLmReferencePointStore::Load()
{
    m_lstPoints.clear();
    QSqlQuery query(m_pDb->Database());
    if (!m_pDb->Exec(QStringLiteral("SELECT * FROM Referencepoint ORDER BY id"), {}, &query))
        return;
    const QSqlRecord record = query.record();
    const int nameColumn = record.indexOf(QStringLiteral("known_point"));
    const int lngColumn = record.indexOf(QStringLiteral("lng"));
    const int latColumn = record.indexOf(QStringLiteral("lat"));
    const int altitudeColumn = record.indexOf(QStringLiteral("altitude"));
    const int verticalColumn = record.indexOf(QStringLiteral("station_vertical"));
    while (query.next()) {
        SLmReferencePoint point;
        point.name = query.value(nameColumn).toString();
        point.lng = query.value(lngColumn).toDouble();
        point.lat = query.value(latColumn).toDouble();
        point.altitude = query.value(altitudeColumn).toDouble();
        point.stationVertical = query.value(verticalColumn).toDouble();
        m_lstPoints.append(point);
    }
}

QList<SLmReferencePoint> CLmReferencePointStore::Points() const
{
    return m_lstPoints;
}

QStringList CLmReferencePointStore::Names() const
{
    QStringList names;
    for (const SLmReferencePoint& point : m_lstPoints)
        names.append(point.name);
    return names;
}

QString CLmReferencePointStore::NameProblem(const QString& name) const
{
    return LmStationRules::ReferencePointNameProblem(name, Names());
}

bool CLmReferencePointStore::Insert(const SLmReferencePoint& point)
{
    if (!NameProblem(point.name).isEmpty())
        return false;
    const bool inserted = m_pDb->Exec(
        QStringLiteral("Insert into Referencepoint( known_point,lat,lng,altitude, station_vertical) values (?,?,?,?,?)"),
        {point.name, point.lat, point.lng, point.altitude, point.stationVertical});
    Load();
    return inserted;
}

bool CLmReferencePointStore::Remove(const QString& name)
{
    const bool removed = m_pDb->Exec(QStringLiteral("DELETE from Referencepoint where known_point = ?"), {name});
    Load();
    return removed;
}

QString CLmReferencePointStore::LastError() const
{
    return m_pDb->LastError();
}
