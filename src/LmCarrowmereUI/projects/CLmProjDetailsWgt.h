#pragma once

#include <QJsonArray>
#include <QWidget>

#include <memory>

class CLmMissionTableDelegate;
class CLmProjDetailsController;
class QModelIndex;

namespace Ui {
class CLmProjDetailsWgt;
}

// The project details page, opened from a project row's "Details" button:
// the project's name and where it lives, a summary (missions planned, flown,
// downloaded), the flown missions with their flight time, log rows and
// positions, and a download column (CLmMissionTableDelegate) from which a
// mission's flight data is fetched into the project's mission database.
//
// The project page that hosts it:
//   - calls ShowProject(id, name, file) with the row's cloud id, name and
//     local project file (empty for a project only in the cloud);
//   - forwards parseJsonArray to CLmFlightDataDbOperator::slotParseJson (the
//     writer on the upload thread, as its own parseJsonArray already is) and
//     CLmFlightDataDbOperator::FlightDataParsed to slotFlightDataParsed;
//   - shows its list again on BackToProject.
// The page binds the form to a CLmProjDetailsController, which does the work.
class CLmProjDetailsWgt : public QWidget
{
    Q_OBJECT
public:
    explicit CLmProjDetailsWgt(QWidget* parent = nullptr);
    ~CLmProjDetailsWgt() override;

    void ShowProject(const QString& projId, const QString& projName, const QString& projFilePath);

Q_SIGNALS:
    void BackToProject();
    // Flight data of a downloaded mission for the flight-data writer.
    void parseJsonArray(QJsonArray jArray, QString strFilePath, QString strMissionID, uint iOperatorType,
                        QString strProjectName);

public Q_SLOTS:
    // The writer's report (CLmFlightDataDbOperator::FlightDataParsed).
    void slotFlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType, int iRows);

private Q_SLOTS:
    void slotMissionsChanged();
    void slotMissionStateChanged(QString strMissionId, int iState);
    void slotStatusChanged(QString strText);
    void slotClickedDownload(const QModelIndex& index);

private:
    void SetUpTable();
    // Row iRow of the table for the controller's mission iRow.
    void AddMissionRow(int iRow);
    void ShowSummary();
    // The mission table, or a card saying why there is no mission to show.
    void ShowTableOrNoMission();

    std::unique_ptr<Ui::CLmProjDetailsWgt> m_pUi;
    CLmProjDetailsController* m_pController;
    CLmMissionTableDelegate* m_pDelegate = nullptr;
};
