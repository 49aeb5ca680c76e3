#include "CLmLocalProjectReader.h"

#include "LmCarrowmereUILog.h"
#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmProjectSchema.h"
#include "LmCityCategory.h"
#include "LmProjectConstants.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

// The mission database joins the project's connection, so a project costs one
// connection and one statement for its counts however many missions it has.
constexpr char MissionSchema[] = "mission";

bool ReadProjectRows(CLmDataBase& projectDb, const QString& filePath, const QString& userId,
                     QList<SProjInfor>& projects)
{
    QSqlQuery rows(projectDb.Database());
    // All columns: a file from an older release may lack one, which then
    // reads as empty.
    if (!projectDb.Exec(QStringLiteral("select * from %1 where user_id = ?").arg(QLatin1String(ProjectTableName)),
                        {userId}, &rows)) {
        qCWarning(lcProjSynch) << "not a readable project database:" << filePath;
        return false;
    }
    const QSqlRecord columns = rows.record();
    const int id = columns.indexOf(QStringLiteral("id"));
    const int name = columns.indexOf(QStringLiteral("project_name"));
    const int updatedAt = columns.indexOf(QStringLiteral("updated_at"));
    while (rows.next()) {
        SProjInfor info;
        info.strProjID = rows.value(id).toString();
        info.strProjName = rows.value(name).toString();
        info.strUpdateTime = rows.value(updatedAt).toString();
        info.strProjPath = filePath;
        projects.append(info);
    }
    return rows.lastError().type() == QSqlError::NoError;
}

// A mission counts when the project database has its flight task, and is
// flown when it has at least one flight-log row.
bool CountMissions(CLmDataBase& projectDb, SProjInfor& info)
{
    QSqlQuery counts(projectDb.Database());
    if (!projectDb.Exec(QStringLiteral("select count(*), coalesce(sum(exists (select 1 from %1.%2 l"
                                       " where l.flight_mission_id = m.id)), 0)"
                                       " from %1.%3 m where m.project_id = ?"
                                       " and m.flight_task_id in (select flight_task_guid from main.%4)")
                            .arg(QLatin1String(MissionSchema), QLatin1String(FlightLogTableName),
                                 QLatin1String(FlightMissionTableName), QLatin1String(FlightTaskTableName)),
                        {info.strProjID}, &counts)
        || !counts.next())
        return false;
    info.iMissionCount = std::max(info.iMissionCount, counts.value(0).toInt());
    info.iFlownCount = counts.value(1).toInt();
    return true;
}

bool ReadBlockCities(CLmDataBase& projectDb, const QString& projId, QStringList& cities)
{
    QSqlQuery areas(projectDb.Database());
    if (!projectDb.Exec(QStringLiteral("select distinct home_lat, home_lng from %1 where project_id = ?")
                            .arg(QLatin1String(SurveyAreaTableName)),
                        {projId}, &areas))
        return false;
    while (areas.next()) {
        const QString city = LmCityCategory::instance().GetCityName(
            PointLatLng(areas.value(0).toDouble(), areas.value(1).toDouble()));
        if (!city.isEmpty() && !cities.contains(city))
            cities.append(city);
    }
    return areas.lastError().type() == QSqlError::NoError;
}

}  // namespace

SLocalProjectFile CLmLocalProjectReader::Read(const QString& filePath, const QString& userId, ECities cities)
{
    SLocalProjectFile result;
    CLmDataBase projectDb(filePath);
    if (!projectDb.OpenForeign(CLmProjectSchema::ProjectTables())) {
        qCWarning(lcProjSynch) << "DB Open failed" << filePath;
        return result;
    }
    bool complete = ReadProjectRows(projectDb, filePath, userId, result.listProjects);
    if (!complete || result.listProjects.isEmpty()) {
        result.bComplete = complete;
        return result;
    }
    const QString missionFilePath = CLmControl::GetInstance()->GetFlightMissionFilePath(filePath);
    const bool missionFileExists = QFileInfo::exists(missionFilePath);
    const bool hasMissions = missionFileExists
        && projectDb.AttachForeign(missionFilePath, QLatin1String(MissionSchema), CLmProjectSchema::MissionTables());
    complete = hasMissions || !missionFileExists;
    for (SProjInfor& info : result.listProjects) {
        if (hasMissions)
            complete = CountMissions(projectDb, info) && complete;
        if (cities == WithCities) {
            QStringList names;
            complete = ReadBlockCities(projectDb, info.strProjID, names) && complete;
            result.listCities.append({info.strProjID, names});
        }
    }
    result.bComplete = complete;
    return result;
}
