#include "CLmLogDownloadController.h"

#include "CLmControl.h"
#include "CLmUasProvide.h"
#include "LmCarrowmereUILog.h"
#include "WriteFlightLogObject.h"

#include <QDateTime>

namespace {

// The log ids the list request covers.
constexpr quint16 kFirstLogId = 0;
constexpr quint16 kLastLogId = 65535;

constexpr int kIdRole = Qt::UserRole + 1;

QStandardItem* ReadOnlyItem(const QString& text)
{
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

}  // namespace

CLmLogDownloadController::CLmLogDownloadController(QObject* parent)
    : QObject(parent)
{
    m_model.setHorizontalHeaderLabels({tr("Name"), tr("Time"), tr("Size(Byte)"), tr("Selection")});
    m_retryTimer.setInterval(RetryIntervalMs);
    connect(&m_retryTimer, &QTimer::timeout, this, &CLmLogDownloadController::processDownloadedLogData);

    auto* writer = new WriteFlightLogObject;
    writer->moveToThread(&m_writerThread);
    connect(&m_writerThread, &QThread::finished, writer, &QObject::deleteLater);
    connect(this, &CLmLogDownloadController::OpenLogFile, writer, &WriteFlightLogObject::slotOpenFile);
    connect(this, &CLmLogDownloadController::write2File, writer, &WriteFlightLogObject::slotWrite2File);
    connect(this, &CLmLogDownloadController::CloseLogFile, writer, &WriteFlightLogObject::slotClosedFile);
    connect(writer, &WriteFlightLogObject::FileClosed, this, &CLmLogDownloadController::slotLogFileClosed);
    m_writerThread.setObjectName(QStringLiteral("FlightLogWriter"));
    m_writerThread.start(QThread::InheritPriority);
}

CLmLogDownloadController::~CLmLogDownloadController()
{
    m_writerThread.quit();
    m_writerThread.wait();
}

QString CLmLogDownloadController::LogFileName(quint16 id, uint timeUtc)
{
    const QDateTime taken = QDateTime::fromSecsSinceEpoch(timeUtc, Qt::UTC);
    return QStringLiteral("LM_%1_%2.zf").arg(id).arg(taken.toString(QStringLiteral("yyyy-MM-dd_hh-mm-ss")));
}

QString CLmLogDownloadController::LogFolder()
{
    return CLmControl::GetInstance()->GetAppDataDirectory();
}

QStandardItemModel* CLmLogDownloadController::Model()
{
    return &m_model;
}

CLmUasProvide* CLmLogDownloadController::Uas() const
{
    return m_pUas;
}

QList<CLmLogDownloadController::SLogEntry> CLmLogDownloadController::Entries() const
{
    return m_lstEntries;
}

QList<QPair<QString, int>> CLmLogDownloadController::Waiting() const
{
    return m_lstWaiting;
}

void CLmLogDownloadController::TakeWaitingFront()
{
    if (!m_lstWaiting.isEmpty())
        m_lstWaiting.removeFirst();
}

bool CLmLogDownloadController::IsDownloading() const
{
    return !m_strFileName.isEmpty() || !m_lstChosen.isEmpty();
}

void CLmLogDownloadController::UncheckAll()
{
    for (int row = 0; row < m_model.rowCount(); ++row)
        m_model.item(row, ColumnSelection)->setCheckState(Qt::Unchecked);
}

void CLmLogDownloadController::setActiveUAS(CLmUasProvide* pUas)
{
    if (pUas == m_pUas)
        return;
    if (m_pUas)
        m_pUas->disconnect(this);
    m_pUas = pUas;
    if (!pUas)
        return;
    Q_EMIT TitleChanged(tr("Log Download from MAV%1").arg(pUas->GetUasID(), 3));
    connect(pUas, &CLmUasProvide::logEntry, this, &CLmLogDownloadController::logEntry);
    connect(pUas, &CLmUasProvide::logData, this, &CLmLogDownloadController::slotReciveLogData);
    refreshList();
}

void CLmLogDownloadController::refreshList()
{
    m_model.removeRows(0, m_model.rowCount());
    if (!m_pUas)
        return;
    Q_EMIT UploadButtonChanged(false, tr("Reading"));
    m_lstEntries.clear();
    m_pUas->RequestLogList(kFirstLogId, kLastLogId);
}

void CLmLogDownloadController::logEntry(int, uint time_utc, uint size, quint16 id, quint16 num_logs,
                                        quint16 last_log_num)
{
    if (num_logs == 0) {
        m_lstEntries.clear();
        // An aircraft without logs has answered: the list is complete.
        Q_EMIT UploadButtonChanged(true, tr("UpLoad"));
        return;
    }
    const SLogEntry entry{id, time_utc, size};
    m_lstEntries.append(entry);
    AddRow(entry);
    if (last_log_num == id) {
        Q_EMIT UploadButtonChanged(true, tr("UpLoad"));
        // The newest log may still be open on the aircraft: the list leaves
        // its row out.
        m_model.removeRow(id - 1);
    }
}

void CLmLogDownloadController::AddRow(const SLogEntry& entry)
{
    auto* name = ReadOnlyItem(QStringLiteral("LM_%1").arg(entry.nId));
    name->setData(entry.nId, kIdRole);
    const QDateTime taken = QDateTime::fromSecsSinceEpoch(entry.nTimeUtc, Qt::UTC);
    auto* selection = ReadOnlyItem(QString());
    selection->setCheckable(true);
    selection->setCheckState(Qt::Unchecked);
    m_model.appendRow({name, ReadOnlyItem(taken.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))),
                       ReadOnlyItem(QString::number(entry.nSize)), selection});
}

