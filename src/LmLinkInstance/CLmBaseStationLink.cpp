#include "CLmBaseStationLink.h"

CLmBaseStationLinkHelper CLmBaseStationLink::m_linkHelper;

class CLmBaseStationLink::CPrivate
{
};

CLmBaseStationLink::CLmBaseStationLink(QObject* parent)
    : QObject(parent), m_pPrivate(new CPrivate)
{
}

CLmBaseStationLink::~CLmBaseStationLink() { delete m_pPrivate; }

QString CLmBaseStationLink::StationHost() { return QStringLiteral("127.0.0.1"); }
int CLmBaseStationLink::StationControlPort() { return 18060; }
int CLmBaseStationLink::StationFtpPort() { return 18061; }
void CLmBaseStationLink::StartService() {}
void CLmBaseStationLink::Connect2BaseStation() {}
void CLmBaseStationLink::Disconnect2BaseStation() {}
void CLmBaseStationLink::SetStationAddress(const QString&, int) {}
bool CLmBaseStationLink::IsConnected() const { return false; }
void CLmBaseStationLink::ReadMainframe() {}
void CLmBaseStationLink::ReadCaster() {}
void CLmBaseStationLink::ReadLoction() {}
int CLmBaseStationLink::ReadStorageInfor() { return -1; }
void CLmBaseStationLink::ReadStaticFileState() {}
int CLmBaseStationLink::ReadStaticFileList() { return -1; }
int CLmBaseStationLink::GetSourceNode(const QByteArray&, int) { return -1; }
void CLmBaseStationLink::SetBaseNtrip(double, double, double, double, double, int, int, int, int) {}
void CLmBaseStationLink::SetRoverNtrips(const QByteArray&, int, const QByteArray&, const QByteArray&,
                                        const QByteArray&, int, double, double, double, double, double, int, int,
                                        int, int)
{
}
void CLmBaseStationLink::SetRoverNtrip(const QByteArray&, int, const QByteArray&, const QByteArray&,
                                       const QByteArray&, int)
{
}
void CLmBaseStationLink::SetStaticNtrip(const QByteArray&, int, const QByteArray&, const QByteArray&,
                                        const QByteArray&, int, double, double, double, double, double, int, int,
                                        int, int)
{
}
void CLmBaseStationLink::StartStaticFile(const QByteArray&, short, int, int) {}
void CLmBaseStationLink::StopStaticFile() {}
int CLmBaseStationLink::DeleteStaticFiles(const QList<QByteArray>&) { return -1; }
