#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// Turns SIGINT and SIGTERM into a plain callback on a thread of its own.
// Construct it before any other thread starts: it blocks both signals in the
// constructing thread, and threads created later inherit that mask, so only
// the watcher ever receives them. A stop that is not finished within its
// grace time ends the process anyway: a stop request is never left waiting
// on busy workers.
class SignalWatcher
{
public:
    SignalWatcher();
    ~SignalWatcher();
    SignalWatcher(const SignalWatcher&) = delete;
    SignalWatcher& operator=(const SignalWatcher&) = delete;

    void Start(std::function<void()> onSignal, std::chrono::milliseconds grace);
    // The stop is complete; the process leaves on its own.
    void Finished();

private:
    void AwaitFinish(std::chrono::milliseconds grace);

    std::thread m_thread;
    std::atomic<bool> m_leaving{false};
    std::mutex m_mutex;
    std::condition_variable m_finishedChanged;
    bool m_finished = false;
};
