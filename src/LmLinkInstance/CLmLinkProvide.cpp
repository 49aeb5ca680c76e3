#include "CLmLinkProvide.h"

CLmLinkProvide::CLmLinkProvide(int linkId, QObject* parent)
    : QObject(parent)
    , m_nLinkId(linkId)
{
}

int CLmLinkProvide::GetLinkId() const
{
    return m_nLinkId;
}
