#include "CLmPlaneStatus.h"

#include "CLmMessageBox.h"
#include "CLmPlaneStatusController.h"
#include "CLmSessionStore.h"
#include "ui_CLmPlaneStatus.h"

using namespace LmPlaneStatusLists;

namespace {

enum EStatusPage { eFixwingPage = 0, eMultirotorPage = 1 };

const QString kNotAvailable = QStringLiteral("N/A");

}  // namespace

CLmPlaneStatus::CLmPlaneStatus(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmPlaneStatusPage>())
    , m_pController(new CLmPlaneStatusController(this))
{
    m_pUi->setupUi(this);
    setStyleSheet(QStringLiteral("QLabel{color:black;}"));
    connect(m_pUi->m_pBtnChangeRope, &QPushButton::clicked, this, &CLmPlaneStatus::slotParachuteReplaced);
    connect(m_pUi->m_pBtnParachuteCheck, &QPushButton::clicked, this, &CLmPlaneStatus::slotParachuteCheck);
    ShowGroundRadio();
    m_pUi->m_pTabPlaneStatus->tabBar()->hide();
    ConnectController();
    connect(m_pUi->m_pCmbHardware, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CLmPlaneStatus::slotHardwareTypeChanged);
    for (int index = 0; index < m_pUi->m_pBatteryFrame->count(); ++index)
        m_pUi->m_pCmbBatterySelect->addItem(m_pUi->m_pBatteryFrame->tabText(index));
    connect(m_pUi->m_pCmbBatterySelect, QOverload<int>::of(&QComboBox::currentIndexChanged),
            m_pUi->m_pBatteryFrame, &CLmBatteryFrameWgt::slotBatteryIndexChanged);
    SetRopeWarning(false);
}

CLmPlaneStatus::~CLmPlaneStatus() = default;

void CLmPlaneStatus::ConnectController()
{
    using Controller = CLmPlaneStatusController;
    connect(m_pController, &Controller::FixwingStatusRead, this, &CLmPlaneStatus::ShowFixwingStatus);
    connect(m_pController, &Controller::FixwingBatteryRead, this, &CLmPlaneStatus::ShowFixwingBattery);
    connect(m_pController, &Controller::FixwingBatteryLost, this, &CLmPlaneStatus::BlankFixwingBattery);
    connect(m_pController, &Controller::RopeUseCountRead, m_pUi->m_pLblUmbrellaRopeUseTimes, &QLabel::setText);
    connect(m_pController, &Controller::MultirotorStatusRead, this, &CLmPlaneStatus::ShowMultirotorStatus);
    connect(m_pController, &Controller::BatteriesRead, m_pUi->m_pBatteryFrame, &CLmBatteryFrameWgt::ShowBatteryGroup);
    connect(m_pController, &Controller::BatteriesLost, m_pUi->m_pBatteryFrame, &CLmBatteryFrameWgt::ClearBatteries);
    connect(m_pController, &Controller::FailureTextsRead, m_pUi->m_pBatteryFrame, &CLmBatteryFrameWgt::ShowWarnings);
}

CLmPlaneStatusController* CLmPlaneStatus::Controller() const
{
    return m_pController;
}

void CLmPlaneStatus::SetUas(CLmUasProvide* pUas)
{
    m_pController->SetUas(pUas);
    ShowGroundRadio();
}

void CLmPlaneStatus::ShowGroundRadio()
{
    const CLmSessionStore store;
    const QString version = store.GroundRadioVersion();
    const QString serial = store.GroundRadioSerial();
    m_pUi->m_pLblRadioVersion->setText(version);
    m_pUi->m_pLblRadioSerial->setText(serial);
    m_pUi->m_pLblMrRadioVersion->setText(version);
    m_pUi->m_pLblMrRadioSerial->setText(serial);
}

void CLmPlaneStatus::ShowFixwingStatus(const SFixwing& status)
{
    m_pUi->m_pLblSerialNumber->setText(status.serialNumber);
    m_pUi->m_pLblFirmwareVersion->setText(status.firmwareVersion);
    m_pUi->m_pLblMileage->setText(status.mileage);
    m_pUi->m_pLblMotorStarts->setText(status.motorStarts);
    m_pUi->m_pLblOpenUmbrella->setText(status.openUmbrellaTimes);
    m_pUi->m_pLblSorties->setText(status.sorties);
    m_pUi->m_pLblSteeringGear->setText(status.steeringGearActions);
    m_pUi->m_pLblLastFlight->setText(status.lastFlight);
    m_pUi->m_pLblHighestAltitude->setText(status.highestAltitude);
    m_pUi->m_pTabPlaneStatus->setCurrentIndex(eFixwingPage);
}

void CLmPlaneStatus::ShowFixwingBattery(const QString& charge, const QString& voltage, const QString& capacity,
                                        const QString& state)
{
    m_pUi->m_pLblBatteryElectricity->setText(charge);
    m_pUi->m_pLblBatteryVoltage->setText(voltage);
    m_pUi->m_pLblBatteryCapacitance->setText(capacity);
    m_pUi->m_pLblBatteryState->setText(state);
}

