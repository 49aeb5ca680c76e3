#pragma once

#include "LmBaseStationMath.h"

#include <QList>

struct SGGAParam;

// Turns the station's position reports into one point.
//
// "Single point" takes the first report that qualifies. "Sample average"
// takes the mean latitude, longitude and altitude of the first `quantity`
// reports that qualify. A report qualifies when it has a fix; with "Fixed"
// only RTK-fixed reports qualify, otherwise a report further than the
// position limit (metres, horizontally) from the first qualifying report is
// left out as an outlier.
class CLmPointCapture
{
public:
    enum EMode { eSinglePoint = 0, eSampleAverage = 1 };

    void Start(EMode mode, int quantity, bool bFixedOnly, double limitM);
    void Stop();
    void Clear();
    bool IsRunning() const { return m_bRunning; }
    // Feeds one report; true when this report completed the capture.
    bool Feed(const SGGAParam& report);
    int Taken() const { return m_lstSamples.size(); }
    int Wanted() const { return m_nWanted; }
    int Rejected() const { return m_nRejected; }
    // The mean of the samples taken, in degrees and metres.
    LmBaseStationMath::SGeoPoint Result() const;
    bool HasResult() const { return !m_bRunning && !m_lstSamples.isEmpty() && Taken() == m_nWanted; }

private:
    bool Qualifies(const LmBaseStationMath::SGeoPoint& sample, int quality) const;

    bool m_bRunning = false;
    bool m_bFixedOnly = false;
    double m_dLimitM = 0;
    int m_nWanted = 1;
    int m_nRejected = 0;
    QList<LmBaseStationMath::SGeoPoint> m_lstSamples;
};
