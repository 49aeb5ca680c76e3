#include "CLmLogUploadController.h"

#include "CLmControl.h"
#include "CLmDownLoadObject.h"
#include "CLmLogDownloadController.h"
#include "CLmLogSliceSender.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "CLmUpLoadObject.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmLogMultipart.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QtConcurrent>

#include <openssl/evp.h>

#include <memory>

namespace {

// The report type of a fault report that carries a flight log.
constexpr char kFlightLogReportType[] = "3";
// The cloud's answer to an authorisation it will not give: its message is
// shown as it stands.
constexpr int kAuthorizationRefused = 2;

constexpr qint64 kHashChunkBytes = 1024 * 1024;

QByteArray Sha1HexOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    if (!context || EVP_DigestInit_ex(context.get(), EVP_sha1(), nullptr) != 1)
        return {};
    QByteArray chunk(int(kHashChunkBytes), Qt::Uninitialized);
    qint64 read = 0;
    while ((read = file.read(chunk.data(), kHashChunkBytes)) > 0) {
        if (EVP_DigestUpdate(context.get(), chunk.constData(), size_t(read)) != 1)
            return {};
    }
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    if (read < 0 || EVP_DigestFinal_ex(context.get(), digest, &length) != 1)
        return {};
    return QByteArray(reinterpret_cast<const char*>(digest), int(length)).toHex();
}

}  // namespace

CLmLogUploadController::CLmLogUploadController(CLmLogDownloadController* pDownload, QObject* parent)
    : QObject(parent)
    , m_pDownload(pDownload)
{
}

// A hash or a slice still running on a worker holds nothing of this
// object; its result is dropped with its watcher.
CLmLogUploadController::~CLmLogUploadController()
{
    Q_EMIT uploadcancel();
}

void CLmLogUploadController::SetReport(const SReport& report)
{
    m_report = report;
}

QString CLmLogUploadController::ReportProblem() const
{
    if (m_report.strSoftwareVersion.trimmed().isEmpty())
        return tr("Software version cannot be empty.");
    if (m_report.strOsVersion.trimmed().isEmpty())
        return tr("OS version cannot be empty.");
    if (m_report.strQuestion.trimmed().isEmpty())
        return tr("Question description cannot be empty.");
    return {};
}

QByteArray CLmLogUploadController::UploadUrl(const QString& account, const QDateTime& now, const QString& fileName)
{
    const QString name = account + QLatin1Char('_') + now.toString(QStringLiteral("yyyyMMddhhmmss"))
                         + QLatin1Char('_') + fileName;
    return GetStorageIP() + StoragePath + QUrl::toPercentEncoding(name);
}

void CLmLogUploadController::slotUploadToCloud()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        Q_EMIT NetworkQuestion();
        return;
    }
    const QList<QPair<QString, int>> waiting = m_pDownload->Waiting();
    if (!waiting.isEmpty())
        _UploadToCloud(waiting.first().first, waiting.first().second);
}

void CLmLogUploadController::_UploadToCloud(QString strFileName, int nId)
{
    if (!QFileInfo(strFileName).isFile()) {
        // A log deleted behind our back cannot be sent; the others still can.
        m_pDownload->TakeWaitingFront();
        Q_EMIT Message(tr("Fault diagnosis"), tr("File not found."), QString());
        Q_EMIT ButtonsEnabled(true);
        return;
    }
    DropTransfers();
    m_strFilePath = strFileName;
    m_nLogId = nId;
    m_nFileSize = QFileInfo(strFileName).size();
    m_strAuthorization.clear();
    m_strSha1Hex.clear();
    Q_EMIT ButtonsEnabled(false);
    HashFile();
    auto* authorization = LmCloudRequest::AddressSignedIn(new CLmDownLoadObject(this),
                                                          QByteArray(LmCloudPath::FileAuthorization));
    authorization->SetUserData(0, QFileInfo(strFileName).fileName());
    authorization->SetUserData(1, QString::number(nId));
    connect(this, &CLmLogUploadController::uploadcancel, authorization, &QObject::deleteLater);
    connect(authorization, &CLmDownLoadObject::DownLoadFinished, this, &CLmLogUploadController::slotGetAuthorInfo);
    connect(authorization, &CLmDownLoadObject::DownLoadError, this, &CLmLogUploadController::Fail);
    m_pAuthorization = authorization;
    authorization->slotRequestData();
}

