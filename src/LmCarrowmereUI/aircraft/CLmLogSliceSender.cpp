#include "CLmLogSliceSender.h"

#include "CLmTransferObject.h"
#include "LmCarrowmereUILog.h"
#include "LmLogMultipart.h"

#include <QFile>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrent>

#include <curl/curl.h>

#include <algorithm>
#include <atomic>
#include <cstring>

// The connection to the storage, used by one slice at a time on a worker;
// the last of the sender and its slice in flight to let go closes it.
struct SLmSliceLink
{
    SLmSliceLink()
    {
        static const bool s_bInitialised = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
        pHandle = s_bInitialised ? curl_easy_init() : nullptr;
    }
    ~SLmSliceLink() { curl_easy_cleanup(pHandle); }
    SLmSliceLink(const SLmSliceLink&) = delete;
    SLmSliceLink& operator=(const SLmSliceLink&) = delete;

    CURL* pHandle = nullptr;
    std::atomic<bool> bAbandoned{false};
    std::atomic<qint64> nSent{0};
};

namespace {

constexpr int kProgressIntervalMs = 100;

// Slices wait on the network: they get a thread of their own instead of one
// of the few the shared pool has for computing.
QThreadPool& SlicePool()
{
    static QThreadPool s_pool;
    s_pool.setMaxThreadCount(1);
    return s_pool;
}

// The body as curl asks for it: the head, the slice's bytes read from the
// file, the tail.
class CSliceBody
{
public:
    CSliceBody(const QByteArray& head, QFile& file, qint64 sliceBytes)
        : m_head(head)
        , m_tail(LmLogMultipart::SliceTail())
        , m_file(file)
        , m_nFileBytes(sliceBytes)
    {
    }

    qint64 Size() const { return m_head.size() + m_nFileBytes + m_tail.size(); }

    // Bytes written to out, or -1 when the file ran short.
    qint64 Read(char* out, qint64 capacity)
    {
        qint64 written = Copy(m_head, 0, out, capacity);
        const qint64 fromFile = std::min(capacity - written, m_head.size() + m_nFileBytes - m_nPosition);
        if (fromFile > 0) {
            if (m_file.read(out + written, fromFile) != fromFile)
                return -1;
            m_nPosition += fromFile;
            written += fromFile;
        }
        return written + Copy(m_tail, m_head.size() + m_nFileBytes, out + written, capacity - written);
    }

private:
    // Copies what is left of part, which starts at start in the body.
    qint64 Copy(const QByteArray& part, qint64 start, char* out, qint64 capacity)
    {
        const qint64 from = m_nPosition - start;
        const qint64 count = std::min(capacity, part.size() - from);
        if (from < 0 || count <= 0)
            return 0;
        std::memcpy(out, part.constData() + from, size_t(count));
        m_nPosition += count;
        return count;
    }

    QByteArray m_head;
    QByteArray m_tail;
    QFile& m_file;
    qint64 m_nFileBytes;
    qint64 m_nPosition = 0;
};

size_t ReadBody(char* buffer, size_t size, size_t count, void* body)
{
    const qint64 read = static_cast<CSliceBody*>(body)->Read(buffer, qint64(size * count));
    return read < 0 ? CURL_READFUNC_ABORT : size_t(read);
}

size_t KeepReply(char* data, size_t size, size_t count, void* reply)
{
    static_cast<QByteArray*>(reply)->append(data, int(size * count));
    return size * count;
}

int WatchTransfer(void* link, curl_off_t, curl_off_t, curl_off_t, curl_off_t sent)
{
    auto* sliceLink = static_cast<SLmSliceLink*>(link);
    sliceLink->nSent = qint64(sent);
    return sliceLink->bAbandoned ? 1 : 0;
}

}  // namespace

