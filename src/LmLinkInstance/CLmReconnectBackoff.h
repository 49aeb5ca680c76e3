#pragma once

// Waiting times between reconnection attempts: 1 s, doubling up to 30 s.
class CLmReconnectBackoff
{
public:
    static constexpr int InitialDelayMs = 1000;
    static constexpr int MaximumDelayMs = 30000;

    // The wait before the next attempt; every call doubles the following one.
    int NextDelayMs();
    void Reset();

private:
    int m_iDelayMs = InitialDelayMs;
};