void CLmPlaneStatus::BlankFixwingBattery()
{
    m_pUi->m_pLblUmbrellaRopeUseTimes->setText(kNotAvailable);
    ShowFixwingBattery(kNotAvailable, kNotAvailable, kNotAvailable, kNotAvailable);
}

void CLmPlaneStatus::ShowMultirotorStatus(const SMultirotor& status)
{
    m_pUi->m_pTabPlaneStatus->setCurrentIndex(eMultirotorPage);
    m_pUi->m_pLblMrMileage->setText(status.mileage);
    m_pUi->m_pLblMrFlights->setText(status.flights);
    m_pUi->m_pLblMrSerialNumber->setText(status.serialNumber);
    m_pUi->m_pLblMrFirmwareVersion->setText(status.firmwareVersion);
    m_pUi->m_pLblMrFlightTime->setText(status.flightTime);
    m_pUi->m_pLblMrBootCount->setText(status.bootCount);
    m_pUi->m_pLblBatteryVersion->setText(status.batteryVersion);
    FillHardwareList(status.hardware);
}

// Refilled without signals, so that the version label follows only the
// selection that is left at the end.
void CLmPlaneStatus::FillHardwareList(const QList<SHardware>& hardware)
{
    QComboBox* combo = m_pUi->m_pCmbHardware;
    combo->blockSignals(true);
    combo->clear();
    for (const SHardware& entry : hardware)
        combo->addItem(entry.name, entry.version);
    combo->blockSignals(false);
    combo->setCurrentIndex(0);
    slotHardwareTypeChanged(0);
}

void CLmPlaneStatus::slotHardwareTypeChanged(int index)
{
    Q_UNUSED(index)
    m_pUi->m_pLblHardwareVersion->setText(tr("Version:") + m_pUi->m_pCmbHardware->currentData().toString());
}

void CLmPlaneStatus::SetRopeWarning(bool bWarning)
{
    if (bWarning) {
        m_pUi->m_pLblUmbrellaRopeUseTimes->setStyleSheet(
            QStringLiteral("QLabel#m_pLblUmbrellaRopeUseTimes{color:rgb(240, 114, 85);}"));
        m_pUi->m_pLblParachuteReplacedTip->setText(
            tr("The umbrella rope has been used more than 80 times, please replace it as soon as possible to ensure "
               "flight safety."));
        m_pUi->m_pLblParachuteReplacedTip->setStyleSheet(
            QStringLiteral("QLabel#m_pLblParachuteReplacedTip{color:rgb(240, 114, 85);}"));
        m_pUi->m_pBtnChangeRope->setStyleSheet(QStringLiteral(
            "QPushButton#m_pBtnChangeRope{background-color: rgb(240, 114, 85);border: 0px;color:rgb(255, 255, 255);}"));
        return;
    }
    m_pUi->m_pLblUmbrellaRopeUseTimes->setStyleSheet(
        QStringLiteral("QLabel#m_pLblUmbrellaRopeUseTimes{color:rgb(0, 0, 0);}"));
    m_pUi->m_pLblParachuteReplacedTip->setText(
        tr("The maximum service life of the rope is 100 times, please check and replace in time!"));
    m_pUi->m_pLblParachuteReplacedTip->setStyleSheet(
        QStringLiteral("QLabel#m_pLblParachuteReplacedTip{color:rgb(0, 0, 0);}"));
    m_pUi->m_pBtnChangeRope->setStyleSheet(QStringLiteral(
        "QPushButton#m_pBtnChangeRope{background-color:rgb(128, 128, 128);color:rgb(255, 255, 255);border: 0px solid "
        "rgb(216, 113, 84);}"
        "QPushButton#m_pBtnChangeRope::hover{border: 2px solid rgb(216, 113, 84);}"
        "QPushButton#m_pBtnChangeRope::pressed{background-color: rgb(216, 113, 84);}"));
}

void CLmPlaneStatus::SetConnectionText(const QString& keyStatus)
{
    m_pUi->m_pLblConnectState->setText(ConnectionText(keyStatus));
}

bool CLmPlaneStatus::Confirm(const QString& question)
{
    CLmMessageBox box(question, QStringLiteral(":/images/Normal/ProjMgr/warn_question_ic.png"),
                      QStringLiteral("SkyConsole"), CLmMessageBox::BtnOkCancel, this);
    box.SetBtnHidden(false, false, true);
    return box.exec() == 1;
}

void CLmPlaneStatus::slotParachuteReplaced()
{
    if (Confirm(tr("Please confirm that you have changed the parachute rope.")))
        m_pController->ReplaceParachuteRope();
}

void CLmPlaneStatus::slotParachuteCheck()
{
    if (Confirm(tr("Are you sure you want to open the parachute cover?")))
        m_pController->OpenParachuteCover();
}
