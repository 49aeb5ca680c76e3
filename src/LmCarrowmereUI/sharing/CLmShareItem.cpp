#include "CLmShareItem.h"

#include "CLmReceiveShareManagerDelegate.h"
#include "LmShareRoles.h"

#include <QCoreApplication>

using Controller = CLmShareManagerController;
using Delegate = CLmReceiveShareManagerDelegate;

CLmShareItem::CLmShareItem(const Controller::SShareRow& row)
    : QTreeWidgetItem(UserType)
    , m_row(row)
{
}

QVariant CLmShareItem::data(int column, int role) const
{
    if (role == Qt::DisplayRole)
        return Text(column);
    if (column == Delegate::ColumnProject && role >= LmShareRole::ShareId)
        return RoleData(role);
    return QTreeWidgetItem::data(column, role);
}

QVariant CLmShareItem::RoleData(int role) const
{
    switch (role) {
    case LmShareRole::ShareId:
        return m_row.nId;
    case LmShareRole::Messages:
        return QVariant::fromValue(m_row.vecMessages);
    case LmShareRole::Kind:
        return Controller::KindName(m_row.eKind);
    case LmShareRole::State:
        return m_row.nState;
    case LmShareRole::SaveAs:
        return m_row.nSaveAs;
    case LmShareRole::SenderId:
        return m_row.nSenderId;
    case LmShareRole::ProjectId:
        return m_row.strProjectId;
    case LmShareRole::TaskId:
        return m_row.strTaskId;
    default:
        return QTreeWidgetItem::data(Delegate::ColumnProject, role);
    }
}

QString CLmShareItem::Text(int column) const
{
    switch (column) {
    case Delegate::ColumnProject:
        return m_row.eKind == Controller::KindReceivedTask
                   ? QCoreApplication::translate("CLmShareItem", "%1 (flight task)").arg(m_row.strProject)
                   : m_row.strProject;
    case Delegate::ColumnPeer:
        return m_row.strPeer;
    case Delegate::ColumnTime:
        return m_row.strTime;
    case Delegate::ColumnState:
        return Controller::StateText(m_row.nState);
    case Delegate::ColumnMessage:
        return Controller::LatestMessage(m_row);
    default:
        return QString();
    }
}
