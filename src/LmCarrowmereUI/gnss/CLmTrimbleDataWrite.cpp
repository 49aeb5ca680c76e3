#include "CLmTrimbleDataWrite.h"

#include "LmCarrowmereUILog.h"

#include <QFile>
#include <QMutexLocker>

const QString CLmTrimbleDataWrite::PartialSuffix = QStringLiteral(".part");

CLmTrimbleDataWrite::CLmTrimbleDataWrite(QObject* parent)
    : QThread(parent)
{
}

CLmTrimbleDataWrite::~CLmTrimbleDataWrite()
{
    {
        QMutexLocker lock(&m_mutex);
        m_bStopping = true;
        m_wake.wakeAll();
    }
    wait();
}

void CLmTrimbleDataWrite::SetData(const QString& path, const QByteArray& bytes, bool bFirst, bool bLast)
{
    Enqueue({path, bytes, bFirst, bLast, false});
}

void CLmTrimbleDataWrite::DiscardUnfinished()
{
    SPiece discard;
    discard.bDiscard = true;
    Enqueue(discard);
}

void CLmTrimbleDataWrite::Enqueue(const SPiece& piece)
{
    QMutexLocker lock(&m_mutex);
    m_queue.enqueue(piece);
    m_wake.wakeAll();
}

void CLmTrimbleDataWrite::run()
{
    QMutexLocker lock(&m_mutex);
    for (;;) {
        while (m_queue.isEmpty() && !m_bStopping)
            m_wake.wait(&m_mutex);
        if (m_queue.isEmpty())
            return;
        const SPiece piece = m_queue.dequeue();
        lock.unlock();
        if (piece.bDiscard)
            Discard();
        else
            Write(piece);
        lock.relock();
    }
}

void CLmTrimbleDataWrite::Write(const SPiece& piece)
{
    const QString partial = piece.path + PartialSuffix;
    QFile file(partial);
    const QIODevice::OpenMode mode = piece.bFirst ? QIODevice::WriteOnly | QIODevice::Truncate : QIODevice::Append;
    if (!file.open(mode) || file.write(piece.bytes) != piece.bytes.size() || !file.flush()) {
        qCWarning(lcRawData) << "cannot write" << partial << file.errorString();
        emit WriteFailed(piece.path, file.errorString());
        return;
    }
    file.close();
    m_setUnfinished.insert(partial);
    if (!piece.bLast)
        return;
    QFile::remove(piece.path);
    if (!QFile::rename(partial, piece.path)) {
        qCWarning(lcRawData) << "cannot rename" << partial << "to" << piece.path;
        emit WriteFailed(piece.path, tr("cannot rename the finished file"));
        return;
    }
    m_setUnfinished.remove(partial);
    emit FileWritten(piece.path);
}

void CLmTrimbleDataWrite::Discard()
{
    for (const QString& partial : qAsConst(m_setUnfinished))
        QFile::remove(partial);
    m_setUnfinished.clear();
}
