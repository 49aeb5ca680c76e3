#pragma once

#include <QDate>
#include <QMetaType>
#include <QString>
#include <QStringList>

// The licence an aircraft holds, as it reported it, and why it reported it.
struct SLmLicenceInfo
{
    enum EResult {
        Report = 0,        // answer to a read
        Accepted = 1,      // a written licence verified and is now held
        BadSignature = 2,  // a written licence did not verify and was dropped
        ForeignSerial = 3, // a written licence belongs to another aircraft and was dropped
        Malformed = 4,     // a written licence could not be read and was dropped
        NoKey = 5          // the aircraft cannot check licences
    };

    EResult eResult = Report;
    bool bHasLicence = false;
    QString strAircraftSerial;
    QString strLicenceSerial;
    QDate dateExpires; // last valid day
    QStringList lstFeatures;
};
Q_DECLARE_METATYPE(SLmLicenceInfo)
