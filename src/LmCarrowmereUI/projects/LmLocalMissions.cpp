#include "LmLocalMissions.h"

#include "CLmControl.h"
#include "CLmDataBase.h"
#include "LmCarrowmereUILog.h"
#include "LmProjectConstants.h"

#include <QFileInfo>
#include <QSqlQuery>

namespace LmLocalMissions {

namespace {

// First column of every row of sql in the database at filePath, opened
// read-only; empty when the file or the table is missing.
QStringList ColumnValues(const QString& filePath, const QString& table, const QString& sql)
{
    QStringList values;
    if (!QFileInfo(filePath).isFile())
        return values;
    CLmDataBase db(filePath);
    QSqlQuery rows(db.Database());
    if (!db.OpenForeign({table}) || !db.TableExists(table))
        return values;
    if (!db.Exec(sql.arg(table), {}, &rows)) {
        qCWarning(lcProjDetails) << "cannot read" << table << "of" << filePath << db.LastError();
        return values;
    }
    while (rows.next())
        values.append(rows.value(0).toString());
    return values;
}

}  // namespace

SLocalMissions Read(const QString& projectFilePath)
{
    SLocalMissions local;
    local.listTaskIds = ColumnValues(projectFilePath, QLatin1String(FlightTaskTableName),
                                     QStringLiteral("SELECT flight_task_guid FROM %1 ORDER BY id"));
    const QString strMissionPath = CLmControl::GetInstance()->GetFlightMissionFilePath(projectFilePath);
    const QStringList listMissions =
        ColumnValues(strMissionPath, QLatin1String(FlightLogTableName),
                     QStringLiteral("SELECT DISTINCT flight_mission_id FROM %1"));
    local.setMissionsWithLog = QSet<QString>(listMissions.begin(), listMissions.end());
    return local;
}

}  // namespace LmLocalMissions
