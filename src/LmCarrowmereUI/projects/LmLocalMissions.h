#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

// What this computer holds of one project's missions, read read-only from
// the project database and the mission database next to it.
struct SLocalMissions
{
    // "flight_task_guid" of every flight task, in the project's order; the
    // cloud lists a task's missions under this id.
    QStringList listTaskIds;
    // Missions with at least one flight-log row.
    QSet<QString> setMissionsWithLog;
};

namespace LmLocalMissions {

// A missing project file reads as no task, a missing mission database as no
// mission with a flight log. Opens nothing for writing and creates no file,
// so it may run on any thread.
SLocalMissions Read(const QString& projectFilePath);

}  // namespace LmLocalMissions
