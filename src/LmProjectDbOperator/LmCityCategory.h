#pragma once

#include "PointLatLng.h"

#include <QHash>
#include <QString>
#include <QVector>

// Names the city nearest to a position, offline, from the city table that
// the geonames library carries (about 24,000 places with coordinates). The
// table is read once into a grid of one-degree cells; lookups are read-only
// and safe from every thread.
class LmCityCategory
{
public:
    // Positions farther than this from every known city have no city name.
    static constexpr double MaxDistanceKm = 200.0;

    static LmCityCategory& instance();

    // The nearest city's name, or an empty text for an invalid position or
    // one far from every city.
    QString GetCityName(const PointLatLng& point) const;
    int CityCount() const;
    // Names the city table and the language of its names: readings that
    // hold city names are only as good as the table they were made with.
    // Known without loading the table.
    static QString TableVersion();

private:
    struct City
    {
        QString name;
        double lat;
        double lng;
    };

    LmCityCategory();
    void Load();
    static qint64 CellKey(int latCell, int lngCell);
    static double DistanceKm(double lat1, double lng1, double lat2, double lng2);
    void SearchCell(int latCell, int lngCell, const PointLatLng& point, double& bestKm, int& bestIndex) const;

    QVector<City> m_cities;
    QHash<qint64, QVector<int>> m_grid;
};
