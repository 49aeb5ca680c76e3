#pragma once

// Coordinate arithmetic of the base-station page: the station takes
// latitudes and longitudes as degrees*100 + minutes ("ddmm"), and a point is
// only sent without asking when it lies near the station's own position.
namespace LmBaseStationMath {

// A point entered as degrees, minutes and seconds, in degrees.
double DegreesFromDms(double degrees, double minutes, double seconds);
// degrees*100 + minutes, the sign kept on both parts: -22.5 gives -2230.0.
double PackDdmm(double degrees);
// The inverse of PackDdmm, for positions the station reports in ddmm.
double DegreesFromDdmm(double ddmm);
// Ellipsoidal distance in kilometres (WGS 84 through Qt Positioning).
double DistanceBetweenTwoLatLng(double lat1, double lng1, double lat2, double lng2);

// A position in degrees and metres above the ellipsoid.
struct SGeoPoint {
    double lat = 0;
    double lng = 0;
    double altitude = 0;
};

// Horizontal and vertical difference combined, in metres.
double Deviation(const SGeoPoint& entered, const SGeoPoint& station);
// Below this deviation a point is taken without asking.
constexpr double kMaxDeviationM = 100.0;
bool IsDeviationAcceptable(const SGeoPoint& entered, const SGeoPoint& station);

}  // namespace LmBaseStationMath
