#include "LmCityCategory.h"

#include <geonames.h>

#include <clocale>
#include <cmath>

namespace {

constexpr double EarthRadiusKm = 6371.0;
constexpr double KmPerDegreeLat = 111.2;

double Radians(double degrees)
{
    return degrees * M_PI / 180.0;
}

bool IsValid(const PointLatLng& point)
{
    return std::isfinite(point.lat) && std::isfinite(point.lng) && std::abs(point.lat) <= 90.0
           && std::abs(point.lng) <= 180.0;
}

int Cell(double degrees)
{
    return static_cast<int>(std::floor(degrees));
}

}  // namespace

LmCityCategory& LmCityCategory::instance()
{
    static LmCityCategory category;
    return category;
}

LmCityCategory::LmCityCategory()
{
    Load();
}

void LmCityCategory::Load()
{
    const int count = geonames_get_n_cities();
    m_cities.reserve(count);
    for (int i = 0; i < count; ++i) {
        GeonamesCity* city = geonames_get_city(i);
        if (!city)
            continue;
        const City entry{QString::fromUtf8(geonames_city_get_name(city)), geonames_city_get_latitude(city),
                         geonames_city_get_longitude(city)};
        geonames_city_free(city);
        m_grid[CellKey(Cell(entry.lat), Cell(entry.lng))].append(m_cities.size());
        m_cities.append(entry);
    }
}

QString LmCityCategory::GetCityName(const PointLatLng& point) const
{
    if (!IsValid(point))
        return {};
    // Every cell that may hold a city within MaxDistanceKm; near the poles a
    // degree of longitude is short, so more longitude cells are searched.
    const int latReach = static_cast<int>(std::ceil(MaxDistanceKm / KmPerDegreeLat));
    const double cosLat = std::max(0.01, std::cos(Radians(point.lat)));
    const int lngReach = std::min(180, static_cast<int>(std::ceil(latReach / cosLat)));
    const int latCell = Cell(point.lat);
    const int lngCell = Cell(point.lng);
    double bestKm = MaxDistanceKm;
    int bestIndex = -1;
    for (int dLat = -latReach; dLat <= latReach; ++dLat) {
        for (int dLng = -lngReach; dLng <= lngReach; ++dLng)
            SearchCell(latCell + dLat, lngCell + dLng, point, bestKm, bestIndex);
    }
    return bestIndex >= 0 ? m_cities.at(bestIndex).name : QString();
}

// City names come translated into the message language, so the language is
// part of what a name was made with.
QString LmCityCategory::TableVersion()
{
    const char* messages = std::setlocale(LC_MESSAGES, nullptr);
    return QStringLiteral("geonames " SKY_GEONAMES_VERSION " %1 %2")
        .arg(QString::fromLocal8Bit(messages ? messages : ""), QString::fromLocal8Bit(qgetenv("LANGUAGE")));
}

int LmCityCategory::CityCount() const
{
    return m_cities.size();
}

qint64 LmCityCategory::CellKey(int latCell, int lngCell)
{
    // Longitude cells wrap around the date line.
    const int wrapped = ((lngCell + 180) % 360 + 360) % 360 - 180;
    // Both halves as unsigned bits: shifting a negative (southern) latitude
    // cell would be undefined.
    return static_cast<qint64>((quint64(quint32(latCell)) << 32) | quint32(wrapped));
}

double LmCityCategory::DistanceKm(double lat1, double lng1, double lat2, double lng2)
{
    const double dLat = Radians(lat2 - lat1);
    const double dLng = Radians(lng2 - lng1);
    const double a = std::sin(dLat / 2) * std::sin(dLat / 2)
                     + std::cos(Radians(lat1)) * std::cos(Radians(lat2)) * std::sin(dLng / 2) * std::sin(dLng / 2);
    return 2 * EarthRadiusKm * std::asin(std::min(1.0, std::sqrt(a)));
}

void LmCityCategory::SearchCell(int latCell, int lngCell, const PointLatLng& point, double& bestKm,
                                int& bestIndex) const
{
    const auto found = m_grid.constFind(CellKey(latCell, lngCell));
    if (found == m_grid.constEnd())
        return;
    for (int index : found.value()) {
        const City& city = m_cities.at(index);
        const double km = DistanceKm(point.lat, point.lng, city.lat, city.lng);
        if (km <= bestKm) {
            bestKm = km;
            bestIndex = index;
        }
    }
}
