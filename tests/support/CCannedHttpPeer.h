#pragma once

#include <QByteArray>
#include <QTcpServer>

// A loopback peer that answers every request with the same raw bytes and
// closes, or (silent) keeps connections open without a word: the faults a
// real service shows, and a way to count what a client sent.
class CCannedHttpPeer : public QTcpServer
{
public:
    explicit CCannedHttpPeer(QByteArray rawAnswer, bool answers = true);

    // An HTTP/1.1 reply with the given status line and body.
    static QByteArray Reply(const QByteArray& statusLine, const QByteArray& body);

    // "http://127.0.0.1:PORT", no trailing slash.
    QByteArray BaseUrl() const;
    // Connections made so far: each request of a client that closes or
    // keeps busy connections.
    int RequestCount() const;
    // Everything received on the latest connection.
    QByteArray LastRequest() const;
    // Stops listening and drops every open connection, as a service that
    // goes away.
    void HangUp();

private:
    // Headers and the body their Content-Length announces have arrived.
    static bool IsComplete(const QByteArray& request);

    QByteArray m_answer;
    bool m_bAnswers;
    int m_iRequests = 0;
    QByteArray m_lastRequest;
};
