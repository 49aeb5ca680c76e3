#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// What the base-station page decides from the station's replies, kept apart
// from widgets and the link so that every rule can be checked on its own.
namespace LmStationRules {

// How the station shall work; the first four follow the mode combo box.
enum EStationMode {
    eModeDisuse = 0,
    eModePpk = 1,
    eModeCorsPpk = 2,
    eModeSingleStation = 3,
    eModeFormat = 4,  // the "Format" button was pressed
    eModeUnset = 5,  // the form is not built yet
};

// What a static-file-state reply leads to.
enum EStateAction {
    eNoAction,
    eLockOnStateTab,  // first reply while recording
    eResetToDisuse,  // first reply while idle
    eSendStatic,
    eSendBase,
    eAskFormat,
    eAskStopRecording,  // "Disuse" while recording
    eAskStopBeforeFormat,
    eAskStopBeforeSave,
};

// bStoredPoint: a saved reference point (not "Manual input") is selected.
EStateAction StateReplyAction(bool bRecording, int mode, bool bFirstReply, bool bStoredPoint);

// What a setting result means for the page.
struct SSettingResult {
    bool bKnown = false;  // false: the name or code is not one the page answers
    bool bSuccess = false;
    QString message;  // empty: nothing to tell
};
SSettingResult SettingResult(const QString& name, int code);

// One row of the station's static file list.
struct SStaticFileRow {
    QString name;
    QDateTime created;  // invalid when the station's text does not read
    quint64 sizeBytes = 0;
};
// "name,created,size;..." records; a record of fewer than three fields is skipped.
QList<SStaticFileRow> ParseStaticFileList(const QString& text);
// Bytes as the table shows them: whole kilobytes followed by "KB".
QString FileSizeText(quint64 bytes);
// Bytes as the storage labels show them, in gigabytes with two decimals.
QString StorageText(quint64 bytes);

// Degrees from the three fields of an entered angle; nothing when a field is
// empty or not a number, the minutes or seconds are not below 60, or the
// degrees exceed maxDegrees either way.
std::optional<double> ReadDms(const QString& degrees, const QString& minutes, const QString& seconds,
                              double maxDegrees);
// An angle in degrees split for the three fields: whole degrees (signed),
// whole minutes and seconds with four decimals.
struct SDmsText {
    QString degrees;
    QString minutes;
    QString seconds;
};
SDmsText DmsText(double degrees);

// A reference point name fits its column of 32 characters.
constexpr int kMaxPointNameLength = 32;
// Why name cannot name a new reference point (empty, too long, taken; names
// compare case-sensitively), or empty when it can.
QString ReferencePointNameProblem(const QString& name, const QStringList& namesInUse);

// The GGA quality indicator as words.
QString FixQualityText(int quality);
// The station's code of the "GNSS Type:" choice at index, -1 when none.
int GnssTypeCode(int index);

}  // namespace LmStationRules