bool CLmLogDownloadController::getSelectedLogs()
{
    m_lstChosen.clear();
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (m_model.item(row, ColumnSelection)->checkState() != Qt::Checked)
            continue;
        const int id = m_model.item(row, ColumnName)->data(kIdRole).toInt();
        for (const SLogEntry& entry : qAsConst(m_lstEntries)) {
            if (entry.nId == id)
                m_lstChosen.append(entry);
        }
    }
    m_nIndex = 1;
    m_nCount = m_lstChosen.size();
    if (m_lstChosen.isEmpty()) {
        Q_EMIT Message(tr("Fault diagnosis"), tr("Please choose to upload files"));
        return false;
    }
    QTimer::singleShot(NextLogDelayMs, this, &CLmLogDownloadController::triggerNextDownloadRequest);
    return true;
}

void CLmLogDownloadController::triggerNextDownloadRequest()
{
    if (!m_pUas || m_lstChosen.isEmpty())
        return;
    Q_EMIT TableEnabled(false);
    ResetTransfer();
    const SLogEntry entry = m_lstChosen.takeFirst();
    m_nCurId = entry.nId;
    m_strFileName = LogFileName(entry.nId, entry.nTimeUtc);
    m_nSize = entry.nSize;
    StartDownload();
}

void CLmLogDownloadController::StartDownload()
{
    Q_EMIT OpenLogFile(LogFolder() + QLatin1Char('/') + m_strFileName);
    m_nReceived = 0;
    m_pBlocks = std::make_unique<CLmLogBlockTable>();
    RequestData(m_nReceived, CLmLogBlockTable::ToTheEnd);
    UpdateProgress();
    m_retryTimer.start();
}

void CLmLogDownloadController::RequestData(quint32 offset, quint32 count)
{
    const quint64 end = count == CLmLogBlockTable::ToTheEnd ? m_nSize : quint64(offset) + count;
    m_nRequestEnd = static_cast<quint32>(qMin<quint64>(end, m_nSize));
    m_pUas->RequestLogData(m_nCurId, offset, count);
}

bool CLmLogDownloadController::IsTransferFrom(quint32 uasId, quint16 id) const
{
    return m_pUas && m_pBlocks && !m_strFileName.isEmpty() && uasId == quint32(m_pUas->GetUasID()) && id == m_nCurId;
}

void CLmLogDownloadController::slotReciveLogData(quint32 uasId, quint32 ofs, quint16 id, quint8 count,
                                                 QByteArray data)
{
    if (!IsTransferFrom(uasId, id)) {
        qCDebug(lcFlightLog) << "log data dropped: system" << uasId << "log" << id << "offset" << ofs;
        return;
    }
    m_retryTimer.start();
    if (count > 0) {
        Q_EMIT write2File(ofs, count, data);
        m_pBlocks->MarkReceived(ofs);
        m_nReceived += count;
    }
    UpdateProgress();
    const quint64 end = quint64(ofs) + count;
    if (end < m_nRequestEnd && end < m_nSize)
        return;
    if (!m_pBlocks->IsComplete(m_nSize)) {
        // The aircraft sent the end of what was asked: nothing more comes,
        // so the blocks lost on the way are asked for without waiting.
        processDownloadedLogData();
        return;
    }
    Q_EMIT CurLogDownloadFinished();
    m_retryTimer.stop();
    m_pBlocks.reset();
    m_pUas->RequestLogEnd();
    Q_EMIT ProgressShown(tr("Reading airborne log %1/%2").arg(m_nIndex).arg(m_nCount), int(m_nSize), int(m_nSize));
    Q_EMIT CloseLogFile();
}

void CLmLogDownloadController::slotLogFileClosed(const QString& path)
{
    if (path.isEmpty())
        Q_EMIT Message(tr("Fault diagnosis"), tr("The log %1 could not be saved.").arg(m_strFileName));
    else
        m_lstWaiting.append({path, m_nCurId});
    if (m_nIndex >= m_nCount) {
        FinishAll();
        return;
    }
    ++m_nIndex;
    QTimer::singleShot(NextLogDelayMs, this, &CLmLogDownloadController::triggerNextDownloadRequest);
}

void CLmLogDownloadController::FinishAll()
{
    Q_EMIT StatusText(tr("Transmission completion"));
    QTimer::singleShot(NextLogDelayMs, this, &CLmLogDownloadController::ProgressHidden);
    ResetTransfer();
    Q_EMIT StatusText(tr("Is preparing to upload"));
    Q_EMIT LogDownloadFinished();
}

void CLmLogDownloadController::processDownloadedLogData()
{
    if (!m_pBlocks || m_pBlocks->IsEmpty())
        return;
    const CLmLogBlockTable::SRequest request = m_pBlocks->NextRequest();
    RequestData(request.offset, request.count);
    // Asking for the rest of the log restarts the wait; a re-request of lost
    // blocks is timed from its first answer.
    if (request.count == CLmLogBlockTable::ToTheEnd)
        m_retryTimer.start();
}

void CLmLogDownloadController::UpdateProgress()
{
    if (m_nReceived <= m_nLastShown + ProgressStepBytes)
        return;
    m_nLastShown = m_nReceived;
    Q_EMIT ProgressShown(tr("Reading airborne log %1/%2").arg(m_nIndex).arg(m_nCount), int(m_nReceived),
                         int(m_nSize));
}

void CLmLogDownloadController::ResetTransfer()
{
    m_retryTimer.stop();
    m_pBlocks.reset();
    m_strFileName.clear();
    m_nSize = 0;
    m_nReceived = 0;
    m_nLastShown = 0;
    m_nRequestEnd = 0;
}

void CLmLogDownloadController::eraseAllLogs()
{
    if (!m_pUas)
        return;
    m_pUas->EraseAllLogs();
    refreshList();
}
