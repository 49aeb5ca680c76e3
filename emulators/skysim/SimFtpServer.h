#pragma once

#include "CLmFtpPayload.h"
#include "CLmMavlinkParser.h"
#include "SimInboundLink.h"

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>

class CLmMavlinkEncoder;
struct SimOptions;

// The aircraft's side of the file transfer protocol, enough for a ground
// station to write files into /fw/: CreateFile, OpenFileWO, WriteFile at any
// offset (so writes may overlap or come twice), TerminateSession and
// ResetSessions. One session at a time: opening another closes the first.
// A TerminateSession repeated for the session just closed is acknowledged
// again. The requests travel through the emulated radio's inbound direction,
// so the link rate and packet loss apply to them as to the replies.
class SimFtpServer : public QObject
{
    Q_OBJECT
public:
    static constexpr const char* Folder = "/fw/";

    SimFtpServer(const SimOptions& options, CLmMavlinkEncoder& encoder, SimTransport& transport,
                 QObject* parent = nullptr);

    // A FILE_TRANSFER_PROTOCOL frame addressed to this aircraft.
    void receive(const mavlink_message_t& message);

    bool hasFile(const QString& path) const { return m_mapFiles.contains(path); }
    QByteArray file(const QString& path) const { return m_mapFiles.value(path); }
    void removeFile(const QString& path) { m_mapFiles.remove(path); }
    // The size the file at path will have once complete (from the firmware manifest).
    void announceSize(const QString& path, uint32_t size);

private:
    void handle(const mavlink_message_t& message);
    CLmFtpPayload answer(const CLmFtpPayload& request);
    CLmFtpPayload open(const CLmFtpPayload& request, bool bTruncate);
    CLmFtpPayload write(const CLmFtpPayload& request);
    CLmFtpPayload terminate(const CLmFtpPayload& request);
    bool completesAnnouncedFile(const CLmFtpPayload& request) const;
    static bool isAllowedPath(const QString& path);
    static CLmFtpPayload ack(const CLmFtpPayload& request);
    static CLmFtpPayload nak(const CLmFtpPayload& request, uint8_t error);
    void reply(const mavlink_message_t& request, const CLmFtpPayload& payload);

    CLmMavlinkEncoder& m_encoder;
    SimTransport& m_transport;
    SimInboundLink m_inbound;
    CLmMavlinkParser m_parser;
    bool m_bLoseLastReply;

    QMap<QString, QByteArray> m_mapFiles;
    QString m_strAnnouncedPath;
    uint32_t m_nAnnouncedSize = 0;
    QString m_strSessionPath; // empty when no session is open
    uint8_t m_nSession = 0;
    uint8_t m_nClosedSession = 0;
};
