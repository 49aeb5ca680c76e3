#include "CLmLogSliceSender.h"

#include "CLmTransferObject.h"
#include "LmCarrowmereUILog.h"
#include "LmLogMultipart.h"

#include <QFile>
#include <QFileInfo>
#include <QFutureInterface>
#include <QFutureWatcher>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThreadPool>

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
    // Bytes of the file the run has sent in its earlier slices, and in all.
    std::atomic<qint64> nRunSent{0};
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
    sliceLink->nSent = sliceLink->nRunSent + qint64(sent);
    return sliceLink->bAbandoned ? 1 : 0;
}

}  // namespace

CLmLogSliceSender::CLmLogSliceSender(const QByteArray& url, const Headers& headers, const QString& path,
                                     qint64 fileSize, QObject* parent)
    : QObject(parent)
    , m_url(url)
    , m_headers(headers)
    , m_strPath(path)
    , m_nFileSize(fileSize)
    , m_pLink(std::make_shared<SLmSliceLink>())
{
    m_progressTimer.setInterval(kProgressIntervalMs);
    connect(&m_progressTimer, &QTimer::timeout, this, [this] {
        if (m_pLink->nSent > 0)
            Q_EMIT Progress(m_pLink->nSent, m_nFileSize - m_nRunOffset);
    });
}

CLmLogSliceSender::~CLmLogSliceSender()
{
    m_pLink->bAbandoned = true;
}

void CLmLogSliceSender::Send(qint64 offset, qint64 sliceBytes, const QString& session)
{
    m_nRunOffset = offset;
    m_pLink->nRunSent = 0;
    m_pLink->nSent = 0;
    auto* posting = new QFutureWatcher<SPosted>(this);
    connect(posting, &QFutureWatcher<SPosted>::resultReadyAt, this,
            [this, posting](int index) { OnPosted(posting->resultAt(index)); });
    connect(posting, &QFutureWatcher<SPosted>::finished, posting, &QObject::deleteLater);
    QFutureInterface<SPosted> promise;
    promise.reportStarted();
    posting->setFuture(promise.future());
    const SRun run{m_pLink, m_url, m_headers, m_strPath, m_nFileSize, session, offset, sliceBytes};
    SlicePool().start([promise, run]() mutable { Run(promise, run); });
    m_progressTimer.start();
}

// Runs on the worker: each slice's reply is reported as it comes.
void CLmLogSliceSender::Run(QFutureInterface<SPosted> promise, const SRun& run)
{
    qint64 offset = run.nOffset;
    qint64 sliceBytes = run.nSliceBytes;
    for (int index = 0;; ++index) {
        SPosted posted = Post(run, offset, sliceBytes);
        posted.nEnd = offset + sliceBytes;
        const qint64 next = run.link->bAbandoned ? 0 : NextSliceAskedFor(posted, run);
        posted.bWentOn = next > 0;
        run.link->nRunSent = posted.nEnd - run.nOffset;
        run.link->nSent = run.link->nRunSent.load();
        promise.reportResult(posted, index);
        if (!posted.bWentOn)
            break;
        offset = posted.nEnd;
        sliceBytes = next;
    }
    promise.reportFinished();
}

qint64 CLmLogSliceSender::NextSliceAskedFor(const SPosted& posted, const SRun& run)
{
    if (posted.nHttpStatus < 200 || posted.nHttpStatus >= 300 || posted.nEnd >= run.nFileSize)
        return 0;
    const QJsonObject answer = QJsonDocument::fromJson(posted.reply).object();
    const QJsonObject data = answer.value(QStringLiteral("data")).toObject();
    const qint64 sliceSize = data.value(QStringLiteral("slice_size")).toVariant().toLongLong();
    const bool asksForNext = answer.value(QStringLiteral("code")).toInt(-1) == 0
                             && data.value(QStringLiteral("access_url")).toString().isEmpty()
                             && data.value(QStringLiteral("session")).toString() == run.strSession
                             && data.value(QStringLiteral("offset")).toVariant().toLongLong() == posted.nEnd;
    return asksForNext && sliceSize > 0 ? qMin(sliceSize, run.nFileSize - posted.nEnd) : 0;
}

CLmLogSliceSender::SPosted CLmLogSliceSender::Post(const SRun& run, qint64 offset, qint64 sliceBytes)
{
    SPosted posted;
    QFile file(run.strPath);
    if (!run.link->pHandle || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.seek(offset)) {
        posted.strError = QStringLiteral("cannot read the log");
        return posted;
    }
    CSliceBody body(LmLogMultipart::SliceHead(offset, run.strSession, QFileInfo(run.strPath).fileName()), file,
                    sliceBytes);
    curl_slist* headerList = curl_slist_append(nullptr, "Expect:");  // the body follows at once
    for (const auto& header : run.headers)
        headerList = curl_slist_append(headerList, QByteArray(header.first + ": " + header.second).constData());
    CURL* handle = run.link->pHandle;
    curl_easy_setopt(handle, CURLOPT_URL, run.url.constData());
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
    curl_easy_setopt(handle, CURLOPT_XFERINFODATA, run.link.get());
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
    if (!posted.bWentOn)
        m_progressTimer.stop();
    if (!success && !CLmTransferObject::IsServiceRefusal(posted.nHttpStatus, posted.reply)) {
        qCInfo(lcFlightLog) << "slice failed" << posted.nHttpStatus << posted.strError;
        Q_EMIT Failed();
        return;
    }
    Q_EMIT Progress(posted.nEnd - m_nRunOffset, m_nFileSize - m_nRunOffset);
    if (!posted.bWentOn)
        Q_EMIT Answered(posted.reply);
}
