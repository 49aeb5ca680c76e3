#include "LmFlightTemplate.h"

#include "LmCarrowmereUILog.h"
#include "LmProjectConstants.h"

#include <QFile>
#include <QJsonObject>

namespace LmFlightTemplate {

QString ResourcePath(unsigned int operatorType)
{
    switch (operatorType) {
    case FlightDataMission:
        return QStringLiteral(":/flight_mission.txt");
    case FlightDataUasStatus:
        return QStringLiteral(":/uas_status.txt");
    case FlightDataPosData:
        return QStringLiteral(":/pos_data.txt");
    case FlightDataDetailLog:
        return QStringLiteral(":/flight_monitor_detail_log.txt");
    default:
        return {};
    }
}

Mapping Parse(const QString& text)
{
    Mapping mapping;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& rawLine : lines) {
        const QString line = rawLine.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const int iEquals = line.indexOf(QLatin1Char('='));
        const QString strKey = line.left(iEquals).trimmed();
        const QString strColumn = line.mid(iEquals + 1).trimmed();
        if (iEquals < 0 || strKey.isEmpty() || strColumn.isEmpty()) {
            qCWarning(lcProjDetails) << "flight-data template line skipped:" << line;
            continue;
        }
        mapping.insert(strKey, strColumn);
    }
    return mapping;
}

Mapping ForOperatorType(unsigned int operatorType)
{
    const QString strPath = ResourcePath(operatorType);
    QFile file(strPath);
    if (strPath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qCWarning(lcProjDetails) << "no flight-data template for operator type" << operatorType;
        return {};
    }
    return Parse(QString::fromUtf8(file.readAll()));
}

QJsonArray Apply(const Mapping& mapping, const QJsonArray& rows)
{
    QJsonArray mapped;
    for (const QJsonValue& value : rows) {
        const QJsonObject row = value.toObject();
        QJsonObject mappedRow;
        for (auto it = row.constBegin(); it != row.constEnd(); ++it) {
            const auto column = mapping.constFind(it.key());
            if (column != mapping.constEnd())
                mappedRow.insert(*column, it.value());
        }
        if (!mappedRow.isEmpty())
            mapped.append(mappedRow);
    }
    return mapped;
}

}  // namespace LmFlightTemplate
