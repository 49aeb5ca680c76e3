#include "CLmBaseStationLink.h"

#include "CLmDeployConfig.h"
#include "CLmGgaReader.h"
#include "LmLinkInstanceLog.h"

#include <QHash>

using Protocol = CLmBaseStationProtocol;

CLmBaseStationLinkHelper CLmBaseStationLink::m_linkHelper;

namespace {

// The name each setting's result is reported under.
QString SettingName(const QByteArray& operation)
{
    static const QHash<QByteArray, QString> names = {
        {Protocol::Base, QStringLiteral("baseNtrip")},
        {Protocol::Rover, QStringLiteral("roverNtrips")},
        {Protocol::Cors, QStringLiteral("roverNtrips")},
        {Protocol::Static, QStringLiteral("staticNtrip")},
        {Protocol::StartFile, QStringLiteral("startStaticFile")},
        {Protocol::StopFile, QStringLiteral("stopStaticFile")},
        {Protocol::Delete, QStringLiteral("deleteStaticFile")},
    };
    return names.value(operation);
}

int DeployPort(const char* key)
{
    return CLmDeployConfig::Instance().Value(QStringLiteral("basestation"), QLatin1String(key)).toInt();
}

bool FieldCountBelow(const Protocol::SSentence& reply, int count)
{
    if (reply.lstFields.size() >= count)
        return false;
    qCWarning(lcLinkInstanceBase) << "reply" << reply.operation << "has" << reply.lstFields.size()
                                  << "fields, expected" << count << "- ignored";
    return true;
}

SBaseStationMainFrame ReadMainFrame(const QList<QByteArray>& fields)
{
    SBaseStationMainFrame frame;
    frame.nWorkMode = fields.at(0).toInt();
    frame.nBattery = fields.at(1).toInt();
    frame.nFirmwareVersion = fields.at(2).toInt();
    frame.strSerialNumber = Protocol::ToText(fields.at(3));
    return frame;
}

SSCasterParam ReadCasterParam(const QList<QByteArray>& fields)
{
    SSCasterParam caster;
    caster.strHost = Protocol::ToText(fields.at(0));
    caster.nPort = fields.at(1).toInt();
    caster.strAccount = Protocol::ToText(fields.at(2));
    caster.strPassword = Protocol::ToText(fields.at(3));
    caster.strMountPoint = Protocol::ToText(fields.at(4));
    return caster;
}

SBaseStationLoction ReadLocation(const QList<QByteArray>& fields)
{
    SBaseStationLoction location;
    location.dLatitude = fields.at(0).toDouble();
    location.dLongitude = fields.at(1).toDouble();
    location.dAltitude = fields.at(2).toDouble();
    location.strDiffFormat = Protocol::ToText(fields.at(3));
    return location;
}

SStaticFileState ReadFileState(const QList<QByteArray>& fields)
{
    SStaticFileState state;
    state.strFileName = Protocol::ToText(fields.at(0));
    state.strCreateTime = Protocol::ToText(fields.at(1));
    state.nRecording = fields.at(2).toInt();
    return state;
}

QList<QByteArray> PointFields(double dLatitude, double dLongitude, double dHeight, double dReserved1,
                              double dReserved2, int nElevationMask, int nRate, int nGnssType, int nReserved)
{
    return {Protocol::Number(dLatitude), Protocol::Number(dLongitude), Protocol::Number(dHeight),
            Protocol::Number(dReserved1), Protocol::Number(dReserved2), Protocol::Number(qint64(nElevationMask)),
            Protocol::Number(qint64(nRate)), Protocol::Number(qint64(nGnssType)), Protocol::Number(qint64(nReserved))};
}

QList<QByteArray> CasterFields(const QByteArray& host, int nPort, const QByteArray& account,
                               const QByteArray& password, const QByteArray& mountPoint, int nFlag)
{
    return {Protocol::Text(host), Protocol::Number(qint64(nPort)), Protocol::Text(account), Protocol::Text(password),
            Protocol::Text(mountPoint), Protocol::Number(qint64(nFlag))};
}

}  // namespace

