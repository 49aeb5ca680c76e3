#include "CLoopbackAircraft.h"

#include "CLmUasProvide.h"
#include "CLmUdpLink.h"

CLoopbackAircraft::CLoopbackAircraft()
    : m_pWire(std::make_unique<CLmUdpLink>(1, 0))
{
    m_pWire->Connect();
    m_pUas = std::make_unique<CLmUasProvide>(m_pWire.get(), 1, 1);
    QObject::connect(m_pWire.get(), &CLmLinkProvide::bytesReceived, m_pUas.get(), [this](const QByteArray& bytes) {
        for (const mavlink_message_t& frame : m_parser.Parse(bytes))
            m_pUas->HandleMessage(frame);
    });
}

// The handle goes before the link it writes to.
CLoopbackAircraft::~CLoopbackAircraft()
{
    m_pUas.reset();
}

QStringList CLoopbackAircraft::SimArguments() const
{
    return {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(m_pWire->GetLocalPort())};
}
