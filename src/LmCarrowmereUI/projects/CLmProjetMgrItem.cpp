#include "CLmProjetMgrItem.h"

#include "CLmProjClassifier.h"
#include "LmProjMgrRoles.h"

#include <utility>

namespace {

// Flown and mission counts of a "3/5" text; anything else sorts first.
std::pair<int, int> FlightLogCounts(const QString& strTxt)
{
    const QStringList parts = strTxt.split(QLatin1Char('/'));
    bool bFlownOk = false;
    bool bTotalOk = false;
    if (parts.size() == 2) {
        const int iFlown = parts.at(0).trimmed().toInt(&bFlownOk);
        const int iTotal = parts.at(1).trimmed().toInt(&bTotalOk);
        if (bFlownOk && bTotalOk)
            return {iFlown, iTotal};
    }
    return {-1, -1};
}

}  // namespace

CLmProjetMgrItem::CLmProjetMgrItem(QTreeWidget* pTree)
    : QTreeWidgetItem(pTree, UserType)
{
    setCheckState(ColumnProject, Qt::Unchecked);
}

void CLmProjetMgrItem::SetProjectId(const QString& strProjId)
{
    setData(ColumnProject, LmProjMgrRole::ProjectId, strProjId);
}

QString CLmProjetMgrItem::ProjectId() const
{
    return data(ColumnProject, LmProjMgrRole::ProjectId).toString();
}

void CLmProjetMgrItem::SetProjectPath(const QString& strPath)
{
    setData(ColumnProject, LmProjMgrRole::ProjectPath, strPath);
}

QString CLmProjetMgrItem::ProjectPath() const
{
    return data(ColumnProject, LmProjMgrRole::ProjectPath).toString();
}

void CLmProjetMgrItem::SetCityList(const QStringList& listCities)
{
    setData(ColumnProject, LmProjMgrRole::CityList, listCities);
}

QStringList CLmProjetMgrItem::CityList() const
{
    return data(ColumnProject, LmProjMgrRole::CityList).toStringList();
}

void CLmProjetMgrItem::SetFlightLogText(const QString& strTxt)
{
    setText(ColumnFlightLog, strTxt);
    setData(ColumnProject, LmProjMgrRole::FlightLogText, strTxt);
}

QString CLmProjetMgrItem::FlightLogText() const
{
    return data(ColumnProject, LmProjMgrRole::FlightLogText).toString();
}

bool CLmProjetMgrItem::operator<(const QTreeWidgetItem& other) const
{
    const int iColumn = SortColumn();
    switch (iColumn) {
    case ColumnProject:
        return text(iColumn).compare(other.text(iColumn), Qt::CaseInsensitive) < 0;
    case ColumnFlightLog:
        return FlightLogCounts(text(iColumn)) < FlightLogCounts(other.text(iColumn));
    case ColumnCreateTime:
        return CLmProjClassifier::SecondsOf(text(iColumn)) < CLmProjClassifier::SecondsOf(other.text(iColumn));
    default:
        return QTreeWidgetItem::operator<(other);
    }
}

int CLmProjetMgrItem::SortColumn() const
{
    return treeWidget() ? treeWidget()->sortColumn() : ColumnProject;
}
