#pragma once

#include <atomic>
#include <functional>
#include <thread>

// Turns SIGINT and SIGTERM into a plain callback on a thread of its own.
// Construct it before any other thread starts: it blocks both signals in the
// constructing thread, and threads created later inherit that mask, so only
// the watcher ever receives them.
class SignalWatcher
{
public:
    SignalWatcher();
    ~SignalWatcher();
    SignalWatcher(const SignalWatcher&) = delete;
    SignalWatcher& operator=(const SignalWatcher&) = delete;

    void Start(std::function<void()> onSignal);

private:
    std::thread m_thread;
    std::atomic<bool> m_leaving{false};
};
