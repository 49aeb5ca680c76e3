#include "LmBaseStationMath.h"

#include <QGeoCoordinate>

#include <cmath>

namespace LmBaseStationMath {

double DegreesFromDms(double degrees, double minutes, double seconds)
{
    // A southern or western point is entered with its sign on the degrees.
    const double sign = std::signbit(degrees) ? -1.0 : 1.0;
    return sign * (std::fabs(degrees) + minutes / 60.0 + seconds / 3600.0);
}

double PackDdmm(double degrees)
{
    double whole = 0;
    const double fraction = std::modf(degrees, &whole);
    return whole * 100.0 + fraction * 60.0;
}

double DegreesFromDdmm(double ddmm)
{
    const double whole = std::trunc(ddmm / 100.0);
    return whole + (ddmm - whole * 100.0) / 60.0;
}

double DistanceBetweenTwoLatLng(double lat1, double lng1, double lat2, double lng2)
{
    return QGeoCoordinate(lat1, lng1).distanceTo(QGeoCoordinate(lat2, lng2)) / 1000.0;
}

double Deviation(const SGeoPoint& entered, const SGeoPoint& station)
{
    const double horizontal = DistanceBetweenTwoLatLng(entered.lat, entered.lng, station.lat, station.lng) * 1000.0;
    const double vertical = entered.altitude - station.altitude;
    return std::sqrt(horizontal * horizontal + vertical * vertical);
}

bool IsDeviationAcceptable(const SGeoPoint& entered, const SGeoPoint& station)
{
    return Deviation(entered, station) < kMaxDeviationM;
}

}  // namespace LmBaseStationMath
