#include "DemoSeeder.h"

#include "CLmDataBase.h"
#include "CLmProjectGenerator.h"
#include "CloudLog.h"
#include "DemoFlight.h"
#include "FlightStore.h"
#include "LmProjectConstants.h"
#include "ProjectStore.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

#include <map>

namespace {

struct DemoProject
{
    qint64 account;
    const char* name;
    double lat;
    double lng;
    int tasks;
};

const DemoProject kProjects[] = {{1, "Riverside Farm", 30.66, 104.06, 8},
                                 {1, "Quarry North", 39.90, 116.40, 12},
                                 {1, "Harbour Survey", 22.54, 114.06, 5},
                                 {2, "Vineyard East", 46.20, 6.14, 6},
                                 {2, "Solar Park", 48.14, 11.58, 10}};

// The flown missions of every demo project, by the index of their flight
// task: the second task was flown twice.
const int kFlownTasks[] = {0, 1, 1};

// Names the demo project ids, so that every new data folder has the same.
const QUuid kDemoIdNamespace(QStringLiteral("{5b0f3c2e-8a41-4d7e-9c6b-2f1e0d3a7b94}"));

QString DemoProjectId(const DemoProject& demo)
{
    const QString name = QStringLiteral("%1/%2").arg(demo.account).arg(QLatin1String(demo.name));
    return QUuid::createUuidV5(kDemoIdNamespace, name).toString(QUuid::WithoutBraces);
}

// The flights took place in the morning of the day before the project's last change.
QDateTime FlightStart(const QDateTime& projectUpdated, int flight)
{
    return QDateTime(projectUpdated.date().addDays(-1), QTime(9, 0), Qt::UTC).addSecs(flight * 90 * 60);
}

}  // namespace

DemoSeeder::DemoSeeder(ProjectStore& projects, FlightStore& flights)
    : m_projects(projects)
    , m_flights(flights)
{
}

void DemoSeeder::Seed()
{
    QTemporaryDir work;
    const QDateTime base = QDateTime::currentDateTimeUtc().addDays(-10);
    std::map<qint64, AccountFlights> flights;
    int day = 0;
    for (const DemoProject& demo : kProjects) {
        CLmProjectGenerator::SOptions options;
        options.strProjID = DemoProjectId(demo);
        options.strProjName = QString::fromUtf8(demo.name);
        options.strUserID = QString::number(demo.account);
        options.updatedAt = base.addDays(day++);
        options.iMissions = demo.tasks;
        options.dHomeLat = demo.lat;
        options.dHomeLng = demo.lng;
        const QString path = work.filePath(options.strProjName + QLatin1String(ProjectSuffix));
        if (!CLmProjectGenerator::WriteProjectDatabase(path, options) || !StoreProject(demo.account, path)) {
            qCWarning(lcSkyCloud) << "cannot seed the demo project" << options.strProjName;
            continue;
        }
        PlanFlights(path, options, flights[demo.account]);
    }
    // One transaction per account: a seeding waits for the disk only once.
    for (const auto& [accountId, planned] : flights) {
        if (!m_flights.Upload(accountId, planned.missions))
            qCWarning(lcSkyCloud) << "cannot seed the demo flights of account" << accountId;
    }
}

bool DemoSeeder::StoreProject(qint64 accountId, const QString& filePath)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) && m_projects.Upload(accountId, file.readAll()).error.isEmpty();
}

void DemoSeeder::PlanFlights(const QString& filePath, const CLmProjectGenerator::SOptions& project,
                             AccountFlights& account)
{
    int flight = 0;
    for (const int task : kFlownTasks) {
        DemoFlight::Plan plan;
        plan.projectId = project.strProjID;
        plan.taskId = CLmProjectGenerator::TaskGuid(project, task);
        plan.missionId = account.nextMissionId++;
        plan.missionName = QStringLiteral("Mission %1").arg(flight + 1);
        plan.start = FlightStart(project.updatedAt, flight);
        const Block block = BlockOfTask(filePath, plan.taskId);
        plan.homeLat = block.homeLat;
        plan.homeLng = block.homeLng;
        plan.variant = flight++;
        plan.firstLogId = account.nextLogId;
        plan.firstPositionId = account.nextPositionId;
        const FlightStore::MissionUpload mission = DemoFlight::Build(plan);
        account.nextLogId += mission.rows.size();
        account.nextPositionId += mission.positions.size();
        account.missions.append(mission);
    }
}

DemoSeeder::Block DemoSeeder::BlockOfTask(const QString& filePath, const QString& taskId)
{
    CLmDataBase db(filePath);
    QSqlQuery row(db.Database());
    Block block;
    if (db.Open(true)
        && db.Exec(QStringLiteral("SELECT s.home_lat, s.home_lng FROM %1 t JOIN %2 s"
                                  " ON s.survey_area_guid = t.survey_area_guid WHERE t.flight_task_guid = ?")
                       .arg(QLatin1String(FlightTaskTableName), QLatin1String(SurveyAreaTableName)),
                   {taskId}, &row)
        && row.next())
        block = {row.value(0).toDouble(), row.value(1).toDouble()};
    return block;
}
