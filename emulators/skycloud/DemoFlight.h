#pragma once

#include "FlightStore.h"

#include <QDateTime>
#include <QString>

// One demo survey flight over a block: take-off at the block's home point, a
// climb to survey height on the way to the first line, parallel lines across
// the block at cruise speed, the way back and the landing. It yields
// flight-log rows every few seconds and a photo position at a fixed spacing
// along the lines, keyed like the columns of a mission database.
class DemoFlight
{
public:
    struct Plan
    {
        QString projectId;
        QString taskId;
        qint64 missionId = 0;
        QString missionName;
        QDateTime start;
        double homeLat = 0;
        double homeLng = 0;
        // Shifts the lines, so that a block flown again gets another track.
        int variant = 0;
        qint64 firstLogId = 1;
        qint64 firstPositionId = 1;
    };

    static FlightStore::MissionUpload Build(const Plan& plan);
};
