#include "CLmProjClassifier.h"

#include "LmProjectConstants.h"
#include "LmProjectFiles.h"

#include <QDate>
#include <QDateTime>
#include <QJsonObject>
#include <QSet>

#include <limits>

namespace {

QString WithoutTrailingBlanks(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

QString IdText(const QJsonValue& value)
{
    return value.isDouble() ? QString::number(value.toVariant().toLongLong()) : value.toString();
}

bool ReadDigits(const QString& text, int pos, int count, int& value)
{
    value = 0;
    for (int i = pos; i < pos + count; ++i) {
        const int digit = text.at(i).digitValue();
        if (digit < 0 || digit > 9)
            return false;
        value = value * 10 + digit;
    }
    return true;
}

}  // namespace

QVector<CLmProjClassifier::SDecision> CLmProjClassifier::Classify(QMap<QString, SProjInfor>& localProjects,
                                                                  const QJsonArray& cloudProjects,
                                                                  const QString& projectRoot)
{
    QVector<SDecision> decisions;
    decisions.reserve(localProjects.size() + cloudProjects.size());
    QSet<QString> cloudIds;
    cloudIds.reserve(cloudProjects.size());
    for (const QJsonValue& cloud : cloudProjects)
        cloudIds.insert(IdText(cloud.toObject().value(QStringLiteral("id"))));
    for (SProjInfor& local : localProjects) {
        if (!cloudIds.contains(local.strProjID)) {
            local.iSynchState = SynchStateNeedUpload;
            decisions.append({ActionUpload, local});
        }
    }
    for (const QJsonValue& cloud : cloudProjects) {
        // An entry without an id names nothing that could be fetched.
        if (IdText(cloud.toObject().value(QStringLiteral("id"))).isEmpty())
            continue;
        decisions.append(ClassifyCloudProject(localProjects, cloud.toObject(), projectRoot));
    }
    return decisions;
}

CLmProjClassifier::SDecision CLmProjClassifier::ClassifyCloudProject(QMap<QString, SProjInfor>& localProjects,
                                                                     const QJsonObject& cloud,
                                                                     const QString& projectRoot)
{
    const QString projId = IdText(cloud.value(QStringLiteral("id")));
    const QString cloudTime = cloud.value(QStringLiteral("updated_at")).toString();
    const int cloudMissions = cloud.value(QStringLiteral("flight_mission_count")).toVariant().toString().toInt();
    const auto local = localProjects.find(projId);
    if (local == localProjects.end()) {
        SProjInfor info;
        info.strProjName = WithoutTrailingBlanks(cloud.value(QStringLiteral("project_name")).toString());
        info.strUpdateTime = cloudTime;
        info.strProjID = projId;
        info.strProjPath = projectRoot + QLatin1Char('/') + SafeProjectName(info.strProjName);
        info.iMissionCount = cloudMissions;
        info.iSynchState = SynchStateCloudOnly;
        return {ActionCloudOnly, info};
    }
    const qint64 localSeconds = SecondsOf(local->strUpdateTime);
    const qint64 cloudSeconds = local->strUpdateTime == cloudTime ? localSeconds : SecondsOf(cloudTime);
    if (cloudSeconds < localSeconds) {
        local->iSynchState = SynchStateNeedUpload;
        return {ActionUpload, *local};
    }
    local->iMissionCount = cloudMissions;
    local->iSynchState = localSeconds < cloudSeconds ? SynchStateNeedDownload : SynchStateInStep;
    return {localSeconds < cloudSeconds ? ActionDownload : ActionInStep, *local};
}

qint64 CLmProjClassifier::SecondsOf(const QString& text)
{
    // The fixed format is read by hand: QDateTime::fromString is slow enough
    // to dominate the comparison of large lists.
    int y, mo, d, h, mi, s;
    if (text.size() == 19 && ReadDigits(text, 0, 4, y) && ReadDigits(text, 5, 2, mo) && ReadDigits(text, 8, 2, d)
        && ReadDigits(text, 11, 2, h) && ReadDigits(text, 14, 2, mi) && ReadDigits(text, 17, 2, s)) {
        const QDate date(y, mo, d);
        if (date.isValid() && h < 24 && mi < 60 && s < 60)
            return date.toJulianDay() * 86400 + h * 3600 + mi * 60 + s;
    }
    const QDateTime parsed = QDateTime::fromString(text, QLatin1String(DateTimeSFormat));
    if (!parsed.isValid())
        return std::numeric_limits<qint64>::min();
    return parsed.date().toJulianDay() * 86400 + parsed.time().msecsSinceStartOfDay() / 1000;
}
