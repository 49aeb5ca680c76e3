#include "CLmFtpClientLink.h"

#include "LmLinkInstanceLog.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <limits>

CLmFtpClientLink::CLmFtpClientLink(QObject* parent)
    : QObject(parent)
{
}

CLmFtpClientLink::~CLmFtpClientLink()
{
    Abort();
}

void CLmFtpClientLink::SetFtpHostPort(const QString& strHost, int nPort)
{
    m_strHost = strHost;
    m_nPort = nPort;
}

void CLmFtpClientLink::FtpGet(const QString& strPath)
{
    Abort();
    ClearReceivedData();
    QUrl url;
    url.setScheme(QStringLiteral("ftp"));
    url.setHost(m_strHost);
    url.setPort(m_nPort);
    url.setPath(strPath);
    qCInfo(lcLinkInstanceBase) << "FTP download of" << url.toDisplayString();
    m_pReply = m_manager.get(QNetworkRequest(url));
    connect(m_pReply, &QNetworkReply::readyRead, this, &CLmFtpClientLink::OnReadyRead);
    connect(m_pReply, &QNetworkReply::downloadProgress, this, &CLmFtpClientLink::OnProgress);
    connect(m_pReply, &QNetworkReply::finished, this, &CLmFtpClientLink::OnFinished);
}

void CLmFtpClientLink::Abort()
{
    if (m_pReply.isNull())
        return;
    QNetworkReply* reply = m_pReply;
    m_pReply.clear();
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

void CLmFtpClientLink::ClearReceivedData()
{
    m_received = QByteArray();
    m_nExpected = -1;
}

void CLmFtpClientLink::OnReadyRead()
{
    m_received.append(m_pReply->readAll());
}

void CLmFtpClientLink::OnProgress(qint64 nReceived, qint64 nTotal)
{
    if (nTotal > 0 && m_nExpected < 0) {
        m_nExpected = nTotal;
        m_received.reserve(static_cast<int>(qMin<qint64>(nTotal, std::numeric_limits<int>::max())));
    }
    emit downloadProgress(nReceived, nTotal);
}

void CLmFtpClientLink::OnFinished()
{
    QNetworkReply* reply = m_pReply;
    m_pReply.clear();
    reply->deleteLater();
    m_received.append(reply->readAll());
    const bool complete = m_nExpected < 0 || m_received.size() == m_nExpected;
    if (reply->error() != QNetworkReply::NoError || !complete) {
        qCWarning(lcLinkInstanceBase) << "FTP download failed:" << reply->errorString() << "after"
                                      << m_received.size() << "of" << m_nExpected << "bytes";
        ClearReceivedData();
        emit NetWorkError();
        return;
    }
    emit downLoadFinished();
}
