#include "SimCommandGate.h"

SimCommandGate::SimCommandGate(bool noAck, bool ackOnRetry)
    : m_noAck(noAck)
    , m_ackOnRetry(ackOnRetry)
{
}

bool SimCommandGate::accept(uint16_t command, uint8_t confirmation)
{
    if (!m_ackOnRetry)
        return true;
    const bool previousCopyIgnored = m_ignoredCommands.remove(command);
    if (confirmation > 0 || previousCopyIgnored)
        return true;
    m_ignoredCommands.insert(command);
    return false;
}
