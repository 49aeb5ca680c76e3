#pragma once

#include "LmProjSynchTypes.h"

#include <QJsonArray>
#include <QMap>
#include <QString>
#include <QVector>

// Compares the local projects with the cloud's list by "updated_at" alone and
// decides, for each, what the synchronisation does with it. Lookups go
// through hashes and maps, so large lists cost n log n, not n squared.
class CLmProjClassifier
{
public:
    enum EAction { ActionUpload, ActionCloudOnly, ActionDownload, ActionInStep };

    struct SDecision
    {
        EAction eAction;
        SProjInfor info;
    };

    // Decisions in reporting order: first the local projects the cloud does
    // not list, then every cloud project in list order. Local entries get
    // their new state (and the cloud's mission count) in place. Cloud-only
    // projects are placed under projectRoot by name.
    static QVector<SDecision> Classify(QMap<QString, SProjInfor>& localProjects, const QJsonArray& cloudProjects,
                                       const QString& projectRoot);

    // Seconds of a DateTimeSFormat text; an unreadable one is the earliest.
    static qint64 SecondsOf(const QString& text);

private:
    static SDecision ClassifyCloudProject(QMap<QString, SProjInfor>& localProjects, const QJsonObject& cloud,
                                          const QString& projectRoot);
};
