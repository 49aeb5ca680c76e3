#include "CLmRtkStationSettings.h"

#include "CLmCarrowmereSaveRPWidget.h"
#include "CLmCoordinateCalculator.h"
#include "CLmCoordinateConverter.h"
#include "CLmCorsStationSettingPage.h"
#include "CLmMessageBox.h"
#include "CLmRtkStationController.h"
#include "LmBaseStationMath.h"
#include "ui_CLmRtkStationSettings.h"

#include <QDoubleValidator>
#include <QFileDialog>
#include <QHeaderView>
#include <QIntValidator>
#include <QTimer>

using namespace LmStationRules;
using StationController = CLmRtkStationController;

namespace {

enum ETab { eSettingsTab = 0, eDataTab = 1, eCaptureTab = 2, eStateTab = 3 };
enum EFileColumn { eNameColumn = 0, eCreateColumn = 1, eSizeColumn = 2 };
constexpr int kStateTabReadDelayMs = 2000;

QString NotAvailable()
{
    return CLmRtkStationSettings::tr("N/A");
}

QString WorkModeText(int mode)
{
    switch (mode) {
    case SBaseStationMainFrame::WorkModeBase:
        return CLmRtkStationSettings::tr("Base");
    case SBaseStationMainFrame::WorkModeRover:
        return CLmRtkStationSettings::tr("Rover");
    case SBaseStationMainFrame::WorkModeStatic:
        return CLmRtkStationSettings::tr("Static");
    default:
        return NotAvailable();
    }
}

// "RTCM32" as the combo box names it, "RTCM3.2".
QString DiffFormatText(const QString& format)
{
    QString text = format;
    return format.size() == 6 ? text.insert(5, QLatin1Char('.')) : format;
}

QString DegreesText(double ddmm)
{
    return QString::number(LmBaseStationMath::DegreesFromDdmm(ddmm), 'f', 8);
}

QDoubleValidator* SixDecimals(QObject* parent)
{
    auto* validator = new QDoubleValidator(parent);
    validator->setDecimals(6);
    validator->setNotation(QDoubleValidator::StandardNotation);
    return validator;
}

}  // namespace

CLmRtkStationSettings::CLmRtkStationSettings(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmRtkStationSettings>())
    , m_pController(new CLmRtkStationController(this, QString(), this))
{
    SetUpForm();
    ConnectController();
    ConnectForm();
    m_pController->SetStationMode(eModeDisuse);
    ShowReferencePoints(m_pController->ReferencePoints(), 0);
}

CLmRtkStationSettings::~CLmRtkStationSettings() = default;

void CLmRtkStationSettings::SetUpForm()
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    InstallValidators();
    QTableWidget* table = m_pUi->m_pTableFiles;
    table->setHorizontalHeaderLabels({tr("File Name"), tr("Create Time"), tr("Size")});
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    m_pUi->m_pProgressDownload->setValue(0);
}

void CLmRtkStationSettings::InstallValidators()
{
    m_pUi->m_pEditLatDeg->setValidator(new QIntValidator(-90, 90, this));
    m_pUi->m_pEditLngDeg->setValidator(new QIntValidator(-180, 180, this));
    m_pUi->m_pEditLatMin->setValidator(new QIntValidator(0, 59, this));
    m_pUi->m_pEditLngMin->setValidator(new QIntValidator(0, 59, this));
    for (QLineEdit* edit : {m_pUi->m_pEditLatSec, m_pUi->m_pEditLngSec, m_pUi->m_pEditAltitude,
                            m_pUi->m_pEditVertical, m_pUi->m_pEditPositionLimits, m_pUi->m_pEditCaptureVertical})
        edit->setValidator(SixDecimals(this));
    m_pUi->m_pEditPort->setValidator(new QIntValidator(0, 65535, this));
    m_pUi->m_pEditCaptureQuantity->setValidator(new QIntValidator(1, 100000, this));
}

