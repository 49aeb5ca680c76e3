#pragma once

#include "CLmMavlinkParser.h"

#include <QStringList>

#include <memory>

class CLmUasProvide;
class CLmUdpLink;

// The handle of aircraft 1 on a UDP link of its own on a free loopback
// port: every frame the link receives goes to the handle. skysim started
// with SimArguments() talks to it.
class CLoopbackAircraft
{
public:
    CLoopbackAircraft();
    ~CLoopbackAircraft();
    CLoopbackAircraft(const CLoopbackAircraft&) = delete;
    CLoopbackAircraft& operator=(const CLoopbackAircraft&) = delete;

    CLmUasProvide* Uas() const { return m_pUas.get(); }
    // "--udp 127.0.0.1:PORT" for skysim.
    QStringList SimArguments() const;

private:
    std::unique_ptr<CLmUdpLink> m_pWire;
    std::unique_ptr<CLmUasProvide> m_pUas;
    CLmMavlinkParser m_parser;
};
