#pragma once

#include "CLmPointCapture.h"
#include "CLmReferencePointStore.h"
#include "LmBaseStationMath.h"
#include "LmStationRules.h"
#include "SBaseStationRecords.h"
#include "SLmStationSetup.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <optional>

class CLmBaseStationLink;
class CLmFtpClientLink;
class CLmStationPrompts;

// The base-station page without widgets: connects to the station, walks the
// settings sub-pages, turns the station's replies into what the page shows,
// keeps the reference points and downloads raw files. Questions and notices
// go through the prompts the page provides; nothing is set on the station
// while it records.
class CLmRtkStationController : public QObject
{
    Q_OBJECT
public:
    // The settings stack: one page per step of the walk.
    enum ESettingsPage {
        eModePage = 0,
        ePpkPage = 1,
        eCorsPage = 2,
        eKnownPointPage = 3,
        eRawDataPage = 4,
        eBasePage = 5,
    };
    static constexpr int MainFramePeriodMs = 10000;

    // referencePointsFile empty: the database in the application's data root.
    explicit CLmRtkStationController(CLmStationPrompts* pPrompts, const QString& referencePointsFile = QString(),
                                     QObject* parent = nullptr);
    ~CLmRtkStationController() override;

    // Creates the link on first use and connects to the station.
    void Connect2Station();
    void Disconnect2Station();
    CLmBaseStationLink* Link() const { return m_link; }

    int StationMode() const { return m_nStationMode; }
    void SetStationMode(int mode);
    int SettingsPage() const { return m_nSettingsPage; }
    // The mode-2 sub-pages switch between CORS and raw data only.
    void ShowCorsPage(bool bCors);
    // "Next" / "Save" / "OK".
    void NextStep(const SLmStationSetup& setup);
    void Format();
    void StopRecording();
    bool IsRecording() const { return m_bRecording; }
    // The page shows its state tab: its replies only update the labels.
    void SetStateTabShowing(bool bShowing);
    void ReadLocation();
    // A reply shows the recording state; it sets nothing on the station.
    void ReadFileState();
    void ReadStorage();
    void AcquireSourceNodes(const QString& host, const QString& port);

    // Reference points; the known-points index counts "Manual input" as 0.
    QList<SLmReferencePoint> ReferencePoints() const;
    QStringList ReferencePointNames() const;
    int KnownPointIndex() const { return m_nKnownPoint; }
    void SelectKnownPoint(int index);
    void DeleteKnownPoint();
    // Saves a point under a name asked from the user; false when cancelled or refused.
    bool SaveNewPoint(const SLmReferencePoint& point);
    bool IsReferencePointStoreOpen() const { return m_pointStore.IsOpen(); }

    // Point capture from the station's position reports.
    void StartCapture(CLmPointCapture::EMode mode, int quantity, bool bFixedOnly, double limitM);
    void StopCapture();
    void DiscardCapture();
    const CLmPointCapture& Capture() const { return m_capture; }
    // The station's last own position, if it reported one.
    std::optional<LmBaseStationMath::SGeoPoint> OwnPosition() const;
    void SaveCapturedPoint(const QString& name, double stationVertical);

    void DeleteFiles(const QStringList& names);
    // Fetches the files one after another into targetDir.
    void DownloadFiles(const QStringList& names, const QString& targetDir);
    bool IsDownloading() const { return !m_strDownloadingFile.isEmpty(); }

public Q_SLOTS:
    void slotBaseStationConnected(bool bConnected);
    void slotBaseStationMainFrame(SBaseStationMainFrame mainFrame);
    void slotSettingRet(QString name, int code);
    void slotStaticFileState(SStaticFileState state);
    void slotReceivedStaticsFileList(QString list, int count);
    void slotReceivedCasterParam(SSCasterParam param);
    void slotReceivedGGAParam(SGGAParam param);
    void slotReceivedSrcNodeList(QStringList nodes, int count);
    void slotReceivedStorageInfor(quint64 total, quint64 free);
    void slotSrcNodeConnectState(bool bConnected);
    void slotReadStaticsFileFinished();
    void slotBaseStationLoction(SBaseStationLoction location);
    void slotReadMainFrame();
    void slotDownloadProcess(qint64 received, qint64 total);
    void slotDownloadFinished();
    void slotDownloadError();

Q_SIGNALS:
    void BaseStationConnect(bool bConnected);
    void RTKFirmwareVersion(int nVersion);
    void MainFrameRead(const SBaseStationMainFrame& mainFrame);
    // The station went away: its state labels read "N/A".
    void StationLost();
    void StaticFileStateRead(const SStaticFileState& state, bool bRecording);
    // While locked only the state tab may be used.
    void TabsLocked(bool bLocked);
    void SettingsPageChanged(int page, const QString& buttonText, bool bButtonVisible);
    void CasterParamRead(const SSCasterParam& param);
    void PositionRead(const SGGAParam& report);
    // The corrections the station sends: "RTCM30" or "RTCM32".
    void DiffFormatRead(const QString& format);
    void SourceNodesRead(const QStringList& nodes);
    void SourceNodeState(bool bConnected);
    void StorageRead(quint64 total, quint64 free);
    void FileListRead(const QList<LmStationRules::SStaticFileRow>& rows);
    void FilesRemoved(const QStringList& names);
    void FileTableCleared();
    void ReferencePointsChanged(const QList<SLmReferencePoint>& points, int selected);
    void CaptureProgress(int taken, int wanted);
    void CaptureFinished(const LmBaseStationMath::SGeoPoint& point);
    void DownloadBusy(bool bBusy);
    void DownloadProgress(const QString& name, qint64 received, qint64 total);
    void DownloadsFinished();

private:
    void ConnectLinkSignals();
    void CreateFtpClient();
    void ShowSettingsPage(int page, const QString& buttonText);
    bool CheckDeviation(const SLmStationSetup& setup, const QString& question);
    bool SaveManualPoint(const SLmStationSetup& setup);
    void NextStepPpkOrBase(const SLmStationSetup& setup);
    void NextStepCors(const SLmStationSetup& setup);
    void RequestStateForAction();
    void EndFormat();
    void RunStateAction(LmStationRules::EStateAction action);
    void ConfirmStopRecording(const QString& question);
    void SendStatic();
    void SendBase();
    void SendRoverNtrips();
    void SendStartStaticFile();
    void ApplySettingResult(const QString& name, const LmStationRules::SSettingResult& result);
    const SLmReferencePoint* SelectedPoint() const;
    void ReloadPoints(int selected);
    void FetchNextFile();
    void EndDownloads();

    CLmBaseStationLink* m_link = nullptr;
    int m_nStationMode = LmStationRules::eModeUnset;
    int m_nModeBeforeFormat = LmStationRules::eModeDisuse;
    bool m_bFirstState = false;
    CLmFtpClientLink* m_pFtp = nullptr;
    QStringList m_lstDownloadQueue;
    QString m_strTargetDir;
    QString m_strDownloadingFile;
    CLmReferencePointStore m_pointStore;
    int m_nKnownPoint = 0;
    QTimer m_mainFrameTimer;
    LmBaseStationMath::SGeoPoint m_ownPosition;
    bool m_bOwnPositionKnown = false;

    CLmStationPrompts* m_pPrompts;
    int m_nSettingsPage = eModePage;
    QString m_strButtonText;
    bool m_bRecording = false;
    bool m_bStateTabShowing = false;
    // A state reply was asked for by Save, OK or Format and decides what is sent.
    bool m_bAwaitingStateForAction = false;
    SLmStationSetup m_setup;
    QStringList m_lstDeleting;
    CLmPointCapture m_capture;
};