void CLmRtkStationSettings::ConnectForm()
{
    auto* ui = m_pUi.get();
    connect(ui->m_pBtnConnect, &QPushButton::clicked, this, &CLmRtkStationSettings::ConnectBaseStation);
    connect(ui->m_pBtnBaseSetting, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowBaseSetting);
    connect(ui->m_pBtnBaseData, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowDownloadPage);
    connect(ui->m_pBtnPointCapture, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowPointCapture);
    connect(ui->m_pBtnBaseState, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowBaseStationState);
    connect(ui->m_pComboStationMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CLmRtkStationSettings::slotStationModeChanged);
    connect(ui->m_pBtnNext, &QPushButton::clicked, this, &CLmRtkStationSettings::slotNextStep);
    connect(ui->m_pBtnShowRawData, &QPushButton::clicked, this, [this] { m_pController->ShowCorsPage(false); });
    connect(ui->m_pBtnShowCors, &QPushButton::clicked, this, [this] { m_pController->ShowCorsPage(true); });
    connect(ui->m_pBtnStopRecording, &QPushButton::clicked, this, &CLmRtkStationSettings::slotStopRecoring);
    connect(ui->m_pBtnAcquiring, &QPushButton::clicked, this, &CLmRtkStationSettings::slotGetSrcNodeList);
    connect(ui->m_pBtnCapCors, &QPushButton::clicked, this, &CLmRtkStationSettings::slotCapConnectToCorsStation);
    connect(ui->m_pComboKnownPoints, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CLmRtkStationSettings::slotRefrencePointChanged);
    connect(ui->m_pBtnDeletePoint, &QPushButton::clicked, this, &CLmRtkStationSettings::slotDeleteReferencePoint);
    connect(ui->m_pRdoLimitsFixed, &QRadioButton::toggled, this, &CLmRtkStationSettings::slotRdoLimitsFixed);
    connect(ui->m_pBtnStartCapture, &QPushButton::clicked, this, &CLmRtkStationSettings::slotStartCapturePoint);
    connect(ui->m_pBtnCapDeletePoint, &QPushButton::clicked, this, &CLmRtkStationSettings::slotDeleteCapturePoint);
    connect(ui->m_pBtnSaveCapture, &QPushButton::clicked, this, &CLmRtkStationSettings::slotSaveCapturePoint);
    connect(ui->m_pBtnDelete, &QPushButton::clicked, this, &CLmRtkStationSettings::slotDeleteRawFiles);
    connect(ui->m_pBtnFormat, &QPushButton::clicked, this, &CLmRtkStationSettings::slotFormatStation);
    connect(ui->m_pBtnDownload, &QPushButton::clicked, this, &CLmRtkStationSettings::slotDownloadSelectRawFiles);
    connect(ui->m_pBtnCalculator, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowCalculator);
    connect(ui->m_pBtnCalculator2, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowCalculator2);
    connect(ui->m_pBtnFormatConverter, &QPushButton::clicked, this, &CLmRtkStationSettings::slotShowFormatConverter);
    connect(ui->m_pChkCheckAll, &QCheckBox::clicked, this, &CLmRtkStationSettings::CheckAllRows);
    connect(ui->m_pTableFiles, &QTableWidget::itemClicked, this, &CLmRtkStationSettings::ToggleRowCheck);
}

