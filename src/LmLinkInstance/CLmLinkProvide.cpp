#include "CLmLinkProvide.h"

#include "LmLinkInstanceLog.h"

CLmLinkProvide::CLmLinkProvide(int linkId, QObject* parent)
    : QObject(parent)
    , m_nLinkId(linkId)
{
}

int CLmLinkProvide::GetLinkId() const
{
    return m_nLinkId;
}

void CLmLinkProvide::WriteBytes(const QByteArray& bytes)
{
    qCDebug(lcLinkInstanceLink) << "link" << m_nLinkId << "cannot send; dropped" << bytes.size() << "bytes";
}
