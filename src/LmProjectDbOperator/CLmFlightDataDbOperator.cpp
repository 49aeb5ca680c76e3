#include "CLmFlightDataDbOperator.h"

#include <QLoggingCategory>
#include <QTimer>

Q_LOGGING_CATEGORY(lcFlightData, "sky.projectdb.flightdata")

CLmFlightDataDbOperator::CLmFlightDataDbOperator(QObject* parent, EUploadEnv env)
    : QObject(parent)
    , m_eEnv(env)
{
}

void CLmFlightDataDbOperator::slotParseJson(QJsonArray data, QString projectName, QString missionName,
                                            unsigned int missionId, QString filePath)
{
    Q_UNUSED(filePath)
    qCDebug(lcFlightData) << "flight data of" << projectName << missionName << missionId << ":" << data.size()
                          << "records";
}

void CLmFlightDataDbOperator::slotStartUploadTimer(bool bStart)
{
    if (!m_pTimer) {
        m_pTimer = new QTimer(this);
        connect(m_pTimer, &QTimer::timeout, this, &CLmFlightDataDbOperator::slotCheckNewData);
    }
    if (bStart)
        m_pTimer->start(UploadIntervalMs);
    else
        m_pTimer->stop();
}

void CLmFlightDataDbOperator::slotCheckNewData()
{
    qCDebug(lcFlightData) << "checking mission databases for new flight data, environment" << m_eEnv;
    Q_EMIT NewDataChecked(0);
}
