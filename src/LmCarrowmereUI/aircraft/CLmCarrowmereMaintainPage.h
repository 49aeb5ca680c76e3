#pragma once

#include <QStringList>
#include <QWidget>

#include <memory>

namespace Ui {
class CLmCarrowmereMaintainPage;
}
class CLmUasProvide;

// The maintenance page: the connected aircraft with its information and the
// controls that need it, the removable disks, and the notices that concern
// the aircraft (pending access request, parachute, firmware package).
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
    // The parachute needs checking: badge on the plane status button; the
    // plane status page reads it when it opens.
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
    void RefreshCurrentTab();
    void UpdateAircraftControls();

    std::unique_ptr<Ui::CLmCarrowmereMaintainPage> m_pUi;
    QWidget* m_pMainWindow = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    bool m_bDeviceConnectionArmed = true;
    bool m_bParachuteNotice = false;
    QString m_strLinkProblem;
    QString m_strFirmwarePackage;
};
