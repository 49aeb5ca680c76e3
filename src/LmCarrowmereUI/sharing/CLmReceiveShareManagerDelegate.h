#pragma once

#include "CLmRowButtonDelegate.h"

#include <QHash>

// Draws the share manager's rows and makes their painted parts clickable: the
// check box of the project column, the accept and refuse images of a waiting
// received share in the state column, the row buttons ("Accept", "Share",
// "Delete", "Message") in the operation column and the message column.
// Signals carry the index of the row's first column, where its data lives
// (LmShareRoles.h).
class CLmReceiveShareManagerDelegate : public CLmRowButtonDelegate
{
    Q_OBJECT
public:
    enum EColumn {
        ColumnProject = 0,
        ColumnPeer = 1,
        ColumnTime = 2,
        ColumnState = 3,
        ColumnOperation = 4,
        ColumnMessage = 5,
    };

    explicit CLmReceiveShareManagerDelegate(QAbstractItemView* pView);

    // The message column's tool tip is the row's whole conversation.
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    // The accept and refuse images of a waiting received row, side by side in
    // the middle of the state cell.
    static QRect ReceiveRect(const QRect& cell);
    static QRect RefuseRect(const QRect& cell);

Q_SIGNALS:
    void signalAcceptBtnClicked(const QModelIndex& index);
    void signalShareBtnClicked(const QModelIndex& index);
    void signalDeleteBtnClicked(const QModelIndex& index);
    void signalMessageBtnClicked(const QModelIndex& index);
    // The accept image of a waiting received row: take the project.
    void signalClickedDownload(const QModelIndex& index);

public Q_SLOTS:
    // Forgets the states reported since the rows were filled.
    void slotResetBtn();
    // The share nItenID is now in nState, before the list says so.
    void slotUpdateStateTxt(int nItenID, int nState);

protected:
    QVector<SButton> RowButtons(const QModelIndex& index) const override;
    void PaintCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption, const QModelIndex& index) const override;
    bool HandleRelease(const QPoint& pos, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
                       const QModelIndex& index) override;

private:
    enum EAction { ActionAccept, ActionShare, ActionDelete, ActionMessage };

    int RowState(const QModelIndex& index) const;
    bool IsWaitingReceived(const QModelIndex& index) const;
    void PaintStateCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption, const QModelIndex& index) const;
    void PaintMessageCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption) const;

    QHash<qint64, int> m_mapState;
};
