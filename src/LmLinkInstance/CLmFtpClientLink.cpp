#include "CLmFtpClientLink.h"

#include "LmLinkInstanceLog.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <sys/mman.h>
#include <unistd.h>

namespace {

// Below this the page faults of filling the held bytes do not matter.
constexpr int kLargeBufferBytes = 16 << 20;

// Filling fresh memory faults once per 4 KiB page, which for a file of
// hundreds of megabytes costs about as much as receiving it; with large
// pages the kernel faults once per 2 MiB. Only the whole pages inside the
// buffer are advised; where large pages are off this changes nothing.
void AdviseLargePages(QByteArray& buffer)
{
#ifdef MADV_HUGEPAGE
    if (buffer.capacity() < kLargeBufferBytes)
        return;
    const auto page = static_cast<quintptr>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<quintptr>(buffer.data());
    const quintptr first = (start + page - 1) & ~(page - 1);
    const quintptr end = (start + static_cast<quintptr>(buffer.capacity())) & ~(page - 1);
    if (end > first)
        madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#else
    Q_UNUSED(buffer)
#endif
}

}  // namespace

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
    if (m_nExpected < 0 && !ExpectSize(m_pReply->header(QNetworkRequest::ContentLengthHeader).toLongLong()))
        return;
    if (!HoldAvailableBytes(m_pReply)) {
        GiveUpTooLarge(m_received.size() + m_pReply->bytesAvailable());
        return;
    }
    m_stallTimer.start();
}

void CLmFtpClientLink::OnProgress(qint64 nReceived, qint64 nTotal)
{
    if (m_nExpected < 0 && !ExpectSize(nTotal))
        return;
    emit downloadProgress(nReceived, nTotal);
}

bool CLmFtpClientLink::ExpectSize(qint64 nSize)
{
    if (nSize <= 0)
        return true;
    if (nSize > kMaxHeldBytes) {
        GiveUpTooLarge(nSize);
        return false;
    }
    m_nExpected = nSize;
    m_received.reserve(static_cast<int>(nSize));
    AdviseLargePages(m_received);
    return true;
}

bool CLmFtpClientLink::HoldAvailableBytes(QNetworkReply* reply)
{
    // Read straight into the held bytes: a file of hundreds of megabytes is
    // copied once, not once per chunk.
    const qint64 available = reply->bytesAvailable();
    const int held = m_received.size();
    if (available > kMaxHeldBytes - held)
        return false;
    m_received.resize(held + static_cast<int>(available));
    const qint64 read = reply->read(m_received.data() + held, available);
    m_received.resize(held + static_cast<int>(qMax<qint64>(read, 0)));
    return true;
}

void CLmFtpClientLink::OnFinished()
{
    m_stallTimer.stop();
    QNetworkReply* reply = m_pReply;
    m_pReply.clear();
    reply->deleteLater();
    const bool held = HoldAvailableBytes(reply);
    // The session is closed now rather than kept for a next download: the
    // station serves few sessions, and one kept until this object ends could
    // only be dropped without its QUIT.
    m_manager.clearConnectionCache();
    const bool complete = held && (m_nExpected < 0 || m_received.size() == m_nExpected);
    if (reply->error() != QNetworkReply::NoError || !complete) {
        qCWarning(lcLinkInstanceBase) << "FTP download failed:" << reply->errorString() << "after"
                                      << m_received.size() << "of" << m_nExpected << "bytes";
        Fail();
        return;
    }
    emit downLoadFinished();
}

void CLmFtpClientLink::GiveUpTooLarge(qint64 nSize)
{
    qCWarning(lcLinkInstanceBase) << "FTP download of" << nSize << "bytes is more than can be held";
    Abort();
    Fail();
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