CLmLogSliceSender::CLmLogSliceSender(const QByteArray& url, const Headers& headers, const QString& path,
                                     QObject* parent)
    : QObject(parent)
    , m_url(url)
    , m_headers(headers)
    , m_strPath(path)
    , m_pLink(std::make_shared<SLmSliceLink>())
{
    m_progressTimer.setInterval(kProgressIntervalMs);
    connect(&m_progressTimer, &QTimer::timeout, this, [this] { Q_EMIT Progress(m_pLink->nSent, m_nBodySize); });
}

CLmLogSliceSender::~CLmLogSliceSender()
{
    m_pLink->bAbandoned = true;
}

void CLmLogSliceSender::Send(qint64 offset, qint64 sliceBytes, const QString& session)
{
    const QByteArray head = LmLogMultipart::SliceHead(offset, session, QFileInfo(m_strPath).fileName());
    m_nBodySize = head.size() + sliceBytes + LmLogMultipart::SliceTail().size();
    m_pLink->nSent = 0;
    auto* posting = new QFutureWatcher<SPosted>(this);
    connect(posting, &QFutureWatcher<SPosted>::finished, this, [this, posting] {
        posting->deleteLater();
        m_progressTimer.stop();
        OnPosted(posting->result());
    });
    posting->setFuture(QtConcurrent::run(&SlicePool(), [link = m_pLink, url = m_url, headers = m_headers,
                                                          path = m_strPath, offset, sliceBytes, head] {
        return Post(link, url, headers, path, offset, sliceBytes, head);
    }));
    m_progressTimer.start();
}

CLmLogSliceSender::SPosted CLmLogSliceSender::Post(const std::shared_ptr<SLmSliceLink>& link, const QByteArray& url,
                                                   const Headers& headers, const QString& path, qint64 offset,
                                                   qint64 sliceBytes, const QByteArray& head)
{
    SPosted posted;
    QFile file(path);
    if (!link->pHandle || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.seek(offset)) {
        posted.strError = QStringLiteral("cannot read the log");
        return posted;
    }
    CSliceBody body(head, file, sliceBytes);
    curl_slist* headerList = curl_slist_append(nullptr, "Expect:");  // the body follows at once
    for (const auto& header : headers)
        headerList = curl_slist_append(headerList, QByteArray(header.first + ": " + header.second).constData());
    CURL* handle = link->pHandle;
    curl_easy_setopt(handle, CURLOPT_URL, url.constData());
    curl_easy_setopt(handle, CURLOPT_PROXY, "");  // direct, as every other request of the application
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headerList);
    curl_easy_setopt(handle, CURLOPT_POST, 1L);
    curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(body.Size()));
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, &ReadBody);
    curl_easy_setopt(handle, CURLOPT_READDATA, &body);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &KeepReply);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &posted.reply);
    curl_easy_setopt(handle, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(handle, CURLOPT_XFERINFOFUNCTION, &WatchTransfer);
    curl_easy_setopt(handle, CURLOPT_XFERINFODATA, link.get());
    // As the application's other transfers: one that moves no byte for this long has failed.
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, long(CLmTransferObject::TransferTimeoutMs));
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, long(CLmTransferObject::TransferTimeoutMs / 1000));
    const CURLcode result = curl_easy_perform(handle);
    curl_slist_free_all(headerList);
    long httpStatus = 0;
    if (result == CURLE_OK)
        curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &httpStatus);
    else
        posted.strError = QString::fromLatin1(curl_easy_strerror(result));
    posted.nHttpStatus = int(httpStatus);
    return posted;
}

void CLmLogSliceSender::OnPosted(const SPosted& posted)
{
    const bool success = posted.nHttpStatus >= 200 && posted.nHttpStatus < 300;
    if (!success && !CLmTransferObject::IsServiceRefusal(posted.nHttpStatus, posted.reply)) {
        qCInfo(lcFlightLog) << "slice failed" << posted.nHttpStatus << posted.strError;
        Q_EMIT Failed();
        return;
    }
    Q_EMIT Progress(m_nBodySize, m_nBodySize);
    Q_EMIT Answered(posted.reply);
}
