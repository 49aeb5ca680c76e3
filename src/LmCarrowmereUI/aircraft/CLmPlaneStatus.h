#pragma once

#include "LmPlaneStatusLists.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CLmPlaneStatusPage;
}
class CLmPlaneStatusController;
class CLmUasProvide;

// The plane status page ("Plane Status"): the connected aircraft's identity,
// ground radio, flight figures, parachute and batteries, as its controller
// reports them. Fixed-wing and multirotor have a page each.
class CLmPlaneStatus : public QWidget
{
    Q_OBJECT
public:
    explicit CLmPlaneStatus(QWidget* parent = nullptr);
    ~CLmPlaneStatus() override;

    // The aircraft from the maintenance page, null when it went away.
    void SetUas(CLmUasProvide* pUas);
    // The rope has been used too often: the parachute block turns to the
    // warning colours.
    void SetRopeWarning(bool bWarning);
    // The aircraft's key status text.
    void SetConnectionText(const QString& keyStatus);
    CLmPlaneStatusController* Controller() const;

public Q_SLOTS:
    void slotParachuteReplaced();
    void slotParachuteCheck();
    void slotHardwareTypeChanged(int index);

private:
    void ConnectController();
    void ShowGroundRadio();
    void ShowFixwingStatus(const LmPlaneStatusLists::SFixwing& status);
    void ShowFixwingBattery(const QString& charge, const QString& voltage, const QString& capacity,
                            const QString& state);
    void BlankFixwingBattery();
    void ShowMultirotorStatus(const LmPlaneStatusLists::SMultirotor& status);
    void FillHardwareList(const QList<LmPlaneStatusLists::SHardware>& hardware);
    // Asks the crew; true when they agreed.
    bool Confirm(const QString& question);

    std::unique_ptr<Ui::CLmPlaneStatusPage> m_pUi;
    CLmPlaneStatusController* m_pController;
};