CLmBaseStationLink::CLmBaseStationLink(QObject* parent)
    : QObject(parent)
{
    m_replyTimer.setSingleShot(true);
    connect(&m_replyTimer, &QTimer::timeout, this, &CLmBaseStationLink::OnReplyTimeout);
    connect(&m_socket, &QTcpSocket::connected, this, &CLmBaseStationLink::OnConnected);
    connect(&m_socket, &QTcpSocket::disconnected, this, &CLmBaseStationLink::OnConnectionEnded);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &CLmBaseStationLink::OnConnectionEnded);
    connect(&m_socket, &QTcpSocket::readyRead, this, &CLmBaseStationLink::OnReadyRead);
}

CLmBaseStationLink::~CLmBaseStationLink()
{
    m_socket.disconnect(this);
    m_socket.abort();
}

QString CLmBaseStationLink::StationHost()
{
    return CLmDeployConfig::Instance().Value(QStringLiteral("basestation"), QStringLiteral("host"));
}

int CLmBaseStationLink::StationControlPort()
{
    return DeployPort("control_port");
}

int CLmBaseStationLink::StationFtpPort()
{
    return DeployPort("ftp_port");
}

void CLmBaseStationLink::StartService()
{
    if (m_strHost.isEmpty())
        SetStationAddress(StationHost(), StationControlPort());
}

void CLmBaseStationLink::SetStationAddress(const QString& strHost, int nPort)
{
    m_strHost = strHost;
    m_nPort = nPort;
}

void CLmBaseStationLink::Connect2BaseStation()
{
    if (m_socket.state() == QAbstractSocket::ConnectedState) {
        emit m_linkHelper.ConnectState(true);
        return;
    }
    if (m_bActive)
        return;  // connecting already
    StartService();
    qCInfo(lcLinkInstanceBase) << "connecting to the base station at" << m_strHost << m_nPort;
    m_bActive = true;
    m_reader.Reset();
    m_bHasLastGga = false;
    m_nGgaRate = 0;
    m_replyTimer.start(kConnectTimeoutMs);
    m_socket.connectToHost(m_strHost, static_cast<quint16>(m_nPort));
}

void CLmBaseStationLink::Disconnect2BaseStation()
{
    m_socket.abort();
    OnConnectionEnded();
}

