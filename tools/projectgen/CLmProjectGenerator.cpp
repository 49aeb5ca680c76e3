#include "CLmProjectGenerator.h"

#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmProjectSchema.h"
#include "LmProjectConstants.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUuid>

namespace {

// Generated files are disposable: skip the waits for the disk.
bool OpenForWriting(CLmDataBase& db)
{
    return db.Open() && db.Exec(QStringLiteral("PRAGMA synchronous = OFF"));
}

QString TimeText(const QDateTime& time)
{
    return time.toString(QLatin1String(DateTimeSFormat));
}

QString AreaGuid(const CLmProjectGenerator::SOptions& options, int area)
{
    return options.strProjID + QStringLiteral("-area-%1").arg(area);
}

// A square of about 500 m around the area's home point.
QString AreaOutline(double lat, double lng)
{
    const double d = 0.0045;
    const QJsonArray outline{QJsonArray{lat - d, lng - d}, QJsonArray{lat - d, lng + d}, QJsonArray{lat + d, lng + d},
                             QJsonArray{lat + d, lng - d}};
    return QString::fromUtf8(QJsonDocument(outline).toJson(QJsonDocument::Compact));
}

}  // namespace

bool CLmProjectGenerator::SetModificationTime(const QString& filePath, const QDateTime& time)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) && file.setFileTime(time, QFileDevice::FileModificationTime);
}

QString CLmProjectGenerator::WriteProject(const QString& folder, const SOptions& options)
{
    if (!QDir().mkpath(folder))
        return {};
    const QString filePath = folder + QLatin1Char('/') + options.strProjName + QLatin1String(ProjectSuffix);
    const QString missionPath = CLmControl::GetInstance()->GetFlightMissionFilePath(filePath);
    if (!WriteProjectDatabase(filePath, options) || !WriteMissionDatabase(missionPath, options)
        || !SetModificationTime(filePath, options.updatedAt) || !SetModificationTime(missionPath, options.updatedAt))
        return {};
    return filePath;
}

bool CLmProjectGenerator::WriteProjectDatabase(const QString& filePath, const SOptions& options)
{
    CLmDataBase db(filePath);
    if (!OpenForWriting(db) || !CLmProjectSchema::CreateProjectTables(db) || !db.Database().transaction())
        return false;
    const QString created = TimeText(options.updatedAt.addDays(-3));
    bool ok = db.Exec(QStringLiteral("INSERT OR REPLACE INTO %1 (id, project_name, user_id, created_at, updated_at,"
                                     " version) VALUES (?, ?, ?, ?, ?, 0)")
                          .arg(QLatin1String(ProjectTableName)),
                      {options.strProjID, options.strProjName, options.strUserID, created, TimeText(options.updatedAt)});
    for (int area = 0; ok && area < options.iSurveyAreas; ++area) {
        const double lat = options.dHomeLat + area * 0.01;
        const double lng = options.dHomeLng + area * 0.01;
        ok = db.Exec(QStringLiteral("INSERT INTO %1 (project_id, survey_area_name, survey_area_guid,"
                                    " survey_area_coordinate_points, home_lat, home_lng) VALUES (?, ?, ?, ?, ?, ?)")
                         .arg(QLatin1String(SurveyAreaTableName)),
                     {options.strProjID, QStringLiteral("Block %1").arg(area + 1), AreaGuid(options, area),
                      AreaOutline(lat, lng), lat, lng});
    }
    for (int mission = 0; ok && mission < options.iMissions; ++mission) {
        ok = db.Exec(QStringLiteral("INSERT INTO %1 (flight_task_guid, survey_area_guid, task_name, created_at)"
                                    " VALUES (?, ?, ?, ?)")
                         .arg(QLatin1String(FlightTaskTableName)),
                     {TaskGuid(options, mission), AreaGuid(options, mission % std::max(1, options.iSurveyAreas)),
                      QStringLiteral("Task %1").arg(mission + 1), created});
    }
    return db.Database().commit() && ok;
}

bool CLmProjectGenerator::WriteMissionDatabase(const QString& filePath, const SOptions& options)
{
    CLmDataBase db(filePath);
    if (!OpenForWriting(db) || !CLmProjectSchema::CreateMissionTables(db) || !db.Database().transaction())
        return false;
    bool ok = true;
    for (int mission = 0; ok && mission < options.iMissions; ++mission) {
        ok = db.Exec(QStringLiteral("INSERT INTO %1 (flight_task_id, project_id, mission_name, created_at)"
                                    " VALUES (?, ?, ?, ?)")
                         .arg(QLatin1String(FlightMissionTableName)),
                     {TaskGuid(options, mission), options.strProjID, QStringLiteral("Mission %1").arg(mission + 1),
                      TimeText(options.updatedAt)});
        const qint64 missionId = db.SelectValue(QStringLiteral("SELECT last_insert_rowid()")).toLongLong();
        const int rows = mission < options.iFlownMissions ? options.iLogRowsPerFlight : 0;
        for (int row = 0; ok && row < rows; ++row) {
            ok = db.Exec(QStringLiteral("INSERT INTO %1 (flight_mission_id, log_time, lat, lng, alt, speed, battery)"
                                        " VALUES (?, ?, ?, ?, ?, ?, ?)")
                             .arg(QLatin1String(FlightLogTableName)),
                         {missionId, TimeText(options.updatedAt.addSecs(row)), options.dHomeLat + row * 0.0001,
                          options.dHomeLng + row * 0.0001, 120.0 + row % 7, 14.5, 100 - row % 100});
        }
    }
    return db.Database().commit() && ok;
}

QString CLmProjectGenerator::NewProjectID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString CLmProjectGenerator::TaskGuid(const SOptions& options, int mission)
{
    return options.strProjID + QStringLiteral("-task-%1").arg(mission);
}
