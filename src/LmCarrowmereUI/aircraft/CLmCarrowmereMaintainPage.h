#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class CLmCarrowmereMaintainPage;
}
class CLmFaultDiagnosisSection;
class CLmFirmwareSection;
class CLmLicencePage;
class CLmPlaneStatus;
class CLmRawDataDownloadWgt;
class CLmRtkStationSettings;
class CLmUasProvide;
class CLmUavSettings;
class QAbstractButton;
class QButtonGroup;

// The maintenance page: a section per task, chosen from the list on its
// left. The overview shows the connected aircraft and the removable disks;
// the plane status and flight setting sections are the aircraft's own pages
// and open only while an aircraft is held. The page hands the aircraft and
// its notices (parachute, key status) to the sections. A section is built the
// first time it is opened: most visits need one or two of them, and building
// all of them up front would hold back the main window's first paint.
class CLmCarrowmereMaintainPage : public QWidget
{
    Q_OBJECT
public:
    explicit CLmCarrowmereMaintainPage(QWidget* parent = nullptr);
    ~CLmCarrowmereMaintainPage() override;

    void SetMainWindow(QWidget* pMainWindow);
    // The aircraft handle from the device hub, null when none is connected.
    void SetCurrentUas(CLmUasProvide* pUas);
    CLmUasProvide* CurrentUas() const;
    void SetUsbDisks(const QStringList& disks);
    void SetPendingRequest(bool bPending);
    // The parachute rope has been used too often: badge on the plane status
    // entry and warning colours on the plane status page.
    void SetParachuteNotice(bool bNotify);
    bool ParachuteNotice() const;
    // While a sibling application holds the radio the page drops its
    // aircraft and takes none until the connection is restored.
    void ReleaseDeviceConnection();
    void RestoreDeviceConnection();
    // Why no aircraft can connect (an aircraft port is busy), shown in the
    // status text while none is held; empty when nothing is wrong.
    void SetLinkProblem(const QString& text);

public Q_SLOTS:
    void slotRecivePlaneInfo(QStringList info);
    void slotReciveMultirotorPlaneInfo(QStringList info);
    void slotKeyStatusString(QString status);
    void slotDownLoadFinished(QString path);

Q_SIGNALS:
    void BackToHome();
    void NeedUpgrade(bool bNeed);
    // The page's current tab was refreshed for a newly held aircraft.
    void CurrentUasChanged(CLmUasProvide* pUas);

private:
    using SectionFactory = std::function<QWidget*()>;
    // A section: its entry in the list and how to build its page.
    void AddSection(QAbstractButton* pEntry, SectionFactory createSection);
    void BuildSection(int index);
    void ShowSection(int index);
    void HandUasToSections();
    void UpdateAircraftControls();

    std::unique_ptr<Ui::CLmCarrowmereMaintainPage> m_pUi;
    QButtonGroup* m_pSectionEntries;
    QHash<int, SectionFactory> m_mapUnbuiltSections;
    CLmPlaneStatus* m_pPlaneStatus = nullptr;
    CLmUavSettings* m_pUavSettings = nullptr;
    CLmRawDataDownloadWgt* m_pRawDataDownload = nullptr;
    CLmRtkStationSettings* m_pBaseStation = nullptr;
    CLmFaultDiagnosisSection* m_pFaultDiagnosis = nullptr;
    CLmFirmwareSection* m_pFirmware = nullptr;
    CLmLicencePage* m_pLicence = nullptr;
    QWidget* m_pMainWindow = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    bool m_bDeviceConnectionArmed = true;
    bool m_bParachuteNotice = false;
    QString m_strLinkProblem;
    QString m_strKeyStatus;
    QString m_strFirmwarePackage;
};
