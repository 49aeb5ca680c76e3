#include "CLmGgaReader.h"

#include "CLmNmeaSentence.h"

#include <QList>

#include <cmath>

namespace {

enum EGgaField {
    FieldAddress,
    FieldTime,
    FieldLatitude,
    FieldNorthSouth,
    FieldLongitude,
    FieldEastWest,
    FieldQuality,
    FieldSatellites,
    FieldHdop,
    FieldAltitude,
    FieldCount
};

bool ReadTime(const QByteArray& text, double& seconds)
{
    if (text.size() < 6)
        return false;
    bool okHours = false, okMinutes = false, okSeconds = false;
    const int hours = text.left(2).toInt(&okHours);
    const int minutes = text.mid(2, 2).toInt(&okMinutes);
    const double secs = text.mid(4).toDouble(&okSeconds);
    if (!okHours || !okMinutes || !okSeconds || hours > 23 || minutes > 59 || secs < 0.0 || secs >= 61.0)
        return false;
    seconds = hours * 3600 + minutes * 60 + secs;
    return true;
}

// "ddmm.mmmm" and its hemisphere letter; both empty when there is no fix.
bool ReadAngle(const QByteArray& text, const QByteArray& hemisphere, int maxDegrees, char positive, char negative,
               double& ddmm)
{
    if (text.isEmpty() && hemisphere.isEmpty()) {
        ddmm = 0.0;
        return true;
    }
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || value < 0.0 || hemisphere.size() != 1)
        return false;
    const double degrees = std::floor(value / 100.0);
    const double minutes = value - degrees * 100.0;
    if (degrees > maxDegrees || minutes >= 60.0)
        return false;
    if (hemisphere.at(0) == positive)
        ddmm = value;
    else if (hemisphere.at(0) == negative)
        ddmm = -value;
    else
        return false;
    return true;
}

// An empty optional field reads as 0.
bool ReadOptionalInt(const QByteArray& text, int& value)
{
    if (text.isEmpty()) {
        value = 0;
        return true;
    }
    bool ok = false;
    value = text.toInt(&ok);
    return ok && value >= 0;
}

bool ReadOptionalDouble(const QByteArray& text, double& value)
{
    if (text.isEmpty()) {
        value = 0.0;
        return true;
    }
    bool ok = false;
    value = text.toDouble(&ok);
    return ok && std::isfinite(value);
}

QByteArray WriteAngle(double ddmm, int degreeDigits, char positive, char negative)
{
    const QByteArray digits = QByteArray::number(std::fabs(ddmm), 'f', 6);
    const int width = degreeDigits + 2 + 1 + 6;  // degrees, minutes, point, decimals
    return digits.rightJustified(width, '0') + ',' + (ddmm < 0.0 ? negative : positive);
}

QByteArray WriteTime(double utcSeconds)
{
    const int whole = static_cast<int>(utcSeconds);
    const double fraction = utcSeconds - whole;
    return QByteArray::number(whole / 3600).rightJustified(2, '0')
           + QByteArray::number(whole / 60 % 60).rightJustified(2, '0')
           + QByteArray::number(whole % 60 + fraction, 'f', 2).rightJustified(5, '0');
}

}  // namespace

bool CLmGgaReader::IsGga(const QByteArray& body)
{
    return body.size() >= 6 && body.at(0) != 'P' && body.mid(2, 4) == "GGA,";
}

bool CLmGgaReader::Read(const QByteArray& body, SLmGgaFix& fix)
{
    if (!IsGga(body))
        return false;
    const QList<QByteArray> fields = CLmNmeaSentence::Fields(body);
    if (fields.size() < FieldCount)
        return false;
    SLmGgaFix read;
    bool okQuality = false;
    read.nQuality = fields.at(FieldQuality).toInt(&okQuality);
    const bool ok = ReadTime(fields.at(FieldTime), read.dUtcSeconds)
                    && ReadAngle(fields.at(FieldLatitude), fields.at(FieldNorthSouth), 90, 'N', 'S', read.dLatitude)
                    && ReadAngle(fields.at(FieldLongitude), fields.at(FieldEastWest), 180, 'E', 'W', read.dLongitude)
                    && okQuality && read.nQuality >= 0
                    && ReadOptionalInt(fields.at(FieldSatellites), read.nSatellites)
                    && ReadOptionalDouble(fields.at(FieldHdop), read.dHdop)
                    && ReadOptionalDouble(fields.at(FieldAltitude), read.dAltitude);
    if (ok)
        fix = read;
    return ok;
}

QByteArray CLmGgaReader::Write(const SLmGgaFix& fix)
{
    const bool hasFix = fix.nQuality != 0;
    QByteArray body = "GPGGA," + WriteTime(fix.dUtcSeconds) + ',';
    body += hasFix ? WriteAngle(fix.dLatitude, 2, 'N', 'S') + ',' + WriteAngle(fix.dLongitude, 3, 'E', 'W')
                   : QByteArray(",,,");
    body += ',' + QByteArray::number(fix.nQuality) + ',' + QByteArray::number(fix.nSatellites).rightJustified(2, '0');
    body += ',' + QByteArray::number(fix.dHdop, 'f', 1);
    body += ',' + (hasFix ? QByteArray::number(fix.dAltitude, 'f', 3) : QByteArray()) + ",M,0.000,M,,";
    return body;
}
