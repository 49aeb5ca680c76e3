#include "CLmRawDataDownloadController.h"

#include "CLmRtkDataDownloadObject.h"
#include "CLmRtkDataLink.h"
#include "CLmTrimbleDataWrite.h"
#include "CLmUasProvide.h"
#include "LmCarrowmereUILog.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// Where downloads go until the user picks another folder.
QString DefaultTargetDir()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
        .filePath(QStringLiteral("GNSS raw data"));
}

}  // namespace

CLmRawDataDownloadController::CLmRawDataDownloadController(QObject* parent)
    : QObject(parent)
    , m_pDownloader(new CLmRtkDataDownloadObject(nullptr, this))
    , m_strTargetDir(DefaultTargetDir())
{
    ConnectDownloader();
    SetStatus(tr("No aircraft connected."));
}

CLmRawDataDownloadController::~CLmRawDataDownloadController() = default;

void CLmRawDataDownloadController::ConnectDownloader()
{
    using Downloader = CLmRtkDataDownloadObject;
    connect(m_pDownloader, &Downloader::TrimbleFolderInfo, this, &CLmRawDataDownloadController::FoldersChanged);
    connect(m_pDownloader, &Downloader::RefreshDownloadText, this,
            &CLmRawDataDownloadController::CurrentDownloadChanged);
    connect(m_pDownloader, &Downloader::RefreshDownloadProgressBar, this,
            &CLmRawDataDownloadController::ProgressChanged);
    connect(m_pDownloader, &Downloader::RecivedData, this,
            [this](const QByteArray&, const QString& path) { OnReceived(path); });
    connect(m_pDownloader, &Downloader::AllDownloadCompleted, this, [this] {
        m_bAllReceived = true;
        FinishIfWritten();
    });
    CLmTrimbleDataWrite* pWriter = m_pDownloader->Writer();
    connect(pWriter, &CLmTrimbleDataWrite::FileWritten, this, &CLmRawDataDownloadController::OnFileWritten);
    connect(pWriter, &CLmTrimbleDataWrite::WriteFailed, this, &CLmRawDataDownloadController::OnWriteFailed);
}

void CLmRawDataDownloadController::SetUas(CLmUasProvide* pUas)
{
    if (pUas == m_pUas && (pUas || !m_pLink))
        return;
    const bool bWasDownloading = m_bDownloading;
    if (bWasDownloading)
        StopDownload(tr("The aircraft disconnected; the download stopped. Unfinished files were removed."));
    m_pDownloader->SetLink(nullptr);
    delete m_pLink;
    m_pLink = nullptr;
    m_pUas = pUas;
    m_pDownloader->ClearFolders();
    emit FoldersChanged();
    if (!m_pUas) {
        if (!bWasDownloading)
            SetStatus(tr("No aircraft connected."));
        return;
    }
    m_pLink = new CLmRtkDataLink(m_pUas, this);
    connect(m_pLink, &CLmRtkDataLink::RtkFolderListFinished, this,
            &CLmRawDataDownloadController::OnFolderListFinished);
    connect(m_pLink, &CLmRtkDataLink::RtkRequestFailed, this, &CLmRawDataDownloadController::OnRequestFailed);
    m_pDownloader->SetLink(m_pLink);
    RefreshFolders();
}

CLmUasProvide* CLmRawDataDownloadController::Uas() const
{
    return m_pUas;
}

CLmRtkDataLink* CLmRawDataDownloadController::Link() const
{
    return m_pLink;
}

CLmRtkDataDownloadObject* CLmRawDataDownloadController::Downloader() const
{
    return m_pDownloader;
}

void CLmRawDataDownloadController::RefreshFolders()
{
    if (!m_pLink || m_bDownloading)
        return;
    m_pDownloader->ClearFolders();
    emit FoldersChanged();
    SetStatus(tr("Reading the receiver's folders..."));
    m_pDownloader->RequestFolderList();
}

QList<STrimbleFolderInfo> CLmRawDataDownloadController::Folders() const
{
    return m_pDownloader->Folders();
}

void CLmRawDataDownloadController::SetTargetDir(const QString& dir)
{
    m_strTargetDir = QDir::cleanPath(dir);
}

QString CLmRawDataDownloadController::TargetDir() const
{
    return m_strTargetDir;
}

bool CLmRawDataDownloadController::Download(const QList<quint16>& folderIds)
{
    if (!m_pLink || m_bDownloading)
        return false;
    if (folderIds.isEmpty()) {
        SetStatus(tr("Choose the folders to download."));
        return false;
    }
    const QFileInfo target(m_strTargetDir);
    if (!QDir().mkpath(m_strTargetDir) || !QFileInfo(m_strTargetDir).isWritable()) {
        SetStatus(tr("The folder %1 cannot be written.").arg(QDir::toNativeSeparators(target.filePath())));
        return false;
    }
    m_lstFiles.clear();
    m_setUnwritten.clear();
    m_bAllReceived = false;
    m_pDownloader->SetTargetDir(m_strTargetDir);
    m_pDownloader->SetDownloadFolders(folderIds);
    SetDownloading(true);
    SetStatus(tr("Downloading %n folder(s) to %1...", nullptr, folderIds.size())
                  .arg(QDir::toNativeSeparators(m_strTargetDir)));
    m_pDownloader->StartDownload();
    return true;
}

void CLmRawDataDownloadController::Cancel()
{
    if (m_bDownloading)
        StopDownload(tr("Download stopped. Unfinished files were removed."));
}

void CLmRawDataDownloadController::StopDownload(const QString& why)
{
    qCInfo(lcRawData) << "raw-data download stopped:" << why;
    m_pDownloader->Stop();
    SetDownloading(false);
    SetStatus(why);
}

void CLmRawDataDownloadController::SetStatus(const QString& text)
{
    m_strStatus = text;
    emit StatusChanged(text);
}

void CLmRawDataDownloadController::SetDownloading(bool bDownloading)
{
    if (bDownloading == m_bDownloading)
        return;
    m_bDownloading = bDownloading;
    emit DownloadingChanged(bDownloading);
}

void CLmRawDataDownloadController::OnFolderListFinished(int folderCount)
{
    if (m_bDownloading)
        return;
    SetStatus(folderCount == 0 ? tr("The receiver holds no raw data.")
                               : tr("%n folder(s) on the receiver.", nullptr, folderCount));
}

void CLmRawDataDownloadController::OnRequestFailed()
{
    if (m_bDownloading)
        StopDownload(tr("The receiver stopped answering; the download stopped. Unfinished files were removed."));
    else
        SetStatus(tr("The receiver did not answer. Refresh to ask again."));
}

void CLmRawDataDownloadController::OnReceived(const QString& path)
{
    if (!m_lstFiles.contains(path))
        m_lstFiles << path;
    m_setUnwritten.insert(path);
}

void CLmRawDataDownloadController::OnFileWritten(const QString& path)
{
    m_setUnwritten.remove(path);
    FinishIfWritten();
}

void CLmRawDataDownloadController::OnWriteFailed(const QString& path, const QString& error)
{
    if (m_bDownloading)
        StopDownload(tr("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), error));
}

void CLmRawDataDownloadController::FinishIfWritten()
{
    if (!m_bDownloading || !m_bAllReceived || !m_setUnwritten.isEmpty())
        return;
    SetDownloading(false);
    SetStatus(tr("Download finished: %n file(s) in %1.", nullptr, m_lstFiles.size())
                  .arg(QDir::toNativeSeparators(m_strTargetDir)));
    emit DownloadFinished(m_lstFiles);
}
