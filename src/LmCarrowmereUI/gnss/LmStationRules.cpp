#include "LmStationRules.h"

#include "LmBaseStationMath.h"

#include <QCoreApplication>
#include <QStringList>

#include <cmath>
#include <iterator>

namespace LmStationRules {

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("LmStationRules", text);
}

QString SuccessOrFailed(const QString& prefix, bool bSuccess)
{
    return prefix + (bSuccess ? Tr(":Success") : Tr(":Failed"));
}

SSettingResult Known(bool bSuccess, const QString& message)
{
    return {true, bSuccess, message};
}

SSettingResult StartStaticFileResult(int code)
{
    switch (code) {
    case 0:
        return Known(true, SuccessOrFailed(Tr("Start static file"), true));
    case 1:
        return Known(false, Tr("Not static mode"));
    case 2:
        return Known(false, Tr("File name exist"));
    case 3:
        return Known(false, Tr("Parameter error"));
    case 4:
        return Known(false, Tr("GPS is not positioning"));
    default:
        return {};
    }
}

SSettingResult DeleteStaticFileResult(int code)
{
    switch (code) {
    case 0:
        return Known(true, Tr("delete file(s) succeed."));
    case 1:
        return Known(false, Tr("Not static mode."));
    case 2:
        return Known(false, Tr("Delete files failed."));
    default:
        return {};
    }
}

}  // namespace

EStateAction StateReplyAction(bool bRecording, int mode, bool bFirstReply, bool bStoredPoint)
{
    if (bFirstReply)
        return bRecording ? eLockOnStateTab : eResetToDisuse;
    if (bRecording) {
        switch (mode) {
        case eModeDisuse:
            return eAskStopRecording;
        case eModeFormat:
            return eAskStopBeforeFormat;
        default:
            return eAskStopBeforeSave;
        }
    }
    switch (mode) {
    case eModePpk:
        return eSendStatic;
    case eModeSingleStation:
        return bStoredPoint ? eSendBase : eNoAction;
    case eModeFormat:
        return eAskFormat;
    default:
        return eNoAction;
    }
}

SSettingResult SettingResult(const QString& name, int code)
{
    const bool bSuccess = code == 0;
    if (name == QLatin1String("baseNtrip"))
        return Known(bSuccess, SuccessOrFailed(Tr("Base Ntrip "), bSuccess));
    if (name == QLatin1String("roverNtrips"))
        return Known(bSuccess, bSuccess ? QString() : Tr("connect to CORS station failed."));
    if (name == QLatin1String("staticNtrip"))
        return Known(bSuccess, bSuccess ? QString() : Tr("Set work mode to static failed."));
    if (name == QLatin1String("startStaticFile"))
        return StartStaticFileResult(code);
    if (name == QLatin1String("stopStaticFile"))
        return Known(bSuccess, SuccessOrFailed(Tr("Stop static file"), bSuccess));
    if (name == QLatin1String("deleteStaticFile"))
        return DeleteStaticFileResult(code);
    return {};
}

QList<SStaticFileRow> ParseStaticFileList(const QString& text)
{
    QList<SStaticFileRow> rows;
    const QStringList records = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& record : records) {
        const QStringList fields = record.split(QLatin1Char(','));
        if (fields.size() < 3)
            continue;
        SStaticFileRow row;
        row.name = fields.at(0).trimmed();
        row.created = QDateTime::fromString(fields.at(1).trimmed(), Qt::ISODate);
        // The station keeps its clock in UTC, with or without saying so.
        if (row.created.timeSpec() == Qt::LocalTime)
            row.created.setTimeSpec(Qt::UTC);
        row.sizeBytes = fields.at(2).trimmed().toULongLong();
        rows.append(row);
    }
    return rows;
}

QString FileSizeText(quint64 bytes)
{
    return QString::number(bytes / 1024) + QStringLiteral("KB");
}

QString StorageText(quint64 bytes)
{
    return QString::number(double(bytes) / 1024.0 / 1024.0 / 1024.0, 'f', 2) + QStringLiteral(" GB");
}

std::optional<double> ReadDms(const QString& degrees, const QString& minutes, const QString& seconds,
                              double maxDegrees)
{
    bool degreesOk = false;
    bool minutesOk = false;
    bool secondsOk = false;
    const double d = degrees.trimmed().toDouble(&degreesOk);
    const double m = minutes.trimmed().toDouble(&minutesOk);
    const double s = seconds.trimmed().toDouble(&secondsOk);
    if (!degreesOk || !minutesOk || !secondsOk)
        return std::nullopt;
    if (m < 0 || m >= 60 || s < 0 || s >= 60)
        return std::nullopt;
    const double value = LmBaseStationMath::DegreesFromDms(d, m, s);
    if (std::fabs(value) > maxDegrees)
        return std::nullopt;
    return value;
}

SDmsText DmsText(double degrees)
{
    const double magnitude = std::fabs(degrees);
    int whole = int(magnitude);
    const double minutesExact = (magnitude - whole) * 60.0;
    int minutes = int(minutesExact);
    double seconds = (minutesExact - minutes) * 60.0;
    // Rounding the seconds to the field's precision may carry into the minutes.
    if (std::round(seconds * 10000.0) >= 600000.0) {
        seconds = 0;
        ++minutes;
    }
    if (minutes == 60) {
        minutes = 0;
        ++whole;
    }
    const QString sign = degrees < 0 ? QStringLiteral("-") : QString();
    return {sign + QString::number(whole), QString::number(minutes), QString::number(seconds, 'f', 4)};
}

QString ReferencePointNameProblem(const QString& name, const QStringList& namesInUse)
{
    if (name.isEmpty())
        return Tr("Please input reference point name.");
    if (name.size() > kMaxPointNameLength)
        return Tr("The reference point name can have at most %1 characters.").arg(kMaxPointNameLength);
    if (namesInUse.contains(name, Qt::CaseSensitive))
        return Tr("The reference point name has been exist.");
    return {};
}

QString FixQualityText(int quality)
{
    static const char* const kTexts[] = {
        QT_TRANSLATE_NOOP("LmStationRules", "Invalid fix"),     QT_TRANSLATE_NOOP("LmStationRules", "Standalone"),
        QT_TRANSLATE_NOOP("LmStationRules", "Diff corrected"),  QT_TRANSLATE_NOOP("LmStationRules", "GPS PPS mode"),
        QT_TRANSLATE_NOOP("LmStationRules", "RTK fixed"),       QT_TRANSLATE_NOOP("LmStationRules", "RTK float"),
        QT_TRANSLATE_NOOP("LmStationRules", "Dead reckoning"),  QT_TRANSLATE_NOOP("LmStationRules", "Entered position"),
        QT_TRANSLATE_NOOP("LmStationRules", "Simulator model"), QT_TRANSLATE_NOOP("LmStationRules", "Reserved")};
    if (quality < 0 || quality >= int(std::size(kTexts)))
        return Tr("Not defined");
    return QCoreApplication::translate("LmStationRules", kTexts[quality]);
}

int GnssTypeCode(int index)
{
    static const int kCodes[] = {7, 2, 3};
    return index >= 0 && index < int(std::size(kCodes)) ? kCodes[index] : -1;
}

}  // namespace LmStationRules