void CLmRtkStationSettings::ConnectController()
{
    StationController* c = m_pController;
    connect(c, &StationController::BaseStationConnect, this, &CLmRtkStationSettings::BaseStationConnect);
    connect(c, &StationController::BaseStationConnect, this, &CLmRtkStationSettings::ShowConnection);
    connect(c, &StationController::MainFrameRead, this, &CLmRtkStationSettings::ShowMainFrame);
    connect(c, &StationController::RTKFirmwareVersion, this, &CLmRtkStationSettings::RTKFirmwareVersion);
    connect(c, &StationController::StationLost, this, &CLmRtkStationSettings::ShowStationLost);
    connect(c, &StationController::StaticFileStateRead, this, &CLmRtkStationSettings::ShowFileState);
    connect(c, &StationController::TabsLocked, this, [this](bool bLocked) {
        if (bLocked)
            ShowTab(m_pUi->m_pBtnBaseState, eStateTab);
        SetOtherTabsEnabled(!bLocked);
    });
    connect(c, &StationController::SettingsPageChanged, this, &CLmRtkStationSettings::ShowSettingsPage);
    connect(c, &StationController::CasterParamRead, this, &CLmRtkStationSettings::ShowCasterParam);
    connect(c, &StationController::PositionRead, this, &CLmRtkStationSettings::ShowPosition);
    connect(c, &StationController::DiffFormatRead, this, [this](const QString& format) {
        const int index = m_pUi->m_pComboDiffData->findText(DiffFormatText(format));
        if (index >= 0)
            m_pUi->m_pComboDiffData->setCurrentIndex(index);
    });
    connect(c, &StationController::SourceNodesRead, this, &CLmRtkStationSettings::ShowSourceNodes);
    connect(c, &StationController::SourceNodeState, this, &CLmRtkStationSettings::ShowSourceNodeState);
    connect(c, &StationController::StorageRead, this, &CLmRtkStationSettings::ShowStorage);
    connect(c, &StationController::FileListRead, this, &CLmRtkStationSettings::ShowFileList);
    connect(c, &StationController::FilesRemoved, this, &CLmRtkStationSettings::RemoveFileRows);
    connect(c, &StationController::FileTableCleared, this, [this] { m_pUi->m_pTableFiles->setRowCount(0); });
    connect(c, &StationController::ReferencePointsChanged, this, &CLmRtkStationSettings::ShowReferencePoints);
    connect(c, &StationController::CaptureProgress, this, [this](int taken, int wanted) {
        m_pUi->m_pLblCaptureState->setText(QStringLiteral("%1/%2").arg(taken).arg(wanted));
    });
    connect(c, &StationController::CaptureFinished, this, [this](const LmBaseStationMath::SGeoPoint& point) {
        ShowCapturedPoint(point.lat, point.lng, point.altitude);
        m_pUi->m_pBtnStartCapture->setText(tr("Start"));
    });
    connect(c, &StationController::DownloadBusy, this, &CLmRtkStationSettings::ShowDownloadBusy);
    connect(c, &StationController::DownloadProgress, this, &CLmRtkStationSettings::ShowDownloadProgress);
    connect(c, &StationController::DownloadsFinished, this,
            [this] { m_pUi->m_pLblDownloadState->setText(tr("All file(s) to download finished.")); });
}

CLmRtkStationController* CLmRtkStationSettings::Controller() const
{
    return m_pController;
}

void CLmRtkStationSettings::ConnectBaseStation()
{
    m_pUi->m_pLblConnectState->setText(tr("Connecting..."));
    m_pController->Connect2Station();
}

void CLmRtkStationSettings::DisconnectBaseStation()
{
    m_pController->Disconnect2Station();
}

// ---- prompts ----

bool CLmRtkStationSettings::Confirm(const QString& question)
{
    CLmMessageBox box(question, QStringLiteral(":/images/Normal/Exclamation_mark.png"), QString(),
                      CLmMessageBox::BtnOkCancel, this);
    return box.exec() == 1;
}

void CLmRtkStationSettings::Notify(const QString& text, const QString& title, const QString& iconPath)
{
    CLmMessageBox box(text, iconPath, title, CLmMessageBox::BtnOk, this);
    box.exec();
}

QString CLmRtkStationSettings::AskPointName(const QStringList& namesInUse)
{
    CLmCarrowmereSaveRPWidget dialog(this, namesInUse);
    return dialog.exec() == QDialog::Accepted ? dialog.Name() : QString();
}

// ---- tabs ----

void CLmRtkStationSettings::ShowTab(QAbstractButton* tabButton, int tab)
{
    tabButton->setChecked(true);
    m_pUi->m_pStackTabs->setCurrentIndex(tab);
    m_pController->SetStateTabShowing(tab == eStateTab);
}

