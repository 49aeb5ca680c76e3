#pragma once

#include <QFile>
#include <QObject>

// Writes the blocks of the log being downloaded. It lives on a thread of its
// own and is fed through queued signals, so the dialog never waits on the
// disk; blocks may come in any order because each carries its offset.
//
// The blocks go to a temporary file beside the target; only a log whose
// every block arrived replaces the target, so an interrupted download never
// leaves a log file that looks whole.
class WriteFlightLogObject : public QObject
{
    Q_OBJECT
public:
    explicit WriteFlightLogObject(QObject* parent = nullptr);

    static QString PartPath(const QString& path);

public Q_SLOTS:
    // Starts the log of this path; a log still open is dropped.
    void slotOpenFile(QString path);
    void slotWrite2File(uint ofs, quint8 count, QByteArray arLogData);
    // The log is complete: its file takes the target's place.
    void slotClosedFile();

Q_SIGNALS:
    // The target holds the complete log (empty when it could not be written).
    void FileClosed(QString path);

private:
    void DropOpenFile();

    QFile m_file;
    QString m_strTarget;
    bool m_bWriteFailed = false;
};
