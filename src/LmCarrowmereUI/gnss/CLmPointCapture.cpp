#include "CLmPointCapture.h"

#include "SBaseStationRecords.h"

#include <algorithm>

namespace {

constexpr int kRtkFixed = 4;

}  // namespace

void CLmPointCapture::Start(EMode mode, int quantity, bool bFixedOnly, double limitM)
{
    m_bRunning = true;
    m_bFixedOnly = bFixedOnly;
    m_dLimitM = limitM;
    m_nWanted = mode == eSinglePoint ? 1 : std::max(1, quantity);
    m_nRejected = 0;
    m_lstSamples.clear();
}

void CLmPointCapture::Stop()
{
    m_bRunning = false;
}

void CLmPointCapture::Clear()
{
    m_bRunning = false;
    m_lstSamples.clear();
}

bool CLmPointCapture::Feed(const SGGAParam& report)
{
    if (!m_bRunning)
        return false;
    const LmBaseStationMath::SGeoPoint sample{LmBaseStationMath::DegreesFromDdmm(report.dLatitude),
                                              LmBaseStationMath::DegreesFromDdmm(report.dLongitude),
                                              report.dAltitude};
    if (!Qualifies(sample, report.nQuality)) {
        ++m_nRejected;
        return false;
    }
    m_lstSamples.append(sample);
    if (m_lstSamples.size() < m_nWanted)
        return false;
    m_bRunning = false;
    return true;
}

bool CLmPointCapture::Qualifies(const LmBaseStationMath::SGeoPoint& sample, int quality) const
{
    if (quality <= 0 || (m_bFixedOnly && quality != kRtkFixed))
        return false;
    if (m_bFixedOnly || m_lstSamples.isEmpty() || m_dLimitM <= 0)
        return true;
    const LmBaseStationMath::SGeoPoint& first = m_lstSamples.first();
    const double horizontalM =
        LmBaseStationMath::DistanceBetweenTwoLatLng(first.lat, first.lng, sample.lat, sample.lng) * 1000.0;
    return horizontalM <= m_dLimitM;
}

LmBaseStationMath::SGeoPoint CLmPointCapture::Result() const
{
    LmBaseStationMath::SGeoPoint mean;
    if (m_lstSamples.isEmpty())
        return mean;
    for (const LmBaseStationMath::SGeoPoint& sample : m_lstSamples) {
        mean.lat += sample.lat;
        mean.lng += sample.lng;
        mean.altitude += sample.altitude;
    }
    const double count = m_lstSamples.size();
    return {mean.lat / count, mean.lng / count, mean.altitude / count};
}