void CLmRtkStationSettings::SetOtherTabsEnabled(bool bEnabled)
{
    m_pUi->m_pBtnBaseSetting->setEnabled(bEnabled);
    m_pUi->m_pBtnBaseData->setEnabled(bEnabled);
    m_pUi->m_pBtnPointCapture->setEnabled(bEnabled);
}

void CLmRtkStationSettings::slotShowBaseSetting()
{
    ShowTab(m_pUi->m_pBtnBaseSetting, eSettingsTab);
}

void CLmRtkStationSettings::slotShowDownloadPage()
{
    ShowTab(m_pUi->m_pBtnBaseData, eDataTab);
    m_pController->ReadStorage();
}

void CLmRtkStationSettings::slotShowPointCapture()
{
    ShowTab(m_pUi->m_pBtnPointCapture, eCaptureTab);
}

void CLmRtkStationSettings::slotShowBaseStationState()
{
    ShowTab(m_pUi->m_pBtnBaseState, eStateTab);
    const QString checking = tr("Checking...");
    for (QLabel* label : {m_pUi->m_pLblStaticFile, m_pUi->m_pLblRecordingState, m_pUi->m_pLblCreateTime})
        label->setText(checking);
    m_pController->ReadLocation();
    QTimer::singleShot(kStateTabReadDelayMs, this, &CLmRtkStationSettings::slotReadStaticFileState);
}

void CLmRtkStationSettings::slotReadStaticFileState()
{
    m_pController->ReadFileState();
}

// ---- station state ----

void CLmRtkStationSettings::ShowConnection(bool bConnected)
{
    m_pUi->m_pLblConnectState->setText(bConnected ? tr("Connected") : tr("Not connected"));
}

void CLmRtkStationSettings::ShowMainFrame(const SBaseStationMainFrame& mainFrame)
{
    m_pUi->m_pLblWorkMode->setText(WorkModeText(mainFrame.nWorkMode));
    m_pUi->m_pLblBattery->setText(QStringLiteral("%1%").arg(mainFrame.nBattery));
    m_pUi->m_pLblFirmware->setText(QString::number(mainFrame.nFirmwareVersion));
    m_pUi->m_pLblSerial->setText(mainFrame.strSerialNumber);
}

void CLmRtkStationSettings::ShowStationLost()
{
    for (QLabel* label : {m_pUi->m_pLblStaticFile, m_pUi->m_pLblRecordingState, m_pUi->m_pLblCreateTime,
                          m_pUi->m_pLblWorkMode, m_pUi->m_pLblBattery, m_pUi->m_pLblMemorySize,
                          m_pUi->m_pLblFreeSpace})
        label->setText(NotAvailable());
}

void CLmRtkStationSettings::ShowFileState(const SStaticFileState& state, bool bRecording)
{
    m_pUi->m_pLblStaticFile->setText(state.strFileName.isEmpty() ? NotAvailable()
                                                                  : state.strFileName + QStringLiteral(".GNS"));
    m_pUi->m_pLblRecordingState->setText(bRecording ? tr("Recording") : tr("Not recording"));
    const QDateTime created = QDateTime::fromString(state.strCreateTime, Qt::ISODate);
    m_pUi->m_pLblCreateTime->setText(created.isValid()
                                         ? created.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                                         : NotAvailable());
    m_pUi->m_pBtnStopRecording->setEnabled(bRecording);
}

void CLmRtkStationSettings::ShowPosition(const SGGAParam& report)
{
    m_pUi->m_pLblStationLat->setText(DegreesText(report.dLatitude));
    m_pUi->m_pLblStationLng->setText(DegreesText(report.dLongitude));
    m_pUi->m_pLblStationAlt->setText(QString::number(report.dAltitude, 'f', 3) + QStringLiteral(" m"));
    m_pUi->m_pLblQuality->setText(FixQualityText(report.nQuality));
    m_pUi->m_pLblSatellites->setText(QString::number(report.nSatellites));
    m_pUi->m_pLblPrecision->setText(QString::number(report.dPrecision, 'f', 1));
    m_pUi->m_pLblGgaRate->setText(QString::number(report.nRate));
}

