#include "BenchStore.h"

#include "CLmProjectGenerator.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

namespace BenchStore {

void UseHome(const QTemporaryDir& home)
{
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(home.filePath(QStringLiteral("cache"))));
}

bool GenerateProjects(const QString& root, int count)
{
    const QDateTime base = QDateTime::fromString(QStringLiteral("2026-01-01 08:00:00"), QLatin1String(DateTimeSFormat));
    for (int i = 0; i < count; ++i) {
        CLmProjectGenerator::SOptions options;
        options.strProjID = QStringLiteral("bench-%1").arg(i);
        options.strProjName = QStringLiteral("Bench %1").arg(i, 5, 10, QLatin1Char('0'));
        options.strUserID = QStringLiteral("1");
        options.updatedAt = base.addSecs(i * 60);
        options.iMissions = 10;
        options.iFlownMissions = 6;
        options.iLogRowsPerFlight = 5;
        options.dHomeLat = 20.0 + (i % 40);
        options.dHomeLng = 80.0 + (i % 50);
        if (CLmProjectGenerator::WriteProject(root + QLatin1Char('/') + options.strProjName, options).isEmpty())
            return false;
    }
    return true;
}

}  // namespace BenchStore
