#include "CLmLicenceLink.h"

#include "CLmClock.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

#include <cstring>

using namespace LmMavlink;

namespace {

template <std::size_t N>
QString FieldText(const char (&field)[N])
{
    return QString::fromLatin1(field, static_cast<int>(strnlen(field, N)));
}

SLmLicenceInfo InfoOf(const SSkyLicenceStatus& status)
{
    SLmLicenceInfo info;
    info.eResult = status.result <= SLmLicenceInfo::NoKey ? static_cast<SLmLicenceInfo::EResult>(status.result)
                                                          : SLmLicenceInfo::Malformed;
    info.bHasLicence = status.has_licence != 0;
    info.strAircraftSerial = FieldText(status.aircraft_serial);
    if (!info.bHasLicence)
        return info;
    info.strLicenceSerial = FieldText(status.licence_serial);
    info.dateExpires = QDate::fromString(FieldText(status.expires), Qt::ISODate);
    info.lstFeatures = FieldText(status.features).split(QLatin1Char(','), Qt::SkipEmptyParts);
    return info;
}

}  // namespace

CLmLicenceLink::CLmLicenceLink(CLmUasProvide* pUas, QObject* parent, CLmClock* pClock)
    : QObject(parent)
    , m_pUas(pUas)
    , m_pClock(pClock ? pClock : new CLmClock)
{
    qRegisterMetaType<SLmLicenceInfo>("SLmLicenceInfo");
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLmLicenceLink::OnQuiet);
}

CLmUasProvide* CLmLicenceLink::Uas() const
{
    return m_pUas;
}

void CLmLicenceLink::ReadLicence()
{
    m_baLicence.clear();
    Begin(EExchange::Read);
}

bool CLmLicenceLink::WriteLicence(const QByteArray& signedLicence)
{
    if (signedLicence.isEmpty() || signedLicence.size() > MaxLicenceSize)
        return false;
    m_baLicence = signedLicence;
    Begin(EExchange::Write);
    return true;
}

void CLmLicenceLink::Begin(EExchange exchange)
{
    m_eExchange = exchange;
    m_iRetriesLeft = DefaultRetries;
    if (m_pUas)
        connect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmLicenceLink::OnMessage, Qt::UniqueConnection);
    SendExchange();
}

void CLmLicenceLink::Finish()
{
    m_eExchange = EExchange::None;
    m_pClock->Stop();
    if (m_pUas)
        disconnect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmLicenceLink::OnMessage);
}

void CLmLicenceLink::SendExchange()
{
    if (!m_pUas) {
        Finish();
        emit LicenceRequestFailed();
        return;
    }
    if (m_eExchange == EExchange::Read) {
        m_pUas->RequestLicence();
    } else {
        const auto total = static_cast<quint16>(m_baLicence.size());
        for (int offset = 0; offset < m_baLicence.size(); offset += CLmUasProvide::LicencePieceSize)
            m_pUas->WriteLicencePiece(total, static_cast<quint16>(offset),
                                      m_baLicence.mid(offset, CLmUasProvide::LicencePieceSize));
    }
    m_pClock->Start(m_iQuietMs);
}

void CLmLicenceLink::OnQuiet()
{
    if (m_eExchange == EExchange::None)
        return;
    if (--m_iRetriesLeft < 0) {
        qCWarning(lcLinkInstanceLicence) << "the aircraft did not answer the licence exchange";
        Finish();
        emit LicenceRequestFailed();
        return;
    }
    SendExchange();
}

// A read is answered by a report; a write only by the verdict on it, so a
// late report of an earlier read does not end a write.
void CLmLicenceLink::OnMessage(const mavlink_message_t& message)
{
    if (message.msgid != MSG_ID_SKY_LICENCE_STATUS || m_eExchange == EExchange::None)
        return;
    const SLmLicenceInfo info = InfoOf(SSkyLicenceStatus::Unpack(message));
    if ((info.eResult == SLmLicenceInfo::Report) != (m_eExchange == EExchange::Read))
        return;
    Finish();
    emit LicenceReported(info);
}
