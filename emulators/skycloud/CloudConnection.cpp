#include "CloudConnection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

constexpr std::chrono::milliseconds kStopCheckInterval{100};
constexpr std::chrono::milliseconds kDrainTime{1000};

thread_local CloudConnection* t_pServed = nullptr;

void AddressOf(const sockaddr_storage& address, std::string& ip, int& port)
{
    char text[INET6_ADDRSTRLEN] = {};
    if (address.ss_family == AF_INET) {
        const auto* v4 = reinterpret_cast<const sockaddr_in*>(&address);
        inet_ntop(AF_INET, &v4->sin_addr, text, sizeof text);
        port = ntohs(v4->sin_port);
    } else if (address.ss_family == AF_INET6) {
        const auto* v6 = reinterpret_cast<const sockaddr_in6*>(&address);
        inet_ntop(AF_INET6, &v6->sin6_addr, text, sizeof text);
        port = ntohs(v6->sin6_port);
    }
    ip = text;
}

}  // namespace

CloudConnection::CloudConnection(socket_t socket, const Limits& limits, std::function<bool()> stopping)
    : m_socket(socket)
    , m_limits(limits)
    , m_stopping(std::move(stopping))
{
    t_pServed = this;
}

CloudConnection::~CloudConnection()
{
    t_pServed = nullptr;
}

bool CloudConnection::WaitForRequest(std::chrono::milliseconds idle)
{
    return m_bufferStart < m_bufferEnd || WaitFor(POLLIN, Clock::now() + idle);
}

void CloudConnection::BeginRequest()
{
    m_inHeaders = true;
    m_headerDeadline = Clock::now() + m_limits.headerDeadline;
    m_headerBytes = 0;
    m_lineLength = 0;
    m_bodyDeadline = Clock::time_point::max();
}

void CloudConnection::CloseAfterReply()
{
    if (t_pServed)
        t_pServed->m_closeAfterReply = true;
}

void CloudConnection::BoundBodyTime(std::chrono::milliseconds limit)
{
    if (t_pServed)
        t_pServed->m_bodyDeadline = Clock::now() + limit;
}

bool CloudConnection::KeepServing() const
{
    return !m_failed && !m_closeAfterReply;
}

bool CloudConnection::MustDrain() const
{
    return m_closeAfterReply && !m_failed;
}

void CloudConnection::DrainBriefly()
{
    ::shutdown(m_socket, SHUT_WR);
    const Clock::time_point until = Clock::now() + kDrainTime;
    char sink[16384];
    while (WaitFor(POLLIN, until) && ::recv(m_socket, sink, sizeof sink, 0) > 0) {
    }
}

bool CloudConnection::WaitFor(short events, Clock::time_point until) const
{
    for (;;) {
        if (m_stopping())
            return false;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
        if (left.count() <= 0)
            return false;
        pollfd entry{m_socket, events, 0};
        const int ready = ::poll(&entry, 1, static_cast<int>(std::min(left, kStopCheckInterval).count()));
        if (ready > 0)
            return true;
        if (ready < 0 && errno != EINTR)
            return false;
    }
}

CloudConnection::Clock::time_point CloudConnection::ReadUntil() const
{
    const Clock::time_point until = Clock::now() + m_limits.readTimeout;
    return std::min(until, m_inHeaders ? m_headerDeadline : m_bodyDeadline);
}

bool CloudConnection::is_readable() const
{
    if (m_bufferStart < m_bufferEnd || WaitFor(POLLIN, ReadUntil()))
        return true;
    m_failed = true;
    return false;
}

bool CloudConnection::is_writable() const
{
    return WaitFor(POLLOUT, Clock::now() + m_limits.writeTimeout);
}

ssize_t CloudConnection::read(char* ptr, size_t size)
{
    if (m_bufferStart == m_bufferEnd) {
        const ssize_t received = Receive();
        if (received <= 0) {
            m_failed = true;
            return received;
        }
        m_bufferStart = 0;
        m_bufferEnd = static_cast<size_t>(received);
    }
    const size_t count = std::min(size, m_bufferEnd - m_bufferStart);
    std::memcpy(ptr, m_buffer + m_bufferStart, count);
    m_bufferStart += count;
    if (m_inHeaders) {
        TrackHeaderBytes(ptr, count);
        if (m_inHeaders && m_headerBytes > m_limits.maxHeaderBytes) {
            m_failed = true;
            return -1;
        }
    }
    return static_cast<ssize_t>(count);
}

// Takes what the socket holds; only when it holds nothing yet does it wait,
// within the request's limits, and first acknowledges what came so far. A
// client whose small writes wait for the acknowledgement of the previous one
// (Nagle's algorithm, which Qt's HTTP client leaves on) would otherwise stall
// for the kernel's delayed acknowledgement, up to 40 ms: between a request's
// header block and its body, and inside a large body whenever the client
// writes slower than the service reads.
ssize_t CloudConnection::Receive()
{
    if (m_stopping() || Clock::now() >= (m_inHeaders ? m_headerDeadline : m_bodyDeadline))
        return -1;
    const ssize_t received = ::recv(m_socket, m_buffer, sizeof m_buffer, MSG_DONTWAIT);
    if (received >= 0 || (errno != EAGAIN && errno != EWOULDBLOCK))
        return received;
    AcknowledgeAtOnce();
    return is_readable() ? ::recv(m_socket, m_buffer, sizeof m_buffer, 0) : -1;
}

void CloudConnection::TrackHeaderBytes(const char* data, size_t size)
{
    // The header block ends at the first empty line ("\r\n", or "\n" alone).
    for (size_t i = 0; i < size && m_inHeaders; ++i) {
        if (data[i] == '\n') {
            m_inHeaders = m_lineLength > 0;
            m_lineLength = 0;
        } else if (data[i] != '\r') {
            ++m_lineLength;
        }
    }
    m_headerBytes += size;
}

void CloudConnection::AcknowledgeAtOnce()
{
    const int on = 1;
    ::setsockopt(m_socket, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
}

ssize_t CloudConnection::write(const char* ptr, size_t size)
{
    const ssize_t sent = is_writable() ? ::send(m_socket, ptr, size, MSG_NOSIGNAL) : -1;
    m_failed = m_failed || sent < 0;
    return sent;
}

void CloudConnection::get_remote_ip_and_port(std::string& ip, int& port) const
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (::getpeername(m_socket, reinterpret_cast<sockaddr*>(&address), &length) == 0)
        AddressOf(address, ip, port);
}

void CloudConnection::get_local_ip_and_port(std::string& ip, int& port) const
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    if (::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length) == 0)
        AddressOf(address, ip, port);
}

socket_t CloudConnection::socket() const
{
    return m_socket;
}
