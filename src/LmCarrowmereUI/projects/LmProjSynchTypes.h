#pragma once

#include <QMetaType>
#include <QString>

// Kinds of progress message of the project synchronisation (first argument
// of CLmCarrowmereProjMgrObj::SynchProjMsg).
enum ESynchProMsgType {
    SynchProMsgStart = 0,
    SynchProMsgListError = 4,
    SynchProMsgListStart = 5,
    SynchProMsgListProgress = 6,
    SynchProMsgListFinished = 7,
    SynchProMsgLocalProgress = 8,
};

// Synchronisation state of one project.
enum ESynchProjState {
    SynchStateInStep = 0,
    SynchStateNeedDownload = 1,
    SynchStateNeedUpload = 2,
    SynchStateCloudOnly = 3,
};

// One project as the synchronisation reports it.
struct SProjInfor
{
    int iMissionCount = 0;
    // Missions with at least one flight-log row.
    int iFlownCount = 0;
    int iSynchState = SynchStateInStep;
    QString strProjName;
    // "updated_at" in DateTimeSFormat.
    QString strUpdateTime;
    QString strProjID;
    QString strProjPath;
    // "Downloading ", "Uploading", "Finished" or "Failed".
    QString strState;
    // A percentage followed by "%".
    QString strProgress;
};

// One survey area (block) of a local project.
struct SBlockInfor
{
    QString strProjID;
    QString strName;
    QString strGuid;
    QString strCoordinatePoints;
    double dHomeLat = 0.0;
    double dHomeLng = 0.0;
    QString strCityName;
};

// One flight task of a local project.
struct STaskInfor
{
    QString strProjID;
    QString strTaskGuid;
    QString strBlockGuid;
    QString strTaskName;
};

// One flight mission of a local project.
struct SMissionInfor
{
    QString strProjID;
    qint64 iMissionID = 0;
    QString strTaskGuid;
    QString strMissionName;
    bool bFlown = false;
};

Q_DECLARE_METATYPE(ESynchProMsgType)
Q_DECLARE_METATYPE(SProjInfor)
Q_DECLARE_METATYPE(SBlockInfor)
Q_DECLARE_METATYPE(STaskInfor)
Q_DECLARE_METATYPE(SMissionInfor)