bool CLmBaseStationLink::IsConnected() const
{
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

void CLmBaseStationLink::OnConnected()
{
    m_replyTimer.stop();
    qCInfo(lcLinkInstanceBase) << "base station connected";
    emit m_linkHelper.ConnectState(true);
}

void CLmBaseStationLink::OnConnectionEnded()
{
    if (!m_bActive)
        return;
    m_bActive = false;
    m_replyTimer.stop();
    if (m_socket.state() != QAbstractSocket::UnconnectedState)
        m_socket.abort();
    qCInfo(lcLinkInstanceBase) << "base station connection ended:" << m_socket.errorString();
    FailWaitingRequests();
    emit m_linkHelper.ConnectState(false);
}

void CLmBaseStationLink::OnReplyTimeout()
{
    qCWarning(lcLinkInstanceBase) << "the base station did not answer" << m_lstAwaiting.value(0, "the connection")
                                  << "in time; closing the connection";
    OnConnectionEnded();
}

void CLmBaseStationLink::FailWaitingRequests()
{
    const QList<QByteArray> waiting = m_lstAwaiting;
    m_lstAwaiting.clear();
    for (const QByteArray& operation : waiting) {
        if (operation == Protocol::SourceTable)
            emit m_linkHelper.SrcNodeConnectState(false);
        else if (!SettingName(operation).isEmpty())
            emit m_linkHelper.SettingRet(SettingName(operation), -1);
    }
}

bool CLmBaseStationLink::Send(const QByteArray& operation, const QList<QByteArray>& fields)
{
    if (!IsConnected()) {
        qCInfo(lcLinkInstanceBase) << operation << "not sent: the base station is not connected";
        return false;
    }
    m_socket.write(Protocol::RequestLine(operation, fields));
    m_lstAwaiting.append(operation);
    if (!m_replyTimer.isActive())
        m_replyTimer.start(kReplyTimeoutMs);
    return true;
}

void CLmBaseStationLink::OnReadyRead()
{
    m_reader.Feed(m_socket.readAll());
    QByteArray body;
    while (m_reader.Next(body)) {
        Protocol::SSentence reply;
        if (CLmGgaReader::IsGga(body))
            HandleGga(body);
        else if (Protocol::Parse(body, reply) && reply.eKind == Protocol::Reply)
            HandleReply(reply);
        else
            qCDebug(lcLinkInstanceBase) << "sentence ignored:" << body.left(16);
    }
}

void CLmBaseStationLink::HandleGga(const QByteArray& body)
{
    SLmGgaFix fix;
    if (!CLmGgaReader::Read(body, fix)) {
        qCWarning(lcLinkInstanceBase) << "malformed GGA report ignored";
        return;
    }
    if (m_bHasLastGga) {
        double interval = fix.dUtcSeconds - m_dLastGgaSeconds;
        if (interval < 0.0)
            interval += 24 * 3600;  // past midnight
        if (interval > 0.0)
            m_nGgaRate = qRound(1.0 / interval);
    }
    m_bHasLastGga = true;
    m_dLastGgaSeconds = fix.dUtcSeconds;

    SGGAParam param;
    param.dLatitude = fix.dLatitude;
    param.dLongitude = fix.dLongitude;
    param.dAltitude = fix.dAltitude;
    param.nQuality = fix.nQuality;
    param.nSatellites = fix.nSatellites;
    param.dPrecision = fix.dHdop;
    param.nRate = m_nGgaRate;
    emit m_linkHelper.GGAParam(param);
}

void CLmBaseStationLink::HandleReply(const CLmBaseStationProtocol::SSentence& reply)
{
    const int waiting = m_lstAwaiting.indexOf(reply.operation);
    if (waiting < 0) {
        qCWarning(lcLinkInstanceBase) << "unrequested reply" << reply.operation << "ignored";
        return;
    }
    m_lstAwaiting.removeAt(waiting);
    if (m_lstAwaiting.isEmpty())
        m_replyTimer.stop();
    else
        m_replyTimer.start(kReplyTimeoutMs);

    const QString setting = SettingName(reply.operation);
    if (!setting.isEmpty()) {
        emit m_linkHelper.SettingRet(setting, reply.nCode);
        return;
    }
    if (reply.operation == Protocol::SourceTable) {
        QStringList nodes;
        for (const QByteArray& field : reply.lstFields)
            nodes.append(Protocol::ToText(field));
        if (reply.nCode == Protocol::CodeSuccess)
            emit m_linkHelper.SrcNodeList(nodes, nodes.size());
        emit m_linkHelper.SrcNodeConnectState(reply.nCode == Protocol::CodeSuccess);
        return;
    }
    if (reply.nCode != Protocol::CodeSuccess) {
        qCWarning(lcLinkInstanceBase) << "the base station refused" << reply.operation << "with code" << reply.nCode;
        return;
    }
    const QList<QByteArray>& fields = reply.lstFields;
    if (reply.operation == Protocol::MainFrame && !FieldCountBelow(reply, 4)) {
        emit m_linkHelper.BaseStationMainFrame(ReadMainFrame(fields));
    } else if (reply.operation == Protocol::Caster && !FieldCountBelow(reply, 5)) {
        emit m_linkHelper.CasterParam(ReadCasterParam(fields));
    } else if (reply.operation == Protocol::Location && !FieldCountBelow(reply, 4)) {
        emit m_linkHelper.Loction(ReadLocation(fields));
    } else if (reply.operation == Protocol::Storage && !FieldCountBelow(reply, 2)) {
        emit m_linkHelper.StorageInfor(fields.at(0).toULongLong(), fields.at(1).toULongLong());
    } else if (reply.operation == Protocol::FileState && !FieldCountBelow(reply, 3)) {
        emit m_linkHelper.StaticFileState(ReadFileState(fields));
    } else if (reply.operation == Protocol::FileList && !FieldCountBelow(reply, 2)) {
        emit m_linkHelper.StaticsFileList(Protocol::ToText(fields.at(1)), fields.at(0).toInt());
        emit m_linkHelper.ReadStaticsFileFinished();
    }
}

void CLmBaseStationLink::ReadMainframe()
{
    Send(Protocol::MainFrame);
}

void CLmBaseStationLink::ReadCaster()
{
    Send(Protocol::Caster);
}

void CLmBaseStationLink::ReadLoction()
{
    Send(Protocol::Location);
}

int CLmBaseStationLink::ReadStorageInfor()
{
    return Send(Protocol::Storage) ? 0 : -1;
}

void CLmBaseStationLink::ReadStaticFileState()
{
    Send(Protocol::FileState);
}

int CLmBaseStationLink::ReadStaticFileList()
{
    return Send(Protocol::FileList) ? 0 : -1;
}

int CLmBaseStationLink::GetSourceNode(const QByteArray& host, int nPort)
{
    if (Send(Protocol::SourceTable, {Protocol::Text(host), Protocol::Number(qint64(nPort))}))
        return 0;
    emit m_linkHelper.SrcNodeConnectState(false);
    return -1;
}

void CLmBaseStationLink::SetBaseNtrip(double dLatitude, double dLongitude, double dHeight, double dReserved1,
                                      double dReserved2, int nElevationMask, int nRate, int nGnssType,
                                      int nReserved)
{
    Send(Protocol::Base, PointFields(dLatitude, dLongitude, dHeight, dReserved1, dReserved2, nElevationMask, nRate,
                                     nGnssType, nReserved));
}

void CLmBaseStationLink::SendSetting(const QByteArray& operation, const QByteArray& host, int nPort,
                                     const QByteArray& account, const QByteArray& password,
                                     const QByteArray& mountPoint, int nFlag, double dLatitude, double dLongitude,
                                     double dHeight, double dReserved1, double dReserved2, int nElevationMask,
                                     int nRate, int nGnssType, int nReserved)
{
    Send(operation, CasterFields(host, nPort, account, password, mountPoint, nFlag)
                        + PointFields(dLatitude, dLongitude, dHeight, dReserved1, dReserved2, nElevationMask, nRate,
                                      nGnssType, nReserved));
}

void CLmBaseStationLink::SetRoverNtrips(const QByteArray& host, int nPort, const QByteArray& account,
                                        const QByteArray& password, const QByteArray& mountPoint, int nFlag,
                                        double dLatitude, double dLongitude, double dHeight, double dReserved1,
                                        double dReserved2, int nElevationMask, int nRate, int nGnssType,
                                        int nReserved)
{
    SendSetting(Protocol::Rover, host, nPort, account, password, mountPoint, nFlag, dLatitude, dLongitude, dHeight,
                dReserved1, dReserved2, nElevationMask, nRate, nGnssType, nReserved);
}

void CLmBaseStationLink::SetRoverNtrip(const QByteArray& host, int nPort, const QByteArray& account,
                                       const QByteArray& password, const QByteArray& mountPoint, int nFlag)
{
    Send(Protocol::Cors, CasterFields(host, nPort, account, password, mountPoint, nFlag));
}

void CLmBaseStationLink::SetStaticNtrip(const QByteArray& host, int nPort, const QByteArray& account,
                                        const QByteArray& password, const QByteArray& mountPoint, int nFlag,
                                        double dLatitude, double dLongitude, double dHeight, double dReserved1,
                                        double dReserved2, int nElevationMask, int nRate, int nGnssType,
                                        int nReserved)
{
    SendSetting(Protocol::Static, host, nPort, account, password, mountPoint, nFlag, dLatitude, dLongitude, dHeight,
                dReserved1, dReserved2, nElevationMask, nRate, nGnssType, nReserved);
}

void CLmBaseStationLink::StartStaticFile(const QByteArray& fileName, short nInterval, int nRate, int nElevationMask)
{
    Send(Protocol::StartFile, {Protocol::Text(fileName), Protocol::Number(qint64(nInterval)),
                               Protocol::Number(qint64(nRate)), Protocol::Number(qint64(nElevationMask))});
}

void CLmBaseStationLink::StopStaticFile()
{
    Send(Protocol::StopFile);
}

int CLmBaseStationLink::DeleteStaticFiles(const QList<QByteArray>& lstFileNames)
{
    QList<QByteArray> fields;
    for (const QByteArray& name : lstFileNames)
        fields.append(Protocol::Text(name));
    return Send(Protocol::Delete, fields) ? 0 : -1;
}
