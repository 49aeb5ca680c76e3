#pragma once

#include "CLmShareManagerController.h"

#include <QTreeWidgetItem>

// One row of the share manager's tree. It answers its texts and the roles of
// LmShareRoles.h (on the first column) from the share record it holds, so a
// long list is made without storing each value in the item; only the check
// state is kept by the item itself.
class CLmShareItem : public QTreeWidgetItem
{
public:
    explicit CLmShareItem(const CLmShareManagerController::SShareRow& row);

    QVariant data(int column, int role) const override;

private:
    QVariant RoleData(int role) const;
    QString Text(int column) const;

    CLmShareManagerController::SShareRow m_row;
};
