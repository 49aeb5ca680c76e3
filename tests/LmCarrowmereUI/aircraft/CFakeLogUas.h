#pragma once

#include "CLmLogBlockTable.h"
#include "CLmUasProvide.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

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

    QList<SDataRequest> m_lstData;
    QStringList m_lstOther;
};
