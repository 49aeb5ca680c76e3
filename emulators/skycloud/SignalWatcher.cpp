#include "SignalWatcher.h"

#include <pthread.h>
#include <signal.h>

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
    m_leaving = true;
    pthread_kill(m_thread.native_handle(), SIGTERM);
    m_thread.join();
}

void SignalWatcher::Start(std::function<void()> onSignal)
{
    m_thread = std::thread([this, onSignal = std::move(onSignal)] {
        const sigset_t set = StopSignals();
        int signal = 0;
        sigwait(&set, &signal);
        if (!m_leaving)
            onSignal();
    });
}
