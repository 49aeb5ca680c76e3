#pragma once

#include "STrimbleFolderInfo.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>

class CLmRtkDataDownloadObject;
class CLmRtkDataLink;
class CLmUasProvide;

// The data-download section without widgets: lists the raw-data folders of
// the aircraft's GNSS receiver and downloads the chosen ones into a target
// folder. Reports what happens as status texts; a download ends in
// DownloadFinished once every file is on disk under its final name, or in
// a status text saying why it stopped (receiver silent, aircraft gone,
// disk refused), after which the section can list and download again.
class CLmRawDataDownloadController : public QObject
{
    Q_OBJECT
public:
    explicit CLmRawDataDownloadController(QObject* parent = nullptr);
    ~CLmRawDataDownloadController() override;

    // The aircraft from the maintenance page, null when it went away. A new
    // aircraft's folders are listed at once.
    void SetUas(CLmUasProvide* pUas);
    CLmUasProvide* Uas() const;
    // Retries and quiet time of the receiver requests (for slow radios).
    CLmRtkDataLink* Link() const;
    CLmRtkDataDownloadObject* Downloader() const;

    void RefreshFolders();
    QList<STrimbleFolderInfo> Folders() const;
    void SetTargetDir(const QString& dir);
    QString TargetDir() const;
    // False, with the reason as status text, when the download cannot start.
    bool Download(const QList<quint16>& folderIds);
    void Cancel();
    bool IsDownloading() const { return m_bDownloading; }
    QString StatusText() const { return m_strStatus; }

Q_SIGNALS:
    void FoldersChanged();
    void StatusChanged(QString text);
    void CurrentDownloadChanged(QString text);
    void ProgressChanged(int percentage);
    void DownloadingChanged(bool bDownloading);
    // Every chosen folder is on disk: the files written, in order.
    void DownloadFinished(QStringList files);

private:
    void ConnectDownloader();
    void SetStatus(const QString& text);
    void SetDownloading(bool bDownloading);
    void StopDownload(const QString& why);
    void OnFolderListFinished(int folderCount);
    void OnRequestFailed();
    void OnReceived(const QString& path);
    void OnFileWritten(const QString& path);
    void OnWriteFailed(const QString& path, const QString& error);
    void FinishIfWritten();

    QPointer<CLmUasProvide> m_pUas;
    CLmRtkDataLink* m_pLink = nullptr;
    CLmRtkDataDownloadObject* m_pDownloader;
    QString m_strTargetDir;
    QString m_strStatus;
    bool m_bDownloading = false;
    bool m_bAllReceived = false;
    QStringList m_lstFiles;         // final paths, in the order they started
    QSet<QString> m_setUnwritten;   // received but not yet on disk under the final name
};
