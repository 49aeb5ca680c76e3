#include "CLmReconnectBackoff.h"

#include <algorithm>

int CLmReconnectBackoff::NextDelayMs()
{
    const int delay = m_iDelayMs;
    m_iDelayMs = std::min(m_iDelayMs * 2, MaximumDelayMs);
    return delay;
}

void CLmReconnectBackoff::Reset()
{
    m_iDelayMs = InitialDelayMs;
}
