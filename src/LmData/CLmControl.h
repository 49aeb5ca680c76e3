#pragma once

#include <QMutex>
#include <QString>

#include <atomic>

// Process-wide data facts: where the application keeps its data, the
// signed-in user's route (mission) folder and whether the cloud is reachable.
// Safe to use from every thread.
class CLmControl
{
public:
    static CLmControl* GetInstance();

    // $XDG_DATA_HOME/SkyConsole (created on first use), without trailing slash.
    QString GetAppDataDirectory() const;
    // The folder that holds the sibling applications: the configured
    // launcher/application_dir, else the folder of this executable.
    QString GetApplicationDirectory() const;
    // Root of the local project store, one folder per project:
    // <app data>/Projects (created on first use), without trailing slash.
    QString GetProjectDirPath() const;
    // The mission database that belongs to a project file: the file next to
    // it with the same base name and the suffix ".db".
    QString GetFlightMissionFilePath(const QString& projectFilePath) const;

    void SetRouteFolder(const QString& folder);
    QString GetRouteFolder() const;

    void SetNetWorkState(bool connected);
    bool IsNetWorkConnected() const;

private:
    CLmControl() = default;

    mutable QMutex m_mutex;
    QString m_strRouteFolder;
    std::atomic<bool> m_bNetWorkConnected{false};
};
