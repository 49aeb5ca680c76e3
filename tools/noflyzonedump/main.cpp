// skynoflyzone: reads a published no-fly-zone file as the sibling
// applications do (deciphered with the deployment key) and prints what it
// holds, so a person can see what the hub published.
#include "CLmDataBase.h"
#include "CLmNoflyZoneMgr.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("skynoflyzone"));
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*.debug=false"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Prints the zone and lift counts of a published NoflyZone.dat, the newest zones and the "
                       "zones named."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The published NoflyZone.dat."));
    parser.addPositionalArgument(QStringLiteral("local_id"), QStringLiteral("Zones to show."), QStringLiteral("[local_id...]"));
    parser.process(app);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        parser.showHelp(1);

    QTemporaryDir dir;
    const QString plain = dir.filePath(QStringLiteral("NoflyZone.db"));
    if (!CLmNoflyZoneMgr(plain).DecryptionNoflyFile(arguments.first(), plain)) {
        std::fprintf(stderr, "skynoflyzone: %s is not a zone file enciphered with the deployment key\n",
                     qPrintable(arguments.first()));
        return 1;
    }
    CLmDataBase db(plain);
    if (!db.Open(true))
        return 1;
    std::printf("zones: %d\nlifts: %d\n", db.SelectValue(QStringLiteral("SELECT count(*) FROM no_fly_zone")).toInt(),
                db.SelectValue(QStringLiteral("SELECT count(*) FROM lift_no_fly_zone")).toInt());
    QSqlQuery zones(db.Database());
    const QStringList named = arguments.mid(1);
    QStringList marks;
    QVariantList values;
    for (const QString& localId : named) {
        marks.append(QStringLiteral("?"));
        values.append(localId);
    }
    const QString where = named.isEmpty() ? QStringLiteral("ORDER BY updated_at DESC LIMIT 3")
                                          : QStringLiteral("WHERE local_id IN (%1)").arg(marks.join(QLatin1Char(',')));
    db.Exec(QStringLiteral("SELECT local_id, name, city, country, updated_at FROM no_fly_zone ") + where, values, &zones);
    while (zones.next()) {
        std::printf("%s  %s  (%s, %s)  updated %s\n", qPrintable(zones.value(0).toString()),
                    qPrintable(zones.value(1).toString()), qPrintable(zones.value(2).toString()),
                    qPrintable(zones.value(3).toString()), qPrintable(zones.value(4).toString()));
    }
    QSqlQuery lifts(db.Database());
    db.Exec(QStringLiteral("SELECT id, name, local_ids, expired_at FROM lift_no_fly_zone ORDER BY id"), {}, &lifts);
    while (lifts.next()) {
        std::printf("lift %s  %s  over %s  until %s\n", qPrintable(lifts.value(0).toString()),
                    qPrintable(lifts.value(1).toString()), qPrintable(lifts.value(2).toString()),
                    qPrintable(lifts.value(3).toString()));
    }
    return 0;
}
