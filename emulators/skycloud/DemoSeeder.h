#pragma once

#include "CLmProjectGenerator.h"
#include "FlightStore.h"

#include <QList>
#include <QString>

class ProjectStore;

// The demo content of a new data folder: the demo accounts' projects, real
// project databases from the project generator, and in each of them a few
// flown missions with flight logs and photo positions. Ids and tracks are
// the same on every seeding; times are some days before now, so that the
// demo looks recent.
class DemoSeeder
{
public:
    DemoSeeder(ProjectStore& projects, FlightStore& flights);

    void Seed();

private:
    // The demo flights of one account and the next free ids of its
    // missions and rows. Mission ids are unique across its projects, so that
    // a mission id alone, as the hub asks for positions, names one mission.
    struct AccountFlights
    {
        QList<FlightStore::MissionUpload> missions;
        qint64 nextMissionId = 1;
        qint64 nextLogId = 1;
        qint64 nextPositionId = 1;
    };

    struct Block
    {
        double homeLat = 0;
        double homeLng = 0;
    };

    bool StoreProject(qint64 accountId, const QString& filePath);
    static void PlanFlights(const QString& filePath, const CLmProjectGenerator::SOptions& project,
                            AccountFlights& account);
    static Block BlockOfTask(const QString& filePath, const QString& taskId);

    ProjectStore& m_projects;
    FlightStore& m_flights;
};