void CLmRtkStationSettings::slotStopRecoring()
{
    m_pController->StopRecording();
}

// ---- settings walk ----

void CLmRtkStationSettings::slotStationModeChanged(int mode)
{
    m_pController->SetStationMode(mode);
}

void CLmRtkStationSettings::ShowSettingsPage(int page, const QString& buttonText, bool bButtonVisible)
{
    {
        const QSignalBlocker blocker(m_pUi->m_pStackSettings);
        m_pUi->m_pStackSettings->setCurrentIndex(page);
    }
    if (page == StationController::eModePage && m_pUi->m_pComboStationMode->currentIndex() != eModeDisuse) {
        const QSignalBlocker blocker(m_pUi->m_pComboStationMode);
        m_pUi->m_pComboStationMode->setCurrentIndex(eModeDisuse);
    }
    const bool manualPoint = m_pUi->m_pComboKnownPoints->currentIndex() == 0;
    m_pUi->m_pBtnNext->setText(page == StationController::eKnownPointPage && manualPoint ? tr("Next") : buttonText);
    m_pUi->m_pBtnNext->setVisible(bButtonVisible);
}

SLmStationSetup CLmRtkStationSettings::ReadSetup() const
{
    const auto* ui = m_pUi.get();
    SLmStationSetup setup;
    const std::optional<double> lat = ReadDms(ui->m_pEditLatDeg->text(), ui->m_pEditLatMin->text(),
                                              ui->m_pEditLatSec->text(), 90.0);
    const std::optional<double> lng = ReadDms(ui->m_pEditLngDeg->text(), ui->m_pEditLngMin->text(),
                                              ui->m_pEditLngSec->text(), 180.0);
    bool altitudeOk = false;
    bool verticalOk = false;
    setup.entered.altitude = ui->m_pEditAltitude->text().toDouble(&altitudeOk);
    setup.stationVertical = ui->m_pEditVertical->text().toDouble(&verticalOk);
    setup.entered.lat = lat.value_or(0);
    setup.entered.lng = lng.value_or(0);
    setup.gnssType = GnssTypeCode(ui->m_pComboGnssType->currentIndex());
    setup.rate = ui->m_pComboScanRate->currentText().toInt();
    setup.rawRate = ui->m_pComboRawRate->currentText().toInt();
    setup.rawElevationMask = ui->m_pSpinRawAngle->value();
    setup.elevationMask = m_pController->StationMode() == eModePpk ? ui->m_pSpinPpkAngle->value()
        : m_pController->StationMode() == eModeCorsPpk             ? ui->m_pSpinRawAngle->value()
                                                                   : ui->m_pSpinBaseAngle->value();
    setup.host = ui->m_pEditHost->text();
    setup.port = ui->m_pEditPort->text().toInt(nullptr, 10);
    setup.account = ui->m_pEditAccount->text();
    setup.password = ui->m_pEditPassword->text();
    setup.mountPoint = ui->m_pComboSourceList->currentText();
    const bool corsComplete = m_pController->SettingsPage() != StationController::eCorsPage
        || (!setup.host.isEmpty() && !ui->m_pEditPort->text().isEmpty());
    setup.bComplete = lat && lng && altitudeOk && verticalOk && setup.gnssType >= 0 && corsComplete;
    return setup;
}

void CLmRtkStationSettings::slotNextStep()
{
    m_pController->NextStep(ReadSetup());
}

void CLmRtkStationSettings::ShowCasterParam(const SSCasterParam& param)
{
    m_pUi->m_pEditHost->setText(param.strHost);
    m_pUi->m_pEditPort->setText(param.nPort > 0 ? QString::number(param.nPort) : QString());
    m_pUi->m_pEditAccount->setText(param.strAccount);
    m_pUi->m_pEditPassword->setText(param.strPassword);
    QComboBox* mountPoints = m_pUi->m_pComboSourceList;
    if (!param.strMountPoint.isEmpty() && mountPoints->findText(param.strMountPoint) < 0)
        mountPoints->addItem(param.strMountPoint);
    mountPoints->setCurrentText(param.strMountPoint);
}

