#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThread>

class CLmFlightDataDbOperator;

// Shares cloud projects with another account through "/share/share" and, when
// asked, first uploads the flight logs of the projects' mission databases on
// a worker thread. Holds no widgets; the share dialog shows what it reports.
class CLmShareSender : public QObject
{
    Q_OBJECT
public:
    // projectFilePaths lists the local project file of each id; a project
    // without one (only in the cloud) has no flight log to upload.
    CLmShareSender(const QStringList& projectIds, const QStringList& projectFilePaths, QObject* parent = nullptr);
    ~CLmShareSender() override;

    void Send(const QString& receiver, const QString& message, bool withFlightLog);
    // Quits and waits for the upload thread. A share still waiting for its
    // flight logs is not sent.
    void Stop();

Q_SIGNALS:
    void FlightLogUploading(QString strProjectID, QString strMissionPath);
    void FlightLogUploaded(QString strProjectID, QString strMissionPath);
    void ShareAnswered(QByteArray reply);
    void ShareFailed(QString message);
    void ShareNetWorkError();

private:
    struct SMissionDatabase
    {
        QString strProjectID;
        QString strFilePath;
    };

    static QList<SMissionDatabase> MissionDatabases(const QStringList& projectIds,
                                                    const QStringList& projectFilePaths);
    void UploadFlightLogs();
    CLmFlightDataDbOperator* CreateUploader(const SMissionDatabase& database);
    void OnUploaderFinished(const SMissionDatabase& database);
    void PostShare();

    const QStringList m_listProjectIds;
    const QList<SMissionDatabase> m_listMissionDatabases;
    QThread m_uploadThread;
    QList<CLmFlightDataDbOperator*> m_listUploaders;
    int m_iUploadsRunning = 0;
    QString m_strReceiver;
    QString m_strMessage;
};
