#pragma once

#include "SLmLicenceInfo.h"
#include "mavlink_message_t.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>

class CLmClock;
class CLmUasProvide;

// The licence held by the aircraft, read and written over its link
// (SKY_LICENCE_* messages of our dialect). One exchange runs at a time; a
// new one replaces it. A signed licence is sent in pieces, in order; when
// the aircraft's answer does not come within the quiet time, the read or
// the whole write is sent again, a bounded number of times, then
// LicenceRequestFailed ends the exchange. The aircraft checks the signature
// itself: this class carries the bytes and reports the answer.
class CLmLicenceLink : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultQuietMs = 1500;
    static constexpr int DefaultRetries = 3;
    // What the dialect's total_length can carry.
    static constexpr int MaxLicenceSize = 0xFFFF;

    // Takes the clock; a real timer when null.
    explicit CLmLicenceLink(CLmUasProvide* pUas, QObject* parent = nullptr, CLmClock* pClock = nullptr);

    CLmUasProvide* Uas() const;
    void SetQuietMs(int ms) { m_iQuietMs = ms; }

    // Ends in LicenceReported (result Report) or LicenceRequestFailed.
    void ReadLicence();
    // Ends in LicenceReported with the aircraft's verdict, or
    // LicenceRequestFailed. False (nothing sent) for an empty or oversized licence.
    bool WriteLicence(const QByteArray& signedLicence);
    bool IsBusy() const { return m_eExchange != EExchange::None; }

Q_SIGNALS:
    void LicenceReported(SLmLicenceInfo info);
    void LicenceRequestFailed();

private:
    enum class EExchange { None, Read, Write };

    void Begin(EExchange exchange);
    void Finish();
    void SendExchange();
    void OnQuiet();
    void OnMessage(const mavlink_message_t& message);

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    int m_iQuietMs = DefaultQuietMs;
    EExchange m_eExchange = EExchange::None;
    int m_iRetriesLeft = 0;
    QByteArray m_baLicence;
};
