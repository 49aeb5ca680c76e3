#pragma once

#include <QDateTime>
#include <QString>

// Writes realistic project folders: a project database with survey areas
// and flight tasks, and a mission database with missions and flight-log
// rows, laid out as the project store keeps them. Used by the generator
// program, the tests, the benchmarks and the cloud emulator's demo data.
class CLmProjectGenerator
{
public:
    struct SOptions
    {
        QString strProjID;
        QString strProjName;
        QString strUserID;
        QDateTime updatedAt;
        int iSurveyAreas = 2;
        int iMissions = 10;
        // Missions that have flight-log rows (the first ones).
        int iFlownMissions = 6;
        int iLogRowsPerFlight = 20;
        double dHomeLat = 47.3769;
        double dHomeLng = 8.5417;
    };

    // Writes <folder>/<name>.proj and <folder>/<name>.db, both last modified
    // at the update time; the folder is created. Returns the project file path, or an empty text on failure.
    static QString WriteProject(const QString& folder, const SOptions& options);
    // Writes only the project database at filePath.
    static bool WriteProjectDatabase(const QString& filePath, const SOptions& options);
    static bool WriteMissionDatabase(const QString& filePath, const SOptions& options);

    // A store's files were last written when their project was last changed.
    static bool SetModificationTime(const QString& filePath, const QDateTime& time);

    // A new project id in the form the planning application uses.
    static QString NewProjectID();
    static QString TaskGuid(const SOptions& options, int mission);
};
