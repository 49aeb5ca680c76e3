#pragma once

#include "LmProjSynchTypes.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

// What one local project file holds for the signed-in user.
struct SLocalProjectFile
{
    QList<SProjInfor> listProjects;
    QList<QPair<QString, QStringList>> listCities;  // project id, cities of its survey areas
    // Every statement succeeded: the reading is all the file holds. A locked
    // or damaged database gives an incomplete one.
    bool bComplete = false;
};

// Reads a local project file and its mission database: the user's project
// rows, their mission and flown-mission counts and, when asked, the cities of
// their survey areas.
class CLmLocalProjectReader
{
public:
    enum ECities { WithoutCities, WithCities };

    // A project without a mission database has no missions to count.
    static SLocalProjectFile Read(const QString& filePath, const QString& userId, ECities cities);
};