// ---- source nodes and the CORS dialog ----

void CLmRtkStationSettings::slotGetSrcNodeList()
{
    m_pController->AcquireSourceNodes(m_pUi->m_pEditHost->text(), m_pUi->m_pEditPort->text());
}

void CLmRtkStationSettings::ShowSourceNodes(const QStringList& nodes)
{
    m_pUi->m_pComboSourceList->clear();
    m_pUi->m_pComboSourceList->addItems(nodes);
}

void CLmRtkStationSettings::ShowSourceNodeState(bool bConnected)
{
    m_pUi->m_pLblSrcState->setText(bConnected ? tr("Connected") : tr("Connect failed"));
    m_pUi->m_pEditPositionLimits->setEnabled(bConnected && !m_pUi->m_pRdoLimitsFixed->isChecked());
}

void CLmRtkStationSettings::slotCapConnectToCorsStation()
{
    CLmCorsStationSettingPage dialog(this, m_pController->Link());
    QStringList mountPoints;
    for (int i = 0; i < m_pUi->m_pComboSourceList->count(); ++i)
        mountPoints.append(m_pUi->m_pComboSourceList->itemText(i));
    dialog.SetCorsParam(m_pUi->m_pEditHost->text(), m_pUi->m_pEditPort->text(), m_pUi->m_pEditAccount->text(),
                        m_pUi->m_pEditPassword->text(), mountPoints, m_pUi->m_pComboSourceList->currentIndex());
    dialog.exec();
}

// ---- reference points ----

void CLmRtkStationSettings::ShowReferencePoints(const QList<SLmReferencePoint>& points, int selected)
{
    {
        const QSignalBlocker blocker(m_pUi->m_pComboKnownPoints);
        m_pUi->m_pComboKnownPoints->clear();
        m_pUi->m_pComboKnownPoints->addItem(tr("Manual input"));
        for (const SLmReferencePoint& point : points)
            m_pUi->m_pComboKnownPoints->addItem(point.name);
        m_pUi->m_pComboKnownPoints->setCurrentIndex(selected);
    }
    slotRefrencePointChanged(selected);
}

void CLmRtkStationSettings::slotRefrencePointChanged(int index)
{
    m_pController->SelectKnownPoint(index);
    const QList<SLmReferencePoint> points = m_pController->ReferencePoints();
    if (index > 0 && index <= points.size()) {
        const SLmReferencePoint& point = points.at(index - 1);
        const SDmsText lat = DmsText(point.lat);
        const SDmsText lng = DmsText(point.lng);
        m_pUi->m_pEditLatDeg->setText(lat.degrees);
        m_pUi->m_pEditLatMin->setText(lat.minutes);
        m_pUi->m_pEditLatSec->setText(lat.seconds);
        m_pUi->m_pEditLngDeg->setText(lng.degrees);
        m_pUi->m_pEditLngMin->setText(lng.minutes);
        m_pUi->m_pEditLngSec->setText(lng.seconds);
        m_pUi->m_pEditAltitude->setText(QString::number(point.altitude, 'f', 3));
        m_pUi->m_pEditVertical->setText(QString::number(point.stationVertical, 'f', 3));
    }
    if (m_pController->SettingsPage() == StationController::eKnownPointPage)
        m_pUi->m_pBtnNext->setText(index == 0 ? tr("Next") : tr("Save"));
}

void CLmRtkStationSettings::slotDeleteReferencePoint()
{
    m_pController->DeleteKnownPoint();
}

// ---- point capture ----

void CLmRtkStationSettings::slotRdoLimitsFixed(bool bChecked)
{
    m_pUi->m_pEditPositionLimits->setEnabled(!bChecked);
}

