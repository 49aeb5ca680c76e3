#pragma once

#include "CLmStationPrompts.h"
#include "LmBaseStationMath.h"
#include "LmStationRules.h"
#include "SBaseStationRecords.h"
#include "SLmReferencePoint.h"
#include "SLmStationSetup.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class CLmRtkStationSettings;
}
class CLmRtkStationController;
class QAbstractButton;
class QTableWidgetItem;

// The RTK base-station section: connects to the station, sets how it works
// during a flight (single station, CORS rover, raw data only or nothing),
// keeps reference points, shows the station's state and downloads its raw
// static files. Binds the form to CLmRtkStationController and answers its
// questions with message boxes.
class CLmRtkStationSettings : public QWidget, public CLmStationPrompts
{
    Q_OBJECT
public:
    explicit CLmRtkStationSettings(QWidget* parent = nullptr);
    ~CLmRtkStationSettings() override;

    // Connects to the base station (creating the link on first use).
    void ConnectBaseStation();
    void DisconnectBaseStation();
    CLmRtkStationController* Controller() const;

    bool Confirm(const QString& question) override;
    void Notify(const QString& text, const QString& title, const QString& iconPath) override;
    QString AskPointName(const QStringList& namesInUse) override;

public Q_SLOTS:
    void slotShowBaseSetting();
    void slotShowDownloadPage();
    void slotShowPointCapture();
    void slotShowBaseStationState();
    void slotReadStaticFileState();
    void slotStationModeChanged(int mode);
    void slotNextStep();
    void slotStopRecoring();
    void slotGetSrcNodeList();
    void slotCapConnectToCorsStation();
    void slotRefrencePointChanged(int index);
    void slotDeleteReferencePoint();
    void slotRdoLimitsFixed(bool bChecked);
    void slotStartCapturePoint();
    void slotDeleteCapturePoint();
    void slotSaveCapturePoint();
    void slotDeleteRawFiles();
    void slotFormatStation();
    void slotDownloadSelectRawFiles();
    void slotShowCalculator();
    void slotShowCalculator2();
    void slotShowFormatConverter();

Q_SIGNALS:
    void BaseStationConnect(bool bConnected);
    void RTKFirmwareVersion(int nVersion);

private:
    void SetUpForm();
    void InstallValidators();
    void ConnectForm();
    void ConnectController();
    void ShowTab(QAbstractButton* tabButton, int tab);
    void SetOtherTabsEnabled(bool bEnabled);
    SLmStationSetup ReadSetup() const;
    void ShowConnection(bool bConnected);
    void ShowMainFrame(const SBaseStationMainFrame& mainFrame);
    void ShowStationLost();
    void ShowFileState(const SStaticFileState& state, bool bRecording);
    void ShowSettingsPage(int page, const QString& buttonText, bool bButtonVisible);
    void ShowCasterParam(const SSCasterParam& param);
    void ShowPosition(const SGGAParam& report);
    void ShowSourceNodes(const QStringList& nodes);
    void ShowSourceNodeState(bool bConnected);
    void ShowStorage(quint64 total, quint64 free);
    void ShowFileList(const QList<LmStationRules::SStaticFileRow>& rows);
    void RemoveFileRows(const QStringList& names);
    void ShowReferencePoints(const QList<SLmReferencePoint>& points, int selected);
    void ShowDownloadBusy(bool bBusy);
    void ShowDownloadProgress(const QString& name, qint64 received, qint64 total);
    void ShowCapturedPoint(double lat, double lng, double altitude);
    void ToggleRowCheck(QTableWidgetItem* item);
    void CheckAllRows(bool bChecked);
    QStringList CheckedFileNames() const;
    void ShowCalculatorFrom(const std::optional<LmBaseStationMath::SGeoPoint>& first);

    std::unique_ptr<Ui::CLmRtkStationSettings> m_pUi;
    CLmRtkStationController* m_pController;
};
