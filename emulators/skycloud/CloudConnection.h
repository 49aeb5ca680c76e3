#pragma once

#include <httplib.h>

#include <chrono>
#include <functional>

// One client connection of the HTTP server, as the stream the library reads
// requests from and writes replies to. Beyond plain socket reading it keeps
// the limits a server on a thread pool needs against slow or hostile peers:
// a request's header lines must arrive whole within a total deadline and a
// bounded size, and every wait ends soon after the server stops.
class CloudConnection : public httplib::Stream
{
public:
    struct Limits
    {
        std::chrono::milliseconds headerDeadline;
        size_t maxHeaderBytes;
        std::chrono::milliseconds readTimeout;
        std::chrono::milliseconds writeTimeout;
    };

    CloudConnection(socket_t socket, const Limits& limits, std::function<bool()> stopping);
    ~CloudConnection() override;
    CloudConnection(const CloudConnection&) = delete;
    CloudConnection& operator=(const CloudConnection&) = delete;

    // Waits for the next request to begin, up to the idle time; false when
    // the peer left, the wait ran out or the server stops.
    bool WaitForRequest(std::chrono::milliseconds idle);
    // The header deadline of the next request starts now.
    void BeginRequest();
    // A reply was written before the request's body was read: the unread
    // body must not be taken for the next request. Applies to the
    // connection served by the calling thread.
    static void CloseAfterReply();
    // The body of the request being served must arrive whole within this
    // time, like its headers. Applies to the calling thread's connection.
    static void BoundBodyTime(std::chrono::milliseconds limit);
    // False once a read failed (a limit, a timeout, the peer) or a reply
    // was written before its body was read.
    bool KeepServing() const;
    bool MustDrain() const;
    // Reads and drops what the peer still sends, for a short while, so that
    // it reads the reply before the connection closes.
    void DrainBriefly();

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char* ptr, size_t size) override;
    ssize_t write(const char* ptr, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override;

private:
    using Clock = std::chrono::steady_clock;

    // Polls in short slices so that a stop is noticed; false on timeout,
    // stop or error.
    bool WaitFor(short events, Clock::time_point until) const;
    Clock::time_point ReadUntil() const;
    ssize_t Receive();
    void AcknowledgeAtOnce();
    void TrackHeaderBytes(const char* data, size_t size);

    socket_t m_socket;
    Limits m_limits;
    std::function<bool()> m_stopping;
    bool m_inHeaders = false;
    Clock::time_point m_headerDeadline;
    Clock::time_point m_bodyDeadline = Clock::time_point::max();
    size_t m_headerBytes = 0;
    size_t m_lineLength = 0;
    bool m_closeAfterReply = false;
    mutable bool m_failed = false;
    char m_buffer[4096];
    size_t m_bufferStart = 0;
    size_t m_bufferEnd = 0;
};
