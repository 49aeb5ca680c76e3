#include "NoflyZoneSeeder.h"

// glib names a struct member "signals", which Qt defines as a keyword.
#undef signals
#include <geonames.h>

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <cmath>

namespace {

enum EZoneType { Airport = 1, Restricted = 2, Heliport = 3 };

struct SZoneKind
{
    EZoneType type;
    guint minPopulation;
    const char* nameSuffix;
    char idLetter;
    double radiusM;
    // Offset of the zone's centre from the city centre, in degrees.
    double offsetDeg;
};

const SZoneKind kKinds[] = {
    {Airport, 150000, " Airport", 'A', 5000.0, 0.08},
    {Restricted, 1000000, " Restricted Area", 'R', 2500.0, -0.03},
    {Heliport, 500000, " Heliport", 'H', 1000.0, 0.01},
};

// Zones were entered over 2025, one every 97 minutes, so updates in a later
// session are always newer.
const QDateTime kFirstEntry(QDate(2025, 1, 6), QTime(8, 0), Qt::UTC);
constexpr int kEntryStepMinutes = 97;

QString TimeText(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString CompactJson(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

// A circle for airports and heliports, a hexagon for restricted areas.
QString AreaText(const SZoneKind& kind, double lat, double lng)
{
    if (kind.type != Restricted)
        return CompactJson({{"type", "circle"}, {"lat", lat}, {"lng", lng}, {"radius", kind.radiusM}});
    QJsonArray points;
    const double latStep = kind.radiusM / 111200.0;
    const double lngStep = latStep / std::max(0.1, std::cos(lat * M_PI / 180.0));
    for (int corner = 0; corner < 6; ++corner) {
        const double angle = corner * M_PI / 3.0;
        points.append(QJsonArray{lat + latStep * std::sin(angle), lng + lngStep * std::cos(angle)});
    }
    return CompactJson({{"type", "polygon"}, {"points", points}});
}

QString Continent(const QString& timezone)
{
    return timezone.section(QLatin1Char('/'), 0, 0);
}

QString NameCode(const QString& city)
{
    QString letters;
    for (const QChar c : city) {
        if (c.isLetter() && c.unicode() < 128)
            letters.append(c.toUpper());
    }
    letters.append(QStringLiteral("XXX"));
    return letters.left(3);
}

QJsonObject Zone(const SZoneKind& kind, GeonamesCity* city, int serial)
{
    const QString name = QString::fromUtf8(geonames_city_get_name(city));
    const QString countryCode = QString::fromUtf8(geonames_city_get_country_code(city));
    const double lat = geonames_city_get_latitude(city) + kind.offsetDeg;
    const double lng = geonames_city_get_longitude(city) + kind.offsetDeg;
    const QDateTime entered = kFirstEntry.addSecs(qint64(serial) * kEntryStepMinutes * 60);
    const bool airport = kind.type == Airport;
    const int level = geonames_city_get_population(city) >= 1000000 ? 1 : (airport ? 2 : 3);
    return QJsonObject{
        {"name", QString(name + QLatin1String(kind.nameSuffix))},
        {"elevation", double((serial * 37) % 1500)},
        {"level", level},
        {"enable", 1},
        {"created_at", TimeText(entered)},
        {"continent", Continent(QString::fromUtf8(geonames_city_get_timezone(city)))},
        {"country", QString::fromUtf8(geonames_city_get_country(city))},
        {"region", QString::fromUtf8(geonames_city_get_state(city))},
        {"city", name},
        {"scheduled_service", airport ? "yes" : "no"},
        {"name_code", NameCode(name)},
        {"notes", airport ? QStringLiteral("Controlled airspace") : QStringLiteral("Flights need a permit")},
        {"type", int(kind.type)},
        {"local_id", QStringLiteral("%1-%2%3").arg(countryCode).arg(kind.idLetter).arg(serial, 5, 10, QLatin1Char('0'))},
        {"num_runway", airport ? 1 + serial % 4 : 0},
        {"revision_num", 1},
        {"effective_date", TimeText(entered.addDays(1))},
        {"updated_at", TimeText(entered)},
        {"area", AreaText(kind, lat, lng)},
        {"gps_code", QString(countryCode + NameCode(name))},
        {"open_time", airport ? QStringLiteral("00:00-24:00") : QStringLiteral("06:00-22:00")},
        {"open_altitude", airport ? 0.0 : 120.0},
        {"version", "1.0"},
        {"user_id", 0},
        {"csv_id", serial},
    };
}

}  // namespace

namespace NoflyZoneSeeder {

QJsonArray Zones()
{
    QJsonArray zones;
    const int count = geonames_get_n_cities();
    for (int index = 0; index < count; ++index) {
        GeonamesCity* city = geonames_get_city(index);
        if (!city)
            continue;
        for (const SZoneKind& kind : kKinds) {
            if (geonames_city_get_population(city) >= kind.minPopulation)
                zones.append(Zone(kind, city, zones.size() + 1));
        }
        geonames_city_free(city);
    }
    return zones;
}

QJsonArray DemoLifts(const QJsonArray& zones)
{
    if (zones.isEmpty())
        return {};
    const QJsonObject zone = zones.first().toObject();
    return QJsonArray{QJsonObject{
        {"id", "LIFT-00001"},
        {"name", QString(QStringLiteral("Survey permit ") + zone.value(QStringLiteral("name")).toString())},
        {"user_id", 1},
        {"area", zone.value(QStringLiteral("area"))},
        {"begin_at", "2025-06-01 00:00:00"},
        {"expired_at", "2030-12-31 23:59:59"},
        {"status", 1},
        {"Notes", "Granted for the demo survey projects"},
        {"local_ids", zone.value(QStringLiteral("local_id"))},
        {"explain", "Below 120 m, daylight only"},
    }};
}

}  // namespace NoflyZoneSeeder
