#pragma once

#include "CLmUasProvide.h"

#include <QStringList>

// An aircraft handle without a link that records the requests made of it.
class CFakeUas : public CLmUasProvide
{
public:
    explicit CFakeUas(bool bFixwing)
        : CLmUasProvide(nullptr, 1, 1)
        , m_bFixwing(bFixwing)
    {
    }

    bool IsFixwing() const override { return m_bFixwing; }
    void StartStatusStream() override { m_requests << QStringLiteral("status stream"); }
    void RequestParachuteNum() override { m_requests << QStringLiteral("parachute count"); }
    void ResetParachuteRope() override { m_requests << QStringLiteral("rope reset"); }
    void SendCommandLong(int command, int confirmation, float param1, float param2, float param3, float param4,
                         float param5, float param6, float param7, int targetComponent) override
    {
        m_requests << QStringLiteral("command %1 %2 %3 %4 %5 %6 %7 %8 %9 %10")
                          .arg(command)
                          .arg(confirmation)
                          .arg(double(param1))
                          .arg(double(param2))
                          .arg(double(param3))
                          .arg(double(param4))
                          .arg(double(param5))
                          .arg(double(param6))
                          .arg(double(param7))
                          .arg(targetComponent);
    }
    using CLmUasProvide::SendCommandLong;

    QStringList m_requests;

private:
    bool m_bFixwing;
};
