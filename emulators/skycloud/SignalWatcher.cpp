#include "SignalWatcher.h"

#include <pthread.h>
#include <signal.h>

#include <cstdio>
#include <cstdlib>

namespace {

sigset_t StopSignals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

}  // namespace

SignalWatcher::SignalWatcher()
{
    const sigset_t set = StopSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

SignalWatcher::~SignalWatcher()
{
    if (!m_thread.joinable())
        return;
    Finished();
    m_leaving = true;
    pthread_kill(m_thread.native_handle(), SIGTERM);
    m_thread.join();
}

void SignalWatcher::Start(std::function<void()> onSignal, std::chrono::milliseconds grace)
{
    m_thread = std::thread([this, onSignal = std::move(onSignal), grace] {
        const sigset_t set = StopSignals();
        int signal = 0;
        sigwait(&set, &signal);
        if (m_leaving)
            return;
        onSignal();
        AwaitFinish(grace);
    });
}

void SignalWatcher::Finished()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_finished = true;
    m_finishedChanged.notify_all();
}

void SignalWatcher::AwaitFinish(std::chrono::milliseconds grace)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_finishedChanged.wait_for(lock, grace, [this] { return m_finished; }))
        return;
    std::fprintf(stderr, "skycloud: requests still busy after the stop, leaving without them\n");
    std::_Exit(0);
}
