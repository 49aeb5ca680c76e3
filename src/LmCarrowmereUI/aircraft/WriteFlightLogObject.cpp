#include "WriteFlightLogObject.h"

#include "LmCarrowmereUILog.h"

WriteFlightLogObject::WriteFlightLogObject(QObject* parent)
    : QObject(parent)
{
}

QString WriteFlightLogObject::PartPath(const QString& path)
{
    return path + QStringLiteral(".part");
}

void WriteFlightLogObject::slotOpenFile(QString path)
{
    DropOpenFile();
    m_strTarget = path;
    m_bWriteFailed = false;
    QFile::remove(path);
    m_file.setFileName(PartPath(path));
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        m_bWriteFailed = true;
        qCWarning(lcFlightLog) << "cannot create" << m_file.fileName() << m_file.errorString();
    }
}

void WriteFlightLogObject::slotWrite2File(uint ofs, quint8 count, QByteArray arLogData)
{
    if (!m_file.isOpen())
        return;
    if (!m_file.seek(ofs) || m_file.write(arLogData.constData(), qMin<int>(count, arLogData.size())) < 0) {
        m_bWriteFailed = true;
        qCWarning(lcFlightLog) << "cannot write" << m_file.fileName() << m_file.errorString();
    }
}

void WriteFlightLogObject::slotClosedFile()
{
    if (!m_file.isOpen())
        return;
    m_file.close();
    const bool replaced = !m_bWriteFailed && m_file.rename(m_strTarget);
    if (!replaced) {
        qCWarning(lcFlightLog) << "log not kept" << m_strTarget << m_file.errorString();
        m_file.remove();
    }
    Q_EMIT FileClosed(replaced ? m_strTarget : QString());
}

void WriteFlightLogObject::DropOpenFile()
{
    if (m_file.isOpen()) {
        m_file.close();
        m_file.remove();
    }
}
