#include "SimInboundLink.h"

bool SimInboundLink::open(QString* /*error*/)
{
    return true;
}

QString SimInboundLink::description() const
{
    return QStringLiteral("inbound");
}

void SimInboundLink::writeFrame(const QByteArray& frame)
{
    emit frameArrived(frame);
}
