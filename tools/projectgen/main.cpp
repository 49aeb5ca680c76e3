// skyprojectgen: writes realistic project folders for tests, demos and
// benchmarks.
#include "CLmProjectGenerator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("skyprojectgen"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes project folders with project and mission databases."));
    parser.addHelpOption();
    const QCommandLineOption outOption(QStringLiteral("out"), QStringLiteral("Project root to write into."),
                                       QStringLiteral("DIR"));
    const QCommandLineOption countOption(QStringLiteral("count"), QStringLiteral("Number of projects (default 5)."),
                                         QStringLiteral("N"), QStringLiteral("5"));
    const QCommandLineOption missionsOption(QStringLiteral("missions"),
                                            QStringLiteral("Missions per project (default 10)."), QStringLiteral("N"),
                                            QStringLiteral("10"));
    const QCommandLineOption userOption(QStringLiteral("user"), QStringLiteral("Owner's user id (default 1)."),
                                        QStringLiteral("ID"), QStringLiteral("1"));
    parser.addOptions({outOption, countOption, missionsOption, userOption});
    parser.process(app);
    if (!parser.isSet(outOption)) {
        std::fprintf(stderr, "skyprojectgen: --out DIR is required\n");
        return 2;
    }

    const int count = parser.value(countOption).toInt();
    const QDateTime base = QDateTime::currentDateTimeUtc().addDays(-count);
    for (int i = 0; i < count; ++i) {
        CLmProjectGenerator::SOptions options;
        options.strProjID = CLmProjectGenerator::NewProjectID();
        options.strProjName = QStringLiteral("Survey %1").arg(i + 1, 4, 10, QLatin1Char('0'));
        options.strUserID = parser.value(userOption);
        options.updatedAt = base.addSecs(i * 3600);
        options.iMissions = parser.value(missionsOption).toInt();
        options.iFlownMissions = options.iMissions * 2 / 3;
        // Spread the projects over a few regions so the city filter has work.
        options.dHomeLat = 30.0 + (i % 7) * 3.1;
        options.dHomeLng = 100.0 + (i % 5) * 4.3;
        const QString folder = QDir(parser.value(outOption)).filePath(options.strProjName);
        if (CLmProjectGenerator::WriteProject(folder, options).isEmpty()) {
            std::fprintf(stderr, "skyprojectgen: cannot write %s\n", qPrintable(folder));
            return 1;
        }
    }
    std::printf("%d projects written to %s\n", count, qPrintable(parser.value(outOption)));
    return 0;
}
