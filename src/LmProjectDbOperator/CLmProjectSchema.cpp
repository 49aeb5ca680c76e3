#include "CLmProjectSchema.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

QStringList CLmProjectSchema::ProjectStatements()
{
    return {
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id TEXT PRIMARY KEY, project_name TEXT NOT NULL, user_id TEXT NOT NULL,"
                       " created_at TEXT NOT NULL, updated_at TEXT NOT NULL, version INTEGER NOT NULL DEFAULT 0)")
            .arg(QLatin1String(ProjectTableName)),
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, project_id TEXT NOT NULL,"
                       " survey_area_name TEXT NOT NULL, survey_area_guid TEXT NOT NULL UNIQUE,"
                       " survey_area_coordinate_points TEXT NOT NULL DEFAULT '[]',"
                       " home_lat REAL NOT NULL DEFAULT 0, home_lng REAL NOT NULL DEFAULT 0)")
            .arg(QLatin1String(SurveyAreaTableName)),
        QStringLiteral("CREATE INDEX IF NOT EXISTS idx_survey_area_project ON %1(project_id)")
            .arg(QLatin1String(SurveyAreaTableName)),
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, flight_task_guid TEXT NOT NULL UNIQUE,"
                       " survey_area_guid TEXT NOT NULL, task_name TEXT NOT NULL, created_at TEXT NOT NULL)")
            .arg(QLatin1String(FlightTaskTableName)),
    };
}

QStringList CLmProjectSchema::MissionStatements()
{
    return {
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, flight_task_id TEXT NOT NULL,"
                       " project_id TEXT NOT NULL, mission_name TEXT NOT NULL, created_at TEXT NOT NULL)")
            .arg(QLatin1String(FlightMissionTableName)),
        QStringLiteral("CREATE INDEX IF NOT EXISTS idx_flight_mission_project ON %1(project_id)")
            .arg(QLatin1String(FlightMissionTableName)),
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, flight_mission_id INTEGER NOT NULL,"
                       " log_time TEXT NOT NULL, lat REAL NOT NULL, lng REAL NOT NULL, alt REAL NOT NULL,"
                       " speed REAL NOT NULL DEFAULT 0, battery INTEGER NOT NULL DEFAULT 0)")
            .arg(QLatin1String(FlightLogTableName)),
        QStringLiteral("CREATE INDEX IF NOT EXISTS idx_flight_log_mission ON %1(flight_mission_id)")
            .arg(QLatin1String(FlightLogTableName)),
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, flight_mission_id INTEGER NOT NULL,"
                       " log_time TEXT NOT NULL, flight_mode INTEGER NOT NULL DEFAULT 0,"
                       " gps_fix INTEGER NOT NULL DEFAULT 0, satellites INTEGER NOT NULL DEFAULT 0,"
                       " voltage REAL NOT NULL DEFAULT 0, current REAL NOT NULL DEFAULT 0)")
            .arg(QLatin1String(UasStatusTableName)),
        QStringLiteral("CREATE INDEX IF NOT EXISTS idx_uas_status_mission ON %1(flight_mission_id)")
            .arg(QLatin1String(UasStatusTableName)),
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                       " id INTEGER PRIMARY KEY AUTOINCREMENT, flight_mission_id INTEGER NOT NULL,"
                       " photo_index INTEGER NOT NULL, shot_time TEXT NOT NULL, lat REAL NOT NULL, lng REAL NOT NULL,"
                       " alt REAL NOT NULL, roll REAL NOT NULL DEFAULT 0, pitch REAL NOT NULL DEFAULT 0,"
                       " yaw REAL NOT NULL DEFAULT 0)")
            .arg(QLatin1String(PosDataTableName)),
        QStringLiteral("CREATE INDEX IF NOT EXISTS idx_pos_data_mission ON %1(flight_mission_id)")
            .arg(QLatin1String(PosDataTableName)),
    };
}

bool CLmProjectSchema::CreateProjectTables(CLmDataBase& db)
{
    return ExecAll(db, ProjectStatements());
}

bool CLmProjectSchema::CreateMissionTables(CLmDataBase& db)
{
    return ExecAll(db, MissionStatements());
}

QStringList CLmProjectSchema::ProjectTables()
{
    return {QLatin1String(ProjectTableName), QLatin1String(SurveyAreaTableName), QLatin1String(FlightTaskTableName)};
}

QStringList CLmProjectSchema::MissionTables()
{
    return {QLatin1String(FlightMissionTableName), QLatin1String(FlightLogTableName)};
}

bool CLmProjectSchema::ExecAll(CLmDataBase& db, const QStringList& statements)
{
    for (const QString& statement : statements) {
        if (!db.Exec(statement))
            return false;
    }
    return true;
}
