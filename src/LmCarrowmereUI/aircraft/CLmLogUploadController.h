#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QPointer>
#include <QString>

class CLmDownLoadObject;
class CLmLogDownloadController;
class CLmLogSliceSender;
class CLmUpLoadObject;

// Uploads the downloaded flight logs with a fault report: for each log an
// authorisation from the cloud service, the log through the cloud storage's
// slice upload (a start that announces size and SHA-1, then slices from the
// offset the storage asks for, so an interrupted upload resumes), and the
// report that carries the log's address. After the last report the logs are
// deleted. No widget code: the log dialog shows the signals.
class CLmLogUploadController : public QObject
{
    Q_OBJECT
public:
    struct SReport
    {
        QString strSoftwareVersion;
        QString strOsVersion;
        QString strQuestion;
        int nLevel = 0;
    };

    static constexpr char StoragePath[] = "/files/v1/10008291/files/airlog/";
    static constexpr char SuccessIcon[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";

    explicit CLmLogUploadController(CLmLogDownloadController* pDownload, QObject* parent = nullptr);
    ~CLmLogUploadController() override;

    void SetReport(const SReport& report);
    // The first empty report field, as the message that names it; empty
    // when the report is complete.
    QString ReportProblem() const;
    // Address of the log in the storage: the storage base, the log path,
    // the account, the time of the upload and the file name.
    static QByteArray UploadUrl(const QString& account, const QDateTime& now, const QString& fileName);

public Q_SLOTS:
    void slotUploadToCloud();
    void _UploadToCloud(QString strFileName, int nId);
    void slotGetAuthorInfo();
    void slotStartUpRequest(QByteArray reply);
    void slotSliceRequest(QByteArray reply);
    void slotUpLoadFinished(QByteArray reply);
    void slotUpLoadProcess(qlonglong iCur, qlonglong iTotal);

Q_SIGNALS:
    void uploadcancel();
    // Both buttons of the dialog (upload and refresh).
    void ButtonsEnabled(bool bEnabled);
    void UploadButtonChanged(bool bEnabled, QString text);
    void StatusText(QString text);
    // Bytes of the log sent with the slices so far, of the log's size.
    void ProgressShown(QString label, int value, int maximum);
    void Message(QString title, QString text, QString iconPath);
    // The network is down: the dialog offers "Retry".
    void NetworkQuestion();
    // A report was taken for every log; message is the cloud's answer.
    void UploadCompleted(QString message);

private:
    void HashFile();
    void StartWhenReady();
    void PostStart(const QByteArray& sha1Hex);
    void HandleStorageReply(const QByteArray& reply);
    void SendSlice(qint64 offset, qint64 sliceSize);
    QList<QPair<QByteArray, QByteArray>> StorageHeaders() const;
    // The start of the storage upload; the slices go through the slice sender.
    void PostToStorage(const QByteArray& body);
    void SendReport(const QString& accessUrl);
    void FinishAll(const QString& message);
    void Fail();
    void DropTransfers();

    CLmLogDownloadController* m_pDownload;
    SReport m_report;
    QString m_strFilePath;
    int m_nLogId = 0;
    qint64 m_nFileSize = 0;
    qint64 m_nSliceOffset = 0;
    // The offset the storage asked for last, and how often in a row.
    qint64 m_nAskedOffset = -1;
    int m_iOffsetRepeats = 0;
    static constexpr int kMaxOffsetRepeats = 2;
    QString m_strAuthorization;
    QByteArray m_strSha1Hex;
    QString m_strSession;
    QByteArray m_strUrl;
    QPointer<CLmDownLoadObject> m_pAuthorization;
    // Set while the log's SHA-1 is computed.
    QPointer<QFutureWatcher<QByteArray>> m_pHashing;
    QPointer<CLmLogSliceSender> m_pSliceSender;
    QPointer<CLmUpLoadObject> m_pUpload;
};
