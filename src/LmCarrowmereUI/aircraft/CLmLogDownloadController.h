#pragma once

#include "CLmLogBlockTable.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QStandardItemModel>
#include <QThread>
#include <QTimer>

#include <memory>

class CLmUasProvide;
class WriteFlightLogObject;

// The flight logs of the connected aircraft: their list, the choice of logs
// and their download over the log protocol into files of the application
// data folder, ready for upload. No widget code: the log dialog shows the
// table model and the signals, tests drive the slots.
//
// A download asks for the whole log at once. Blocks that the link lost are
// asked for again when the data stops: at once when the aircraft sent the
// last byte of what was asked, otherwise after 700 ms of silence. A log
// counts as downloaded only when every block arrived.
class CLmLogDownloadController : public QObject
{
    Q_OBJECT
public:
    enum EColumn { ColumnName, ColumnTime, ColumnSize, ColumnSelection, ColumnCount };

    struct SLogEntry
    {
        quint16 nId = 0;
        uint nTimeUtc = 0;
        uint nSize = 0;
    };

    static constexpr int RetryIntervalMs = 700;
    static constexpr int NextLogDelayMs = 500;
    static constexpr uint ProgressStepBytes = 720;

    explicit CLmLogDownloadController(QObject* parent = nullptr);
    ~CLmLogDownloadController() override;

    // "LM_<id>_<yyyy-MM-dd_hh-mm-ss>.zf" of the entry time in UTC.
    static QString LogFileName(quint16 id, uint timeUtc);
    // Where downloaded logs are kept: the application data folder.
    static QString LogFolder();

    QStandardItemModel* Model();
    CLmUasProvide* Uas() const;
    QList<SLogEntry> Entries() const;
    // The downloaded logs that wait for upload: (path, log id).
    QList<QPair<QString, int>> Waiting() const;
    void TakeWaitingFront();
    bool IsDownloading() const;
    // Clears every "Selection" check of the table.
    void UncheckAll();

public Q_SLOTS:
    void setActiveUAS(CLmUasProvide* pUas);
    void refreshList();
    void logEntry(int uasId, uint time_utc, uint size, quint16 id, quint16 num_logs, quint16 last_log_num);
    void slotReciveLogData(quint32 uasId, quint32 ofs, quint16 id, quint8 count, QByteArray data);
    void processDownloadedLogData();
    void triggerNextDownloadRequest();
    bool getSelectedLogs();
    // Erases the logs on the aircraft; the caller asked the user first.
    void eraseAllLogs();

Q_SIGNALS:
    void CurLogDownloadFinished();
    void LogDownloadFinished();
    void write2File(quint32 ofs, quint8 count, QByteArray data);
    void OpenLogFile(QString path);
    void CloseLogFile();

    // "Log Download from MAV%1" for the aircraft held.
    void TitleChanged(QString title);
    void UploadButtonChanged(bool bEnabled, QString text);
    void TableEnabled(bool bEnabled);
    void StatusText(QString text);
    void ProgressShown(QString label, int value, int maximum);
    void ProgressHidden();
    void Message(QString title, QString text);

private:
    void slotLogFileClosed(const QString& path);
    void StartDownload();
    void RequestData(quint32 offset, quint32 count);
    void UpdateProgress();
    void FinishAll();
    void ResetTransfer();
    void AddRow(const SLogEntry& entry);
    bool IsTransferFrom(quint32 uasId, quint16 id) const;

    QPointer<CLmUasProvide> m_pUas;
    QStandardItemModel m_model;
    QList<SLogEntry> m_lstEntries;
    QList<SLogEntry> m_lstChosen;
    int m_nIndex = 0;
    int m_nCount = 0;
    quint16 m_nCurId = 0;
    QString m_strFileName;
    uint m_nSize = 0;
    uint m_nReceived = 0;
    uint m_nLastShown = 0;
    quint32 m_nRequestEnd = 0;
    std::unique_ptr<CLmLogBlockTable> m_pBlocks;
    QTimer m_retryTimer;
    QList<QPair<QString, int>> m_lstWaiting;
    QThread m_writerThread;
};
