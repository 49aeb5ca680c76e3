#pragma once

#include <QHeaderView>

// Horizontal header of the project tree whose first section carries a
// check-all box before its title. Clicking the box toggles it without
// sorting; the rest of the header behaves as usual.
class CLmProjetMgrHeaderView : public QHeaderView
{
    Q_OBJECT
public:
    explicit CLmProjetMgrHeaderView(QWidget* pParent = nullptr);

    Qt::CheckState CheckState() const;
    // The box's state for iChecked checked rows of iRows.
    static Qt::CheckState StateFor(int iChecked, int iRows);

Q_SIGNALS:
    // The user toggled the box; state is the box's new state.
    void signalStateChanged(Qt::CheckState state);

public Q_SLOTS:
    // Shows the rows' combined check state; emits nothing.
    void slotStateChanged(int state);

protected:
    void paintSection(QPainter* pPainter, const QRect& rect, int iLogicalIndex) const override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;

private:
    void PaintCheckSection(QPainter* pPainter, const QRect& rect) const;
    bool IsOnCheckBox(const QPoint& pos) const;

    Qt::CheckState m_eState = Qt::Unchecked;
    bool m_bPressedOnBox = false;
};
