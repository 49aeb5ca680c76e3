#include "CLmFtpClientLink.h"

#include "LmLinkInstanceLog.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <limits>

CLmFtpClientLink::CLmFtpClientLink(QObject* parent)
    : QObject(parent)
{
    m_stallTimer.setSingleShot(true);
    m_stallTimer.setInterval(kStallTimeoutMs);
    connect(&m_stallTimer, &QTimer::timeout, this, &CLmFtpClientLink::OnStalled);
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
    m_stallTimer.start();
}

void CLmFtpClientLink::Abort()
{
    m_stallTimer.stop();
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
    if (m_nExpected < 0)
        ExpectSize(m_pReply->header(QNetworkRequest::ContentLengthHeader).toLongLong());
    // Read straight into the held bytes: a file of hundreds of megabytes is
    // copied once, not once per chunk.
    const qint64 available = m_pReply->bytesAvailable();
    const int held = m_received.size();
    if (available <= 0 || available > std::numeric_limits<int>::max() - held) {
        m_received.append(m_pReply->readAll());
    } else {
        m_received.resize(held + static_cast<int>(available));
        const qint64 read = m_pReply->read(m_received.data() + held, available);
        m_received.resize(held + static_cast<int>(qMax<qint64>(read, 0)));
    }
    m_stallTimer.start();
}

void CLmFtpClientLink::OnProgress(qint64 nReceived, qint64 nTotal)
{
    if (m_nExpected < 0)
        ExpectSize(nTotal);
    emit downloadProgress(nReceived, nTotal);
}

void CLmFtpClientLink::ExpectSize(qint64 nSize)
{
    if (nSize <= 0)
        return;
    m_nExpected = nSize;
    m_received.reserve(static_cast<int>(qMin<qint64>(nSize, std::numeric_limits<int>::max())));
}

void CLmFtpClientLink::OnFinished()
{
    m_stallTimer.stop();
    QNetworkReply* reply = m_pReply;
    m_pReply.clear();
    reply->deleteLater();
    m_received.append(reply->readAll());
    // The session is closed now rather than kept for a next download: the
    // station serves few sessions, and one kept until this object ends could
    // only be dropped without its QUIT.
    m_manager.clearConnectionCache();
    const bool complete = m_nExpected < 0 || m_received.size() == m_nExpected;
    if (reply->error() != QNetworkReply::NoError || !complete) {
        qCWarning(lcLinkInstanceBase) << "FTP download failed:" << reply->errorString() << "after"
                                      << m_received.size() << "of" << m_nExpected << "bytes";
        Fail();
        return;
    }
    emit downLoadFinished();
}

void CLmFtpClientLink::OnStalled()
{
    qCWarning(lcLinkInstanceBase) << "FTP download stalled after" << m_received.size() << "of" << m_nExpected
                                  << "bytes";
    Abort();
    Fail();
}

void CLmFtpClientLink::Fail()
{
    ClearReceivedData();
    emit NetWorkError();
}