void CLmRtkStationSettings::slotStartCapturePoint()
{
    if (m_pController->Capture().IsRunning()) {
        m_pController->StopCapture();
        m_pUi->m_pBtnStartCapture->setText(tr("Start"));
        return;
    }
    const auto mode = m_pUi->m_pRdoSampleAverage->isChecked() ? CLmPointCapture::eSampleAverage
                                                               : CLmPointCapture::eSinglePoint;
    m_pUi->m_pLblCapturedPoint->setText(NotAvailable());
    m_pController->StartCapture(mode, m_pUi->m_pEditCaptureQuantity->text().toInt(),
                                m_pUi->m_pRdoLimitsFixed->isChecked(),
                                m_pUi->m_pEditPositionLimits->text().toDouble());
    m_pUi->m_pBtnStartCapture->setText(tr("Stop"));
}

void CLmRtkStationSettings::ShowCapturedPoint(double lat, double lng, double altitude)
{
    m_pUi->m_pLblCapturedPoint->setText(QStringLiteral("%1, %2, %3 m")
                                            .arg(QString::number(lat, 'f', 8), QString::number(lng, 'f', 8),
                                                 QString::number(altitude, 'f', 3)));
}

void CLmRtkStationSettings::slotDeleteCapturePoint()
{
    m_pController->DiscardCapture();
    m_pUi->m_pBtnStartCapture->setText(tr("Start"));
    m_pUi->m_pLblCapturedPoint->setText(NotAvailable());
    m_pUi->m_pLblCaptureState->setText(QStringLiteral("0/0"));
}

