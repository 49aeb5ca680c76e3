#include "CLmSureUpgrade.h"

#include "CLmUpdateQuery.h"
#include "LmCarrowmereUtilityLog.h"
#include "LmVersion.h"

CLmSureUpgrade::CLmSureUpgrade(QObject* parent)
    : QObject(parent)
    , m_pQuery(new CLmUpdateQuery(this))
{
    connect(m_pQuery, &CLmUpdateQuery::NewerRelease, this, &CLmSureUpgrade::NeedDownLoad);
    connect(m_pQuery, &CLmUpdateQuery::Failed, this,
            [](const QString& message) { qCInfo(lcUpdateCheck) << "version check failed:" << message; });
}

void CLmSureUpgrade::CheckUpdate()
{
    m_pQuery->Query(QStringLiteral("skyconsole"), LmVersion::Current());
}
