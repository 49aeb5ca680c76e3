#include "CLmFtpClientLink.h"

#include <QNetworkReply>

CLmFtpClientLink::CLmFtpClientLink(QObject* parent)
    : QObject(parent)
{
}

CLmFtpClientLink::~CLmFtpClientLink() { Abort(); }

void CLmFtpClientLink::SetFtpHostPort(const QString& strHost, int nPort)
{
    m_strHost = strHost;
    m_nPort = nPort;
}

void CLmFtpClientLink::FtpGet(const QString&) {}
void CLmFtpClientLink::Abort() {}
void CLmFtpClientLink::ClearReceivedData() { m_received.clear(); }
void CLmFtpClientLink::OnReadyRead() {}
void CLmFtpClientLink::OnFinished() {}
