#include "CLmProjetMgrHeaderView.h"

#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int CheckSection = 0;

}  // namespace

CLmProjetMgrHeaderView::CLmProjetMgrHeaderView(QWidget* pParent)
    : QHeaderView(Qt::Horizontal, pParent)
{
    // As the tree's own header: the last column takes the spare width, titles
    // start at the left unless the page aligns them otherwise.
    setStretchLastSection(true);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

Qt::CheckState CLmProjetMgrHeaderView::CheckState() const
{
    return m_eState;
}

Qt::CheckState CLmProjetMgrHeaderView::StateFor(int iChecked, int iRows)
{
    if (iChecked == 0)
        return Qt::Unchecked;
    return iChecked == iRows ? Qt::Checked : Qt::PartiallyChecked;
}

void CLmProjetMgrHeaderView::slotStateChanged(int state)
{
    m_eState = static_cast<Qt::CheckState>(state);
    viewport()->update();
}

void CLmProjetMgrHeaderView::paintSection(QPainter* pPainter, const QRect& rect, int iLogicalIndex) const
{
    if (iLogicalIndex == CheckSection)
        PaintCheckSection(pPainter, rect);
    else
        QHeaderView::paintSection(pPainter, rect, iLogicalIndex);
}

void CLmProjetMgrHeaderView::mousePressEvent(QMouseEvent* pEvent)
{
    m_bPressedOnBox = pEvent->button() == Qt::LeftButton && IsOnCheckBox(pEvent->pos());
    if (!m_bPressedOnBox)
        QHeaderView::mousePressEvent(pEvent);
}

// The second press of a double click arrives as a double click; on the box it
// counts as a press, so two quick clicks toggle twice.
void CLmProjetMgrHeaderView::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    m_bPressedOnBox = pEvent->button() == Qt::LeftButton && IsOnCheckBox(pEvent->pos());
    if (!m_bPressedOnBox)
        QHeaderView::mouseDoubleClickEvent(pEvent);
}

void CLmProjetMgrHeaderView::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (!m_bPressedOnBox) {
        QHeaderView::mouseReleaseEvent(pEvent);
        return;
    }
    m_bPressedOnBox = false;
    if (!IsOnCheckBox(pEvent->pos()))
        return;
    m_eState = m_eState == Qt::Checked ? Qt::Unchecked : Qt::Checked;
    viewport()->update();
    emit signalStateChanged(m_eState);
}

void CLmProjetMgrHeaderView::PaintCheckSection(QPainter* pPainter, const QRect& rect) const
{
    // The style draws the section and its sort indicator; the box and the
    // title are drawn here so the title starts after the box.
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = CheckSection;
    if (isSortIndicatorShown() && sortIndicatorSection() == CheckSection) {
        option.sortIndicator = sortIndicatorOrder() == Qt::AscendingOrder ? QStyleOptionHeader::SortDown
                                                                          : QStyleOptionHeader::SortUp;
    }
    // The style ends its header drawing by setting back the clip region it
    // found; an unclipped painter's region is empty, which would clip away
    // everything drawn after it.
    pPainter->save();
    style()->drawControl(QStyle::CE_Header, &option, pPainter, this);
    pPainter->restore();

    pPainter->save();
    LmProjRowPainting::DrawCheckBox(pPainter, rect, m_eState == Qt::Checked);
    pPainter->setFont(LmProjRowPainting::RowFont(font()));
    pPainter->setPen(option.palette.color(QPalette::ButtonText));
    LmProjRowPainting::DrawItemText(pPainter, LmProjRowLayout::TextAfterCheckBox(rect),
                                    model() ? model()->headerData(CheckSection, orientation()).toString() : QString(),
                                    Qt::AlignLeft | Qt::AlignVCenter);
    pPainter->restore();
}

bool CLmProjetMgrHeaderView::IsOnCheckBox(const QPoint& pos) const
{
    const QRect section(sectionViewportPosition(CheckSection), 0, sectionSize(CheckSection), height());
    return LmProjRowLayout::CheckBoxRect(section).contains(pos);
}
