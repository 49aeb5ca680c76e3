#pragma once

#include <QStringList>
#include <QTreeWidgetItem>

// One project row of the project manager's tree. Its data sits on the first
// column under the roles of LmProjMgrRoles.h; the row starts unchecked.
class CLmProjetMgrItem : public QTreeWidgetItem
{
public:
    enum EColumn { ColumnProject = 0, ColumnFlightLog = 1, ColumnCreateTime = 2 };

    explicit CLmProjetMgrItem(QTreeWidget* pTree = nullptr);

    void SetProjectId(const QString& strProjId);
    QString ProjectId() const;
    void SetProjectPath(const QString& strPath);
    QString ProjectPath() const;
    void SetCityList(const QStringList& listCities);
    QStringList CityList() const;
    // Shows strTxt in the flight-log column and keeps it under its role.
    void SetFlightLogText(const QString& strTxt);
    QString FlightLogText() const;

    // Names compare without case, flight logs by flown count then mission
    // count, creation times by time; "------" and unreadable times come first.
    bool operator<(const QTreeWidgetItem& other) const override;

private:
    int SortColumn() const;
};
