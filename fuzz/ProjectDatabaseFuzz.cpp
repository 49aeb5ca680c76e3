// Fuzz entry point for the readers of project and mission databases. The
// input is written as a project's project database and as its mission
// database, then read by every reader of the hub: the project scan, the
// details page's mission list and the flight-data uploader. Checked for every
// input: each reader returns (a hostile file is refused or its statements
// stopped, never run for ever) and no project has more flown missions than
// missions.
#include "CLmControl.h"
#include "CLmFlightUploadState.h"
#include "CLmLocalProjectReader.h"
#include "FuzzCheck.h"
#include "LmLocalMissions.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>

namespace {

// QtSql loads its SQLite driver only with an application object.
void ensureApplication()
{
    static int argc = 1;
    static char name[] = "fuzz_project_database";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
}

void writeFile(const QString& path, const uint8_t* data, std::size_t size)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(reinterpret_cast<const char*>(data), qint64(size));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    ensureApplication();
    static QTemporaryDir dir;
    const QString projectFile = dir.filePath(QStringLiteral("Fuzz.proj"));
    const QString missionFile = CLmControl::GetInstance()->GetFlightMissionFilePath(projectFile);
    writeFile(projectFile, data, size);
    writeFile(missionFile, data, size);

    const SLocalProjectFile read =
        CLmLocalProjectReader::Read(projectFile, QStringLiteral("1"), CLmLocalProjectReader::WithCities);
    for (const SProjInfor& project : read.listProjects)
        require(project.iFlownCount <= project.iMissionCount);
    LmLocalMissions::Read(projectFile);
    for (const CLmFlightUploadState::SMission& mission : CLmFlightUploadState::PendingMissions(missionFile))
        CLmFlightUploadState::NextBatch(missionFile, mission.iMissionID, 50);
    return 0;
}
