#pragma once

#include "CLmBaseStationLinkHelper.h"
#include "CLmBaseStationProtocol.h"
#include "CLmNmeaLineReader.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QTcpSocket>
#include <QTimer>

struct SLmGgaFix;

// Control link to a GNSS RTK base station: one TCP connection carrying the
// station's sentence protocol (LmLinkCore/BaseStationProtocol.md). Every
// operation returns at once; the answer arrives later as a signal of the
// shared m_linkHelper. Lives on the thread that created it (the GUI thread)
// and never blocks it.
//
// A station that stays silent on a request for kReplyTimeoutMs, or a
// connection that breaks, ends the connection: settings still waiting are
// answered with SettingRet(name, -1), a source-table request with
// SrcNodeConnectState(false), then ConnectState(false).
class CLmBaseStationLink : public QObject
{
    Q_OBJECT
public:
    // Where the signals of every link come from.
    static CLmBaseStationLinkHelper m_linkHelper;

    explicit CLmBaseStationLink(QObject* parent = nullptr);
    ~CLmBaseStationLink() override;

    // The station's address and ports from the deployment data ([basestation]).
    static QString StationHost();
    static int StationControlPort();
    static int StationFtpPort();

    // Prepares the link; call once before the first connect.
    void StartService();
    // Connects to StationHost():StationControlPort(), or to the address given
    // with SetStationAddress. Answer: ConnectState.
    void Connect2BaseStation();
    void Disconnect2BaseStation();
    // Overrides the deployment address (a station found some other way).
    void SetStationAddress(const QString& strHost, int nPort);
    bool IsConnected() const;

    void ReadMainframe();
    void ReadCaster();
    void ReadLoction();
    // The int results are 0 when the request was sent, -1 when not connected.
    int ReadStorageInfor();
    void ReadStaticFileState();
    int ReadStaticFileList();
    int GetSourceNode(const QByteArray& host, int nPort);

    void SetBaseNtrip(double dLatitude, double dLongitude, double dHeight, double dReserved1, double dReserved2,
                      int nElevationMask, int nRate, int nGnssType, int nReserved);
    void SetRoverNtrips(const QByteArray& host, int nPort, const QByteArray& account, const QByteArray& password,
                        const QByteArray& mountPoint, int nFlag, double dLatitude, double dLongitude,
                        double dHeight, double dReserved1, double dReserved2, int nElevationMask, int nRate,
                        int nGnssType, int nReserved);
    // Points the station at a caster and keeps its point and other settings.
    void SetRoverNtrip(const QByteArray& host, int nPort, const QByteArray& account, const QByteArray& password,
                       const QByteArray& mountPoint, int nFlag);
    void SetStaticNtrip(const QByteArray& host, int nPort, const QByteArray& account, const QByteArray& password,
                        const QByteArray& mountPoint, int nFlag, double dLatitude, double dLongitude,
                        double dHeight, double dReserved1, double dReserved2, int nElevationMask, int nRate,
                        int nGnssType, int nReserved);
    void StartStaticFile(const QByteArray& fileName, short nInterval, int nRate, int nElevationMask);
    void StopStaticFile();
    // Deletes the named files; an empty list deletes every file.
    int DeleteStaticFiles(const QList<QByteArray>& lstFileNames);

    static constexpr int kConnectTimeoutMs = 5000;
    // A source table is fetched by the station from the caster first.
    static constexpr int kReplyTimeoutMs = 20000;

private:
    // Sends one request; false when not connected. Every request is answered.
    bool Send(const QByteArray& operation, const QList<QByteArray>& fields = {});
    void SendSetting(const QByteArray& operation, const QByteArray& host, int nPort, const QByteArray& account,
                     const QByteArray& password, const QByteArray& mountPoint, int nFlag, double dLatitude,
                     double dLongitude, double dHeight, double dReserved1, double dReserved2, int nElevationMask,
                     int nRate, int nGnssType, int nReserved);
    void OnConnected();
    void OnConnectionEnded();
    void OnReadyRead();
    void OnReplyTimeout();
    void HandleGga(const QByteArray& body);
    void HandleReply(const CLmBaseStationProtocol::SSentence& reply);
    void FailWaitingRequests();

    QString m_strHost;
    int m_nPort = 0;
    QTcpSocket m_socket{this};
    QTimer m_replyTimer{this};
    CLmNmeaLineReader m_reader;
    QList<QByteArray> m_lstAwaiting;  // operations sent and not answered yet, in order
    bool m_bActive = false;  // from Connect2BaseStation until the end of that connection is reported
    bool m_bHasLastGga = false;
    double m_dLastGgaSeconds = 0.0;
    int m_nGgaRate = 0;
};
