#include "CLmLogSliceReader.h"

#include "LmLogMultipart.h"

#include <QFile>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QtConcurrent>

CLmLogSliceReader::CLmLogSliceReader(const QString& path, qint64 fileSize, const QString& session, QObject* parent)
    : QObject(parent)
    , m_strPath(path)
    , m_nFileSize(fileSize)
    , m_strSession(session)
{
}

void CLmLogSliceReader::Request(qint64 offset, qint64 sliceSize)
{
    m_nWantedOffset = offset;
    if (sliceSize != m_nSliceSize || offset != m_nReadOffset) {
        m_nSliceSize = sliceSize;
        Read(offset);
    }
    DeliverWhenRead();
}

// A read that is no longer wanted runs to its end on the worker; its watcher
// goes, so its bytes are dropped.
void CLmLogSliceReader::Read(qint64 offset)
{
    if (m_pRead) {
        m_pRead->disconnect(this);
        m_pRead->deleteLater();
    }
    m_nReadOffset = offset;
    const qint64 size = qMin(m_nSliceSize, m_nFileSize - offset);
    m_pRead = new QFutureWatcher<QByteArray>(this);
    connect(m_pRead, &QFutureWatcher<QByteArray>::finished, this, &CLmLogSliceReader::DeliverWhenRead);
    m_pRead->setFuture(QtConcurrent::run([path = m_strPath, session = m_strSession, offset, size] {
        QFile file(path);
        if (size <= 0 || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.seek(offset))
            return QByteArray();
        return LmLogMultipart::SliceBody(offset, session, QFileInfo(path).fileName(), file, size);
    }));
}

void CLmLogSliceReader::DeliverWhenRead()
{
    if (m_nWantedOffset < 0 || m_nWantedOffset != m_nReadOffset || !m_pRead->isFinished())
        return;
    const QByteArray body = m_pRead->result();
    const qint64 offset = m_nWantedOffset;
    m_nWantedOffset = -1;
    const qint64 next = offset + m_nSliceSize;
    if (!body.isEmpty() && next < m_nFileSize)
        Read(next);
    Q_EMIT SliceReady(offset, body);
}