void CLmLogUploadController::slotGetAuthorInfo()
{
    if (!m_pAuthorization)
        return;
    const CLmReplyEnvelope reply = CLmReplyEnvelope::Parse(m_pAuthorization->GetDownLoadData());
    m_pAuthorization->deleteLater();
    if (reply.Status() == kAuthorizationRefused) {
        DropTransfers();
        Q_EMIT Message(tr("Information"), reply.Message(), QString());
        Q_EMIT ButtonsEnabled(true);
        return;
    }
    m_strAuthorization = reply.DataObject().value(QStringLiteral("Authorization")).toString();
    if (!reply.IsParsed() || reply.Status() < 0 || reply.Status() > kAuthorizationRefused
        || m_strAuthorization.isEmpty()) {
        Fail();
        return;
    }
    StartWhenReady();
}

// A large log would hold the window while its SHA-1 is computed, so it is
// computed on a worker, while the authorisation is on its way.
void CLmLogUploadController::HashFile()
{
    auto* hashing = new QFutureWatcher<QByteArray>(this);
    connect(this, &CLmLogUploadController::uploadcancel, hashing, &QObject::deleteLater);
    connect(hashing, &QFutureWatcher<QByteArray>::finished, this, [this, hashing] {
        hashing->deleteLater();
        if (hashing != m_pHashing)
            return;
        m_pHashing = nullptr;
        m_strSha1Hex = hashing->result();
        if (m_strSha1Hex.isEmpty())
            Fail();
        else
            StartWhenReady();
    });
    m_pHashing = hashing;
    hashing->setFuture(QtConcurrent::run([path = m_strFilePath] { return Sha1HexOfFile(path); }));
}

// The start names the authorisation and the SHA-1: it leaves once both are in.
void CLmLogUploadController::StartWhenReady()
{
    if (!m_strAuthorization.isEmpty() && !m_strSha1Hex.isEmpty())
        PostStart(m_strSha1Hex);
}

void CLmLogUploadController::PostStart(const QByteArray& sha1Hex)
{
    m_strUrl = UploadUrl(GetCurUserInfo().strAccount, QDateTime::currentDateTime(),
                         QFileInfo(m_strFilePath).fileName());
    Q_EMIT StatusText(tr("Is uploading"));
    m_nAskedOffset = -1;
    m_iOffsetRepeats = 0;
    PostToStorage(LmLogMultipart::StartBody(m_nFileSize, sha1Hex));
}

void CLmLogUploadController::PostToStorage(const QByteArray& body)
{
    auto* upload = new CLmUpLoadObject(this);
    upload->SetUrl(m_strUrl);
    for (const auto& header : StorageHeaders())
        upload->SetRawHeader(header.first, header.second);
    upload->SetFilePathArray(body);
    connect(this, &CLmLogUploadController::uploadcancel, upload, &QObject::deleteLater);
    connect(upload, &CLmUpLoadObject::UpLoadFinished, upload, &QObject::deleteLater);
    connect(upload, &CLmUpLoadObject::UpLoadNetWorkError, upload, &QObject::deleteLater);
    connect(upload, &CLmUpLoadObject::UpLoadFinished, this, &CLmLogUploadController::slotStartUpRequest);
    connect(upload, &CLmUpLoadObject::UpLoadNetWorkError, this, &CLmLogUploadController::Fail);
    m_pUpload = upload;
    upload->PostNetWorkReplyMessage();
}

void CLmLogUploadController::slotStartUpRequest(QByteArray reply)
{
    HandleStorageReply(reply);
}

void CLmLogUploadController::slotSliceRequest(QByteArray reply)
{
    HandleStorageReply(reply);
}

// Every storage reply says where the file stands: the offset of the next
// slice the storage wants, or the address of the whole file once it holds it.
void CLmLogUploadController::HandleStorageReply(const QByteArray& reply)
{
    if (sender() && sender() != m_pUpload && sender() != m_pSliceSender)
        return;
    const QJsonObject answer = QJsonDocument::fromJson(reply).object();
    const QJsonObject data = answer.value(QStringLiteral("data")).toObject();
    if (answer.value(QStringLiteral("code")).toInt(-1) != 0 || data.isEmpty()) {
        qCInfo(lcFlightLog) << "storage refused the log:" << answer.value(QStringLiteral("message")).toString();
        Fail();
        return;
    }
    const QString accessUrl = data.value(QStringLiteral("access_url")).toString();
    if (!accessUrl.isEmpty()) {
        SendReport(accessUrl);
        return;
    }
    m_strSession = data.value(QStringLiteral("session")).toString();
    const qint64 offset = data.value(QStringLiteral("offset")).toVariant().toLongLong();
    const qint64 sliceSize = data.value(QStringLiteral("slice_size")).toVariant().toLongLong();
    if (m_strSession.isEmpty() || sliceSize <= 0 || offset < 0 || offset >= m_nFileSize) {
        Fail();
        return;
    }
    // A storage that keeps asking for the same slice does not take it: the
    // upload ends instead of sending it for ever.
    m_iOffsetRepeats = offset == m_nAskedOffset ? m_iOffsetRepeats + 1 : 0;
    m_nAskedOffset = offset;
    if (m_iOffsetRepeats > kMaxOffsetRepeats) {
        qCInfo(lcFlightLog) << "storage keeps asking for offset" << offset;
        Fail();
        return;
    }
    SendSlice(offset, sliceSize);
}

