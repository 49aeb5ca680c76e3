#pragma once

#include <QPoint>
#include <QString>
#include <QStyledItemDelegate>
#include <QVector>

class QAbstractItemView;
class QMouseEvent;

// The painted buttons of a list's rows: each row has a set of buttons drawn
// right-aligned in one column, with a hover image under the mouse and a tool
// tip naming the button; a release on a button reports its action. Painting
// and hit-testing share the geometry of LmProjRowLayout, so a click always
// lands on what is drawn. Subclasses say which buttons a row has and act on
// them.
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

protected:
    // Serves pView's rows and is owned by pView; the buttons sit in
    // iButtonColumn. Turns on the view's mouse tracking and hover so that
    // tool tips and hover images follow the mouse.
    CLmRowButtonDelegate(QAbstractItemView* pView, int iButtonColumn);

    // The buttons of index's row, left to right.
    virtual QVector<SButton> RowButtons(const QModelIndex& index) const = 0;

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
    QPoint MousePos() const;

private:
    QAbstractItemView* m_pView;
    int m_iButtonColumn;
    // Viewport position of the last mouse move, for the hover images.
    QPoint m_ptMouse;
};
