#pragma once

#include <QString>

// A surveyed point a base station can stand on.
struct SLmReferencePoint {
    double lng = 0;  // degrees
    double lat = 0;  // degrees
    double altitude = 0;  // metres
    double stationVertical = 0;  // antenna height above the point, metres
    QString name;
};
