#include "SimStopSignals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int g_pipe[2] = {-1, -1};

} // namespace

SimStopSignals::SimStopSignals(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SimStopSignals::readSignal);
    struct sigaction action = {};
    action.sa_handler = &SimStopSignals::handleSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

SimStopSignals::~SimStopSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    delete m_notifier;
    for (int& fd : g_pipe) {
        if (fd >= 0)
            ::close(fd);
        fd = -1;
    }
}

void SimStopSignals::handleSignal(int signal)
{
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(g_pipe[1], &byte, 1);
}

void SimStopSignals::readSignal()
{
    char byte = 0;
    while (::read(g_pipe[0], &byte, 1) > 0) {
    }
    emit stopRequested();
}