QList<QPair<QByteArray, QByteArray>> CLmLogUploadController::StorageHeaders() const
{
    return {{QByteArrayLiteral("Content-Type"), LmLogMultipart::ContentType()},
            {QByteArrayLiteral("Authorization"), m_strAuthorization.toUtf8()}};
}

void CLmLogUploadController::SendSlice(qint64 offset, qint64 sliceSize)
{
    if (!m_pSliceSender) {
        auto* sender = new CLmLogSliceSender(m_strUrl, StorageHeaders(), m_strFilePath, m_nFileSize, this);
        connect(this, &CLmLogUploadController::uploadcancel, sender, &QObject::deleteLater);
        connect(sender, &CLmLogSliceSender::Answered, this, &CLmLogUploadController::slotSliceRequest);
        connect(sender, &CLmLogSliceSender::Progress, this, &CLmLogUploadController::slotUpLoadProcess);
        connect(sender, &CLmLogSliceSender::Failed, this, [this, sender] {
            if (sender == m_pSliceSender)
                Fail();
        });
        m_pSliceSender = sender;
    }
    m_nSliceOffset = offset;
    m_pSliceSender->Send(offset, qMin(sliceSize, m_nFileSize - offset), m_strSession);
}

void CLmLogUploadController::slotUpLoadProcess(qlonglong iCur, qlonglong iTotal)
{
    if (iTotal <= 0)
        return;
    Q_EMIT ProgressShown(tr("Is uploading"), int(qMin(m_nFileSize, m_nSliceOffset + iCur)), int(m_nFileSize));
}

void CLmLogUploadController::SendReport(const QString& accessUrl)
{
    const int remaining = m_pDownload->Waiting().size() - 1;
    if (remaining > 0)
        Q_EMIT StatusText(tr("Is uploading, remaining") + QStringLiteral(" %1").arg(remaining));
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::AppBugReport);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmLogUploadController::slotUpLoadFinished);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, [this](const QString& message) {
        Q_EMIT Message(tr("SkyConsole"), message, QString());
        Q_EMIT ButtonsEnabled(true);
        Q_EMIT UploadButtonChanged(true, tr("Re-upload"));
    });
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmLogUploadController::Fail);
    request->SetBody(LmCloudForm::Body({{"version", m_report.strSoftwareVersion},
                                        {"system", m_report.strOsVersion},
                                        {"level", QString::number(m_report.nLevel)},
                                        {"type", QString::fromLatin1(kFlightLogReportType)},
                                        {"data", m_report.strQuestion},
                                        {"log_url", accessUrl}}));
    request->PostNetWorkReplyMessage();
}

void CLmLogUploadController::slotUpLoadFinished(QByteArray reply)
{
    m_pDownload->TakeWaitingFront();
    if (!m_pDownload->Waiting().isEmpty()) {
        slotUploadToCloud();
        return;
    }
    FinishAll(CLmReplyEnvelope::Parse(reply).Message());
}

void CLmLogUploadController::FinishAll(const QString& message)
{
    Q_EMIT UploadCompleted(message);
    QDir folder(CLmLogDownloadController::LogFolder());
    for (const QString& log : folder.entryList({QStringLiteral("*.zf")}, QDir::Files))
        folder.remove(log);
    m_pDownload->UncheckAll();
    Q_EMIT StatusText(tr("Upload completed."));
    Q_EMIT ButtonsEnabled(true);
    Q_EMIT UploadButtonChanged(true, tr("Continue to upload"));
}

// The logs stay where they are, so "Re-upload" starts again from the first
// one waiting and the storage resumes what it already has.
void CLmLogUploadController::Fail()
{
    DropTransfers();
    Q_EMIT Message(tr("SkyConsole"), tr("Upload failed, please re-upload"), QString());
    Q_EMIT ButtonsEnabled(true);
    Q_EMIT UploadButtonChanged(true, tr("Re-upload"));
}

void CLmLogUploadController::DropTransfers()
{
    Q_EMIT uploadcancel();
    m_pUpload = nullptr;
    m_pAuthorization = nullptr;
    m_pHashing = nullptr;
    m_pSliceSender = nullptr;
}