void CLmRtkStationSettings::slotSaveCapturePoint()
{
    if (!m_pController->Capture().HasResult()) {
        Inform(tr("No point has been captured yet."));
        return;
    }
    CLmCarrowmereSaveRPWidget dialog(this, m_pController->ReferencePointNames());
    dialog.SetPrompt(tr("Input reference point name"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_pController->SaveCapturedPoint(dialog.Name(), m_pUi->m_pEditCaptureVertical->text().toDouble());
}

// ---- raw files ----

void CLmRtkStationSettings::ShowStorage(quint64 total, quint64 free)
{
    m_pUi->m_pLblMemorySize->setText(StorageText(total));
    m_pUi->m_pLblFreeSpace->setText(StorageText(free));
}

void CLmRtkStationSettings::ShowFileList(const QList<SStaticFileRow>& rows)
{
    QTableWidget* table = m_pUi->m_pTableFiles;
    table->setRowCount(0);
    for (const SStaticFileRow& row : rows) {
        const int r = table->rowCount();
        table->insertRow(r);
        auto* name = new QTableWidgetItem(row.name);
        name->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        name->setCheckState(Qt::Unchecked);
        table->setItem(r, eNameColumn, name);
        const QString created = row.created.isValid()
            ? row.created.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
            : NotAvailable();
        table->setItem(r, eCreateColumn, new QTableWidgetItem(created));
        table->setItem(r, eSizeColumn, new QTableWidgetItem(FileSizeText(row.sizeBytes)));
    }
    m_pUi->m_pChkCheckAll->setChecked(false);
}

void CLmRtkStationSettings::ToggleRowCheck(QTableWidgetItem* item)
{
    // The check box of the name column toggles itself; a click elsewhere in
    // the row toggles it too.
    if (item->column() == eNameColumn)
        return;
    QTableWidgetItem* name = m_pUi->m_pTableFiles->item(item->row(), eNameColumn);
    name->setCheckState(name->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void CLmRtkStationSettings::CheckAllRows(bool bChecked)
{
    QTableWidget* table = m_pUi->m_pTableFiles;
    for (int r = 0; r < table->rowCount(); ++r)
        table->item(r, eNameColumn)->setCheckState(bChecked ? Qt::Checked : Qt::Unchecked);
}

QStringList CLmRtkStationSettings::CheckedFileNames() const
{
    QStringList names;
    const QTableWidget* table = m_pUi->m_pTableFiles;
    for (int r = 0; r < table->rowCount(); ++r) {
        const QTableWidgetItem* name = table->item(r, eNameColumn);
        if (name->checkState() == Qt::Checked)
            names.append(name->text());
    }
    return names;
}

void CLmRtkStationSettings::RemoveFileRows(const QStringList& names)
{
    QTableWidget* table = m_pUi->m_pTableFiles;
    for (int r = table->rowCount() - 1; r >= 0; --r) {
        if (names.contains(table->item(r, eNameColumn)->text()))
            table->removeRow(r);
    }
}

void CLmRtkStationSettings::slotDeleteRawFiles()
{
    const QStringList names = CheckedFileNames();
    if (names.isEmpty()) {
        Inform(tr("Please select one or more file(s) to delete."));
        return;
    }
    if (Confirm(tr("Are you sure to delete selected file(s)?")))
        m_pController->DeleteFiles(names);
}

void CLmRtkStationSettings::slotFormatStation()
{
    m_pController->Format();
}

void CLmRtkStationSettings::slotDownloadSelectRawFiles()
{
    const QStringList names = CheckedFileNames();
    if (names.isEmpty()) {
        Inform(tr("Please select one or more file(s) to download."));
        return;
    }
    QFileDialog dialog(this, tr("Save raw data"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    m_pController->DownloadFiles(names, dialog.selectedFiles().constFirst());
}

void CLmRtkStationSettings::ShowDownloadBusy(bool bBusy)
{
    for (QWidget* widget : {static_cast<QWidget*>(m_pUi->m_pTableFiles), static_cast<QWidget*>(m_pUi->m_pBtnDelete),
                            static_cast<QWidget*>(m_pUi->m_pBtnFormat), static_cast<QWidget*>(m_pUi->m_pBtnDownload),
                            static_cast<QWidget*>(m_pUi->m_pChkCheckAll)})
        widget->setEnabled(!bBusy);
    SetOtherTabsEnabled(!bBusy);
    m_pUi->m_pBtnBaseState->setEnabled(!bBusy);
    m_pUi->m_pBtnBaseData->setEnabled(true);
    if (!bBusy) {
        m_pUi->m_pProgressDownload->setValue(0);
        m_pUi->m_pLblDownloadState->setText(NotAvailable());
    }
}

void CLmRtkStationSettings::ShowDownloadProgress(const QString& name, qint64 received, qint64 total)
{
    // The bar counts in kilobytes so that files over 2 GB fit its int range.
    m_pUi->m_pProgressDownload->setMaximum(int(std::max<qint64>(1, total / 1024)));
    m_pUi->m_pProgressDownload->setValue(int(received / 1024));
    m_pUi->m_pLblDownloadState->setText(tr("Downloading") + QLatin1Char(' ') + name);
}

// ---- calculators ----

// The first point against the station's own position, when it reported one.
void CLmRtkStationSettings::ShowCalculatorFrom(const std::optional<LmBaseStationMath::SGeoPoint>& first)
{
    CLmCoordinateCalculator dialog(this);
    if (first)
        dialog.SetFirstPoint(*first);
    if (const auto own = m_pController->OwnPosition())
        dialog.SetSecondPoint(*own);
    dialog.exec();
}

void CLmRtkStationSettings::slotShowCalculator()
{
    const SLmStationSetup setup = ReadSetup();
    ShowCalculatorFrom(setup.bComplete ? std::optional(setup.entered) : std::nullopt);
}

void CLmRtkStationSettings::slotShowCalculator2()
{
    const CLmPointCapture& capture = m_pController->Capture();
    ShowCalculatorFrom(capture.HasResult() ? std::optional(capture.Result()) : std::nullopt);
}

void CLmRtkStationSettings::slotShowFormatConverter()
{
    CLmCoordinateConverter dialog(this);
    if (const auto lat = ReadDms(m_pUi->m_pEditLatDeg->text(), m_pUi->m_pEditLatMin->text(),
                                 m_pUi->m_pEditLatSec->text(), 90.0))
        dialog.SetDegrees(*lat);
    dialog.exec();
}
