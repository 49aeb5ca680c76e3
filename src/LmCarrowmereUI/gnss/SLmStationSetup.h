#pragma once

#include "LmBaseStationMath.h"

#include <QString>

// What the settings sub-pages hold when "Next"/"Save" is pressed.
struct SLmStationSetup {
    // False when a field of the mode is missing or out of range.
    bool bComplete = false;
    // The point as entered, in degrees and metres (altitude of the point).
    LmBaseStationMath::SGeoPoint entered;
    double stationVertical = 0;  // antenna height above the point, metres
    int elevationMask = 15;  // degrees
    int rate = 1;  // Hz
    int gnssType = 7;  // the station's constellation code
    // The raw-data sub-page of "CORS & PPK".
    int rawRate = 1;
    int rawElevationMask = 15;
    // The CORS sub-page.
    QString host;
    int port = 0;
    QString account;
    QString password;
    QString mountPoint;
};
