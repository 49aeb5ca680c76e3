#include "BaseRecorder.h"

#include "BaseLog.h"

#include <QDataStream>
#include <QDir>
#include <QRandomGenerator>

const QString BaseRecorder::Suffix = QStringLiteral(".GNS");

BaseRecorder::BaseRecorder(BaseStorage& storage, int epochBytes, QObject* parent)
    : QObject(parent), m_storage(storage), m_nEpochBytes(epochBytes)
{
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, &BaseRecorder::RecordSecond);
}

BaseRecorder::EStart BaseRecorder::Start(const QString& name, int rate)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QString chosen = name.isEmpty() ? QStringLiteral("SKB") + now.toString(QStringLiteral("yyyyMMddhhmmss")) : name;
    if (m_storage.Exists(chosen + Suffix))
        return NameExists;
    if (m_storage.Free() < static_cast<quint64>(m_nEpochBytes) * qMax(rate, 1))
        return StorageFull;
    Stop();
    m_file.setFileName(QDir(m_storage.Folder()).filePath(chosen + Suffix));
    if (!BaseStorage::IsPlainName(chosen + Suffix) || !m_file.open(QIODevice::WriteOnly))
        return CannotWrite;
    m_strName = chosen;
    m_created = now;
    m_nRate = qMax(rate, 1);
    m_nEpoch = 0;
    m_timer.start();
    qCInfo(lcSkyBase) << "recording" << FileName() << "at" << m_nRate << "Hz";
    return Started;
}

void BaseRecorder::Stop()
{
    if (!IsRecording())
        return;
    m_timer.stop();
    m_file.close();
    qCInfo(lcSkyBase) << "recording of" << FileName() << "stopped";
    m_strName.clear();
    m_created = QDateTime();
}

void BaseRecorder::RecordSecond()
{
    QByteArray second;
    for (int i = 0; i < m_nRate; ++i)
        second += EpochBlock();
    if (m_storage.Free() < static_cast<quint64>(second.size())) {
        qCWarning(lcSkyBase) << "storage full";
        Stop();
        return;
    }
    m_file.write(second);
    m_file.flush();
}

// A framed block standing in for one epoch of observations: "SKB1", the epoch
// number, the payload length and observation-like noise.
QByteArray BaseRecorder::EpochBlock()
{
    QByteArray block;
    QDataStream out(&block, QIODevice::WriteOnly);
    const int payload = m_nEpochBytes - 10;
    out.writeRawData("SKB1", 4);
    out << m_nEpoch << static_cast<quint16>(payload);
    QRandomGenerator noise(m_nEpoch);
    QByteArray observations(payload, '\0');
    noise.fillRange(reinterpret_cast<quint32*>(observations.data()), payload / 4);
    out.writeRawData(observations.constData(), payload);
    ++m_nEpoch;
    return block;
}
