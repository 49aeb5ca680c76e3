#pragma once

#include "CLmLogBlockTable.h"
#include "CLmUasProvide.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QTimer>

// An aircraft handle without a link whose log requests are recorded; the
// test plays the aircraft's answers through its logEntry and logData signals.
class CFakeLogUas : public CLmUasProvide
{
public:
    struct SDataRequest
    {
        quint16 nLogId;
        quint32 nOffset;
        quint32 nCount;
    };

    CFakeLogUas()
        : CLmUasProvide(nullptr, 1, 1)
    {
    }

    void RequestLogList(quint16 start, quint16 end) override
    {
        m_lstOther << QStringLiteral("list %1-%2").arg(start).arg(end);
    }
    void RequestLogData(quint16 logId, quint32 offset, quint32 count) override
    {
        m_lstData.append({logId, offset, count});
        if (m_nAnswerSize > 0)
            QTimer::singleShot(0, this, [this, logId, offset, count] { SendRange(logId, offset, count); });
    }
    void RequestLogEnd() override { m_lstOther << QStringLiteral("end"); }
    void EraseAllLogs() override { m_lstOther << QStringLiteral("erase"); }

    // The byte at offset of log id, different for nearby blocks.
    static char LogByte(quint16 id, quint32 offset) { return char((offset * 131u + id * 7u + offset / 90u) & 0xFF); }

    // Sends the bytes [offset, offset + count) of log id as one LOG_DATA.
    void SendBlock(quint16 id, quint32 offset, quint8 count, int systemId = 1)
    {
        QByteArray data(count, Qt::Uninitialized);
        for (int i = 0; i < count; ++i)
            data[i] = LogByte(id, offset + quint32(i));
        Q_EMIT logData(quint32(systemId), offset, id, count, data);
    }

    // From now on every data request is answered, soon and without loss,
    // as from logs of this size.
    void AnswerAsLogsOf(quint32 size) { m_nAnswerSize = size; }

    void SendRange(quint16 id, quint32 offset, quint32 count)
    {
        const quint64 end = qMin<quint64>(m_nAnswerSize, quint64(offset) + count);
        for (quint64 at = offset; at < end; at += CLmLogBlockTable::BlockSize)
            SendBlock(id, quint32(at), quint8(qMin<quint64>(CLmLogBlockTable::BlockSize, end - at)));
    }

    QList<SDataRequest> m_lstData;
    QStringList m_lstOther;
    quint32 m_nAnswerSize = 0;
};
