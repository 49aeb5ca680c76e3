#pragma once

#include <QJsonArray>
#include <QObject>
#include <QString>

class QTimer;

// Which cloud the flight data goes to; 2 is the one the hub uses.
enum EUploadEnv { UploadEnvNone = 0, UploadEnvLocal = 1, UploadEnvCloud = 2 };

// Uploads the flight data that the mission databases hold and the cloud does
// not have yet. Lives on the upload thread and is driven by queued signals.
class CLmFlightDataDbOperator : public QObject
{
    Q_OBJECT
public:
    static constexpr int UploadIntervalMs = 60000;

    CLmFlightDataDbOperator(QObject* parent, EUploadEnv env);

public Q_SLOTS:
    void slotParseJson(QJsonArray data, QString projectName, QString missionName, unsigned int missionId,
                       QString filePath);
    void slotStartUploadTimer(bool bStart);
    void slotCheckNewData();

Q_SIGNALS:
    void NewDataChecked(int pendingMissions);

private:
    EUploadEnv m_eEnv;
    QTimer* m_pTimer = nullptr;
};
