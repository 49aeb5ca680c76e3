#pragma once

#include <QSet>

#include <cstdint>

// The command failure switches: --ack-on-retry lets the first copy of each
// command fall on the floor (as if it had been lost on the way up) and
// carries out the retry; --no-ack carries out commands without answering.
class SimCommandGate
{
public:
    SimCommandGate(bool noAck, bool ackOnRetry);

    // False when this copy of the command is to be ignored altogether. A copy
    // counts as a retry when its confirmation field is non-zero or when the
    // previous copy of the same command was ignored.
    bool accept(uint16_t command, uint8_t confirmation);
    bool sendsAcks() const { return !m_noAck; }

private:
    bool m_noAck;
    bool m_ackOnRetry;
    QSet<uint16_t> m_ignoredCommands;
};
