#pragma once

#include <QPoint>
#include <QString>
#include <QStyledItemDelegate>
#include <QVector>

class QAbstractItemView;
class QMouseEvent;

// A list whose rows are painted, with a check box before the first column's
// text and a set of buttons drawn right-aligned in one column, each with a
// hover image under the mouse and a tool tip naming it. Painting and
// hit-testing share the geometry of LmProjRowLayout, so a click always lands
// on what is drawn. Subclasses paint their cells, say which buttons a row has
// and act on a release.
class CLmRowButtonDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    struct SButton
    {
        // Image stem under ":/images/Normal/ProjMgr/", without "_nor.png" / "_hovpre.png".
        const char* pszImage;
        QString strToolTip;
        int nAction;
    };

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

Q_SIGNALS:
    // The row's check box was toggled by a click; index is the row's first column.
    void signalChecked(const QModelIndex& index);

protected:
    // Serves pView's rows and is owned by pView; the buttons sit in
    // iButtonColumn. Turns on the view's mouse tracking and hover so that
    // tool tips and hover images follow the mouse.
    CLmRowButtonDelegate(QAbstractItemView* pView, int iButtonColumn);

    // The buttons of index's row, left to right.
    virtual QVector<SButton> RowButtons(const QModelIndex& index) const = 0;
    // Paints the cell's content over its background, with the row's font
    // and text colour set.
    virtual void PaintCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                           const QModelIndex& index) const = 0;
    // A left-button release at pos; true when it hit something of the cell.
    virtual bool HandleRelease(const QPoint& pos, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
                               const QModelIndex& index) = 0;

    // option as the cell is painted: the item's data and the row font.
    QStyleOptionViewItem RowOption(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    // The first column: the row's check box, then its text.
    void PaintCheckCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption) const;
    // Toggles the check value of rowIndex when pos lies on the check box of
    // cell and says so with signalChecked.
    bool ToggleCheckBox(const QPoint& pos, QAbstractItemModel* pModel, const QRect& cell, const QModelIndex& rowIndex);

    // Draws the row's buttons in cell, the one under the mouse hovered.
    void PaintButtons(QPainter* pPainter, const QStyleOptionViewItem& rowOption, const QModelIndex& index) const;
    // Left edge of the row's buttons in cell: text of the cell ends before it.
    int ButtonsLeft(const QRect& cell, const QModelIndex& index) const;
    // The action of the button at pos, or -1 over no button or another column.
    int ActionAt(const QPoint& pos, const QRect& cell, const QModelIndex& index) const;
    // A mouse move: remembers it for the hover images, shows the tool tip of
    // the button under it (an empty one over none) and redraws the row.
    void TrackMouse(const QMouseEvent* pEvent, const QStyleOptionViewItem& option, const QModelIndex& index);
    // Redraws the whole row of cell.
    void RepaintRow(const QRect& cell) const;

    QAbstractItemView* View() const;

private:
    QAbstractItemView* m_pView;
    int m_iButtonColumn;
    // Viewport position of the last mouse move, for the hover images.
    QPoint m_ptMouse;
};
