#pragma once

#include "CSkyCloudProcess.h"

#include <QByteArray>
#include <QJsonArray>
#include <QString>

// skycloud with demo pilot one signed in (the stored session of this test
// process) and its demo project "Riverside Farm" as a project download
// leaves it on a computer: the project database alone, without a mission
// database.
class CDemoProjectCloud
{
public:
    static constexpr char ProjectName[] = "Riverside Farm";

    // Starts the emulator, points the hub at it, signs in and fetches the
    // project file.
    bool Start();
    QByteArray BaseUrl() const;
    QString ProjectId() const;
    // Writes the project file to <root>/<name>/<name>.proj and returns its path.
    QString WriteProjectFile(const QString& root) const;
    // The "data" array of a signed-in call.
    QJsonArray Rows(const QByteArray& path, const QByteArray& formBody);

private:
    CSkyCloudProcess m_cloud;
    QByteArray m_token;
    QString m_strProjectId;
    QByteArray m_projectFile;
};
