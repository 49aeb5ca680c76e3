#pragma once

#include <QByteArray>

// One GGA position report, as the receiver sent it.
struct SLmGgaFix
{
    double dUtcSeconds = 0.0;  // time of day, seconds since 00:00 UTC
    double dLatitude = 0.0;    // ddmm.mmmm, negative south; 0 without a fix
    double dLongitude = 0.0;   // dddmm.mmmm, negative west; 0 without a fix
    int nQuality = 0;          // fix quality indicator
    int nSatellites = 0;
    double dHdop = 0.0;
    double dAltitude = 0.0;    // metres above mean sea level
};

// Reads the body of a GGA sentence (any talker: "GPGGA", "GNGGA", ...; the
// framing and checksum are CLmNmeaSentence's job). A report without a fix
// has empty position fields and reads as position 0.
class CLmGgaReader
{
public:
    static bool IsGga(const QByteArray& body);
    // False when the body is not a GGA sentence or a field is malformed or
    // out of range; fix is left untouched then.
    static bool Read(const QByteArray& body, SLmGgaFix& fix);
    // The GGA body for a fix (talker "GP"); used by receivers and emulators.
    static QByteArray Write(const SLmGgaFix& fix);
};
