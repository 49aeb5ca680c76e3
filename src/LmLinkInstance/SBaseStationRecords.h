#pragma once

#include <QMetaType>
#include <QString>

// Replies of the base station, as CLmBaseStationLink::m_linkHelper delivers
// them. Latitudes and longitudes are in the receiver's ddmm form: degrees*100
// plus minutes, negative south of the equator and west of Greenwich
// (-22.5 degrees is -2230.0).

// The recording of raw static data.
struct SStaticFileState
{
    QString strFileName;    // file being recorded, without ".GNS"; empty when none
    QString strCreateTime;  // its creation time, ISO 8601 in UTC ("2026-11-23T18:11:09Z"); empty when none
    int nRecording = 0;     // 1 while recording, else 0
};

// Identity and work of the station.
struct SBaseStationMainFrame
{
    enum EWorkMode { WorkModeBase = 0, WorkModeRover = 1, WorkModeStatic = 2 };
    int nWorkMode = WorkModeBase;  // EWorkMode: shown as "Base", "Rover" or "Static"
    int nBattery = 0;              // battery charge in percent, 0..100
    int nFirmwareVersion = 0;      // firmware version number, e.g. 20314
    QString strSerialNumber;       // serial number, e.g. "SKB2611000123"
};

// The NTRIP caster the station logs in to as a rover.
struct SSCasterParam
{
    QString strHost;
    int nPort = 0;
    QString strAccount;
    QString strPassword;
    QString strMountPoint;
};

// One position report of the station (an NMEA GGA sentence).
struct SGGAParam
{
    double dLatitude = 0.0;    // ddmm.mmmm, signed
    double dLongitude = 0.0;   // dddmm.mmmm, signed
    double dAltitude = 0.0;    // metres above mean sea level
    int nQuality = 0;          // GGA fix quality indicator: 0 invalid, 1 standalone, 4 RTK fixed, 5 RTK float ...
    int nSatellites = 0;       // satellites in use
    double dPrecision = 0.0;   // horizontal dilution of precision
    int nRate = 0;             // reports per second, from the times of the last two reports; 0 until known
};

// The station's own single-point position and the corrections it sends.
struct SBaseStationLoction
{
    double dLatitude = 0.0;    // ddmm.mmmm, signed
    double dLongitude = 0.0;   // dddmm.mmmm, signed
    double dAltitude = 0.0;    // metres above mean sea level
    QString strDiffFormat;     // "RTCM30" or "RTCM32"
};

Q_DECLARE_METATYPE(SStaticFileState)
Q_DECLARE_METATYPE(SBaseStationMainFrame)
Q_DECLARE_METATYPE(SSCasterParam)
Q_DECLARE_METATYPE(SGGAParam)
Q_DECLARE_METATYPE(SBaseStationLoction)
