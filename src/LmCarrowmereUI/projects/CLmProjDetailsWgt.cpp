#include "CLmProjDetailsWgt.h"

#include "CLmMissionTableDelegate.h"
#include "CLmProjDetailsController.h"
#include "LmProjMgrRoles.h"
#include "ui_CLmProjDetailsWgt.h"

#include <QDir>
#include <QHeaderView>
#include <QLocale>

namespace {

enum EColumn { ColumnMission, ColumnFlightTime, ColumnLogRows, ColumnPositions, ColumnFlightData };

constexpr int MissionWidth = 280;
constexpr int FlightTimeWidth = 200;
constexpr int CountWidth = 110;

// What the download column shows for a mission state.
struct SFlightCell
{
    int nDelegateState;
    QString strText;
};

SFlightCell FlightCell(int iState)
{
    switch (iState) {
    case CLmProjDetailsController::MissionDownloading:
        return {CLmMissionTableDelegate::FlightDownloading, CLmProjDetailsWgt::tr("Downloading...")};
    case CLmProjDetailsController::MissionDownloaded:
        return {CLmMissionTableDelegate::FlightDownloaded, CLmProjDetailsWgt::tr("Complete")};
    case CLmProjDetailsController::MissionDownloadFailed:
        return {CLmMissionTableDelegate::FlightDownloadFailed,
                CLmProjDetailsWgt::tr("Download failed, please re-download")};
    default:
        return {CLmMissionTableDelegate::FlightNotDownloaded, CLmProjDetailsWgt::tr("Click download")};
    }
}

QTableWidgetItem* TextItem(const QString& strText)
{
    auto* pItem = new QTableWidgetItem(strText);
    pItem->setToolTip(strText);
    return pItem;
}

QTableWidgetItem* NumberItem(qint64 iNumber)
{
    auto* pItem = new QTableWidgetItem(QLocale().toString(iNumber));
    pItem->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return pItem;
}

// A count, or a dash while it is not known.
QString CountText(bool bKnown, int iCount)
{
    return bKnown ? QLocale().toString(iCount) : QStringLiteral("\u2013");
}

}  // namespace

CLmProjDetailsWgt::CLmProjDetailsWgt(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmProjDetailsWgt>())
    , m_pController(new CLmProjDetailsController(this))
{
    m_pUi->setupUi(this);
    m_pDelegate = new CLmMissionTableDelegate(m_pUi->m_pTableMission);
    SetUpTable();
    ShowSummary();
    ShowTableOrNoMission();

    connect(m_pUi->m_pBtnBackProject, &QPushButton::clicked, this, &CLmProjDetailsWgt::BackToProject);
    connect(m_pDelegate, &CLmMissionTableDelegate::signalClickedDownload, this,
            &CLmProjDetailsWgt::slotClickedDownload);
    connect(m_pController, &CLmProjDetailsController::MissionsChanged, this, &CLmProjDetailsWgt::slotMissionsChanged);
    connect(m_pController, &CLmProjDetailsController::MissionStateChanged, this,
            &CLmProjDetailsWgt::slotMissionStateChanged);
    connect(m_pController, &CLmProjDetailsController::StatusChanged, this, &CLmProjDetailsWgt::slotStatusChanged);
    connect(m_pController, &CLmProjDetailsController::parseJsonArray, this, &CLmProjDetailsWgt::parseJsonArray);
}

CLmProjDetailsWgt::~CLmProjDetailsWgt() = default;

