#pragma once

#include "SBaseStationRecords.h"

#include <QObject>
#include <QStringList>

// The signal source of every base-station link (CLmBaseStationLink::m_linkHelper).
// Its signals are emitted on the thread the link lives on (the GUI thread).
class CLmBaseStationLinkHelper : public QObject
{
    Q_OBJECT
public:
    explicit CLmBaseStationLinkHelper(QObject* parent = nullptr);

signals:
    // true once the control connection is up; false when it failed, was lost
    // or closed (Disconnect2BaseStation).
    void ConnectState(bool bConnected);
    void BaseStationMainFrame(SBaseStationMainFrame mainFrame);
    // Result of a setting: name "baseNtrip", "roverNtrips", "staticNtrip",
    // "startStaticFile", "stopStaticFile" or "deleteStaticFile"; code 0 is
    // success (codes in the protocol description).
    void SettingRet(QString strName, int nCode);
    void StaticFileState(SStaticFileState state);
    // The static files as "name,createTime,size;name,createTime,size;..." and their count.
    void StaticsFileList(QString strList, int nCount);
    void CasterParam(SSCasterParam param);
    void GGAParam(SGGAParam param);
    // The mount points of a caster's source table and their count.
    void SrcNodeList(QStringList lstNodes, int nCount);
    // Total and free bytes of the station's storage.
    void StorageInfor(quint64 nTotal, quint64 nFree);
    void SrcNodeConnectState(bool bConnected);
    void ReadStaticsFileFinished();
    void Loction(SBaseStationLoction location);
};
