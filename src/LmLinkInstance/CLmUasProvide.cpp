#include "CLmUasProvide.h"

CLmUasProvide::CLmUasProvide(CLmLinkProvide* pLink, int uasId, int componentId, QObject* parent)
    : QObject(parent)
    , m_pLink(pLink)
    , m_iUasId(uasId)
    , m_iComponentId(componentId)
{
}

CLmLinkProvide* CLmUasProvide::GetLink() const
{
    return m_pLink;
}

int CLmUasProvide::GetUasId() const
{
    return m_iUasId;
}

int CLmUasProvide::GetComponentId() const
{
    return m_iComponentId;
}