void CLmProjDetailsWgt::SetUpTable()
{
    QTableWidget* pTable = m_pUi->m_pTableMission;
    QHeaderView* pHeader = pTable->horizontalHeader();
    pHeader->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // The download column takes the room left: its texts are the longest.
    pHeader->setStretchLastSection(true);
    pTable->setColumnWidth(ColumnMission, MissionWidth);
    pTable->setColumnWidth(ColumnFlightTime, FlightTimeWidth);
    pTable->setColumnWidth(ColumnLogRows, CountWidth);
    pTable->setColumnWidth(ColumnPositions, CountWidth);
    pTable->setItemDelegateForColumn(ColumnFlightData, m_pDelegate);
    for (const int iColumn : {ColumnLogRows, ColumnPositions})
        pTable->horizontalHeaderItem(iColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void CLmProjDetailsWgt::ShowProject(const QString& projId, const QString& projName, const QString& projFilePath)
{
    m_pUi->m_pLabelProjName->setText(projName);
    m_pController->ShowProject(projId, projName, projFilePath);
    m_pUi->m_pLabelProjLocation->setText(m_pController->IsCloudOnly() ? tr("Only in the cloud")
                                                                      : QDir::toNativeSeparators(projFilePath));
}

void CLmProjDetailsWgt::slotFlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType,
                                             int iRows)
{
    m_pController->slotFlightDataParsed(strFilePath, strMissionID, iOperatorType, iRows);
}

void CLmProjDetailsWgt::slotMissionsChanged()
{
    const QList<CLmProjDetailsController::SMission>& missions = m_pController->Missions();
    m_pUi->m_pTableMission->setRowCount(0);
    m_pUi->m_pTableMission->setRowCount(missions.size());
    for (int iRow = 0; iRow < missions.size(); ++iRow)
        AddMissionRow(iRow);
    ShowSummary();
    ShowTableOrNoMission();
}

void CLmProjDetailsWgt::AddMissionRow(int iRow)
{
    const CLmProjDetailsController::SMission& mission = m_pController->Missions().at(iRow);
    const QString& strMissionId = mission.strMissionId;
    QTableWidget* pTable = m_pUi->m_pTableMission;
    QTableWidgetItem* pName = TextItem(mission.strName);
    pName->setData(LmProjMgrRole::MissionId, strMissionId);
    pTable->setItem(iRow, ColumnMission, pName);
    pTable->setItem(iRow, ColumnFlightTime, TextItem(mission.strFlightTime));
    pTable->setItem(iRow, ColumnLogRows, NumberItem(mission.iLogRows));
    pTable->setItem(iRow, ColumnPositions, NumberItem(mission.iPositions));
    pTable->setItem(iRow, ColumnFlightData, new QTableWidgetItem);
    const SFlightCell cell = FlightCell(mission.eState);
    m_pDelegate->slotUpdateFlightTxt(cell.strText, cell.nDelegateState, strMissionId);
}

void CLmProjDetailsWgt::slotMissionStateChanged(QString strMissionId, int iState)
{
    const SFlightCell cell = FlightCell(iState);
    m_pDelegate->slotUpdateFlightTxt(cell.strText, cell.nDelegateState, strMissionId);
    ShowSummary();
}

void CLmProjDetailsWgt::slotStatusChanged(QString strText)
{
    m_pUi->m_pLabelStatus->setText(strText);
}

void CLmProjDetailsWgt::slotClickedDownload(const QModelIndex& index)
{
    m_pController->DownloadMission(index.siblingAtColumn(ColumnMission).data(LmProjMgrRole::MissionId).toString());
}

void CLmProjDetailsWgt::ShowTableOrNoMission()
{
    if (!m_pController->Missions().isEmpty()) {
        m_pUi->m_pStackMissions->setCurrentWidget(m_pUi->m_pPageMissionTable);
        return;
    }
    if (m_pController->IsCloudOnly())
        m_pUi->m_pLabelNoMission->setText(tr("This project is only in the cloud."));
    else if (m_pController->IsListing())
        m_pUi->m_pLabelNoMission->setText(tr("Reading the missions..."));
    else
        m_pUi->m_pLabelNoMission->setText(tr("No flown mission of this project in the cloud."));
    m_pUi->m_pStackMissions->setCurrentWidget(m_pUi->m_pCardNoMission);
}

void CLmProjDetailsWgt::ShowSummary()
{
    const bool bKnown = !m_pController->IsListing() && !m_pController->IsCloudOnly();
    m_pUi->m_pLabelMissionsCount->setText(CountText(bKnown, m_pController->FlightTaskCount()));
    m_pUi->m_pLabelFlownCount->setText(CountText(bKnown, m_pController->Missions().size()));
    m_pUi->m_pLabelDownloadedCount->setText(CountText(bKnown, m_pController->DownloadedCount()));
}
