#pragma once

#include "CLmBaseStationLinkHelper.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

// Control link to a GNSS RTK base station: one TCP connection carrying the
// station's sentence protocol (see CLmBaseStationProtocol.h). Every operation
// returns at once; the answer arrives later as a signal of the shared
// m_linkHelper. Lives on the thread that created it (the GUI thread) and
// never blocks it.
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

private:
    class CPrivate;
    CPrivate* m_pPrivate;
};
