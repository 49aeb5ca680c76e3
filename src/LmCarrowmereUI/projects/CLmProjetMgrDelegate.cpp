#include "CLmProjetMgrDelegate.h"

#include "CLmProjetMgrItem.h"
#include "LmProjMgrRoles.h"
#include "LmProjSynchTypes.h"
#include "LmProjRowPainting.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>

using namespace LmProjRowLayout;
using namespace LmProjRowPainting;

namespace {

struct SButtonLook
{
    const char* pszIcon;
    const char* pszToolTip;
    void (CLmProjetMgrDelegate::*clicked)(const QModelIndex&);
};

// Indexed by LmProjRowLayout::EButton.
const SButtonLook ButtonLooks[] = {
    {"share1_btn", QT_TRANSLATE_NOOP("CLmProjetMgrDelegate", "Share"), &CLmProjetMgrDelegate::signalShareBtnClicked},
    {"delete1_btn", QT_TRANSLATE_NOOP("CLmProjetMgrDelegate", "Delete"),
     &CLmProjetMgrDelegate::signalDeleteBtnClicked},
    {"cloud_Download1_btn", QT_TRANSLATE_NOOP("CLmProjetMgrDelegate", "Download"),
     &CLmProjetMgrDelegate::signalDownloadBtnClicked},
    {"infor_btn", QT_TRANSLATE_NOOP("CLmProjetMgrDelegate", "Details"),
     &CLmProjetMgrDelegate::signalDetailsBtnClicked},
    {"open_btn", QT_TRANSLATE_NOOP("CLmProjetMgrDelegate", "Open"), &CLmProjetMgrDelegate::signalOpenBtnClicked},
};

const QColor LinkColor(0x2f, 0x80, 0xed);
const QColor CompleteColor(0x43, 0xa0, 0x47);

QString RowId(const QModelIndex& index)
{
    return index.siblingAtColumn(CLmProjetMgrItem::ColumnProject).data(LmProjMgrRole::ProjectId).toString();
}

}  // namespace

CLmProjetMgrDelegate::CLmProjetMgrDelegate(QAbstractItemView* pView)
    : CLmRowButtonDelegate(pView, CLmProjetMgrItem::ColumnCreateTime)
{
}

void CLmProjetMgrDelegate::PaintCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                     const QModelIndex& index) const
{
    switch (index.column()) {
    case CLmProjetMgrItem::ColumnProject:
        PaintCheckCell(pPainter, rowOption);
        break;
    case CLmProjetMgrItem::ColumnFlightLog:
        PaintFlightLogCell(pPainter, rowOption, index);
        break;
    case CLmProjetMgrItem::ColumnCreateTime:
        PaintTimeCell(pPainter, rowOption, index);
        break;
    default:
        DrawItemText(pPainter, rowOption.rect.adjusted(TextPadding, 0, -TextPadding, 0), rowOption.text,
                     Qt::AlignLeft | Qt::AlignVCenter);
        break;
    }
}

void CLmProjetMgrDelegate::slotResetBtn()
{
    m_mapStateBtn.clear();
    m_mapStateTxt.clear();
    View()->viewport()->update();
}

void CLmProjetMgrDelegate::slotUpdateStateTxt(QString strTxt, int nState, QString strKey)
{
    m_mapStateTxt.insert(strKey, {strTxt, nState});
    View()->viewport()->update();
}

void CLmProjetMgrDelegate::slotUpdateStateBtn(int nState, QString strKey)
{
    m_mapStateBtn.insert(strKey, nState);
    View()->viewport()->update();
}

void CLmProjetMgrDelegate::slotAllChecked(Qt::CheckState state)
{
    QAbstractItemModel* pModel = View()->model();
    for (int iRow = 0; iRow < pModel->rowCount(); ++iRow)
        pModel->setData(pModel->index(iRow, CLmProjetMgrItem::ColumnProject), state, Qt::CheckStateRole);
}

QVector<CLmRowButtonDelegate::SButton> CLmProjetMgrDelegate::RowButtons(const QModelIndex& index) const
{
    QVector<SButton> buttons;
    for (EButton button : ButtonsForState(m_mapStateBtn.value(RowId(index), SynchStateInStep))) {
        const SButtonLook& look = ButtonLooks[button];
        buttons.append({look.pszIcon, tr(look.pszToolTip), button});
    }
    return buttons;
}

CLmProjetMgrDelegate::SFlightLogLayout CLmProjetMgrDelegate::FlightLogLayout(const QStyleOptionViewItem& rowOption,
                                                                           const QModelIndex& index) const
{
    SFlightLogLayout layout;
    const auto it = m_mapStateTxt.constFind(RowId(index));
    layout.strCount = it != m_mapStateTxt.constEnd() ? it->strTxt : rowOption.text;
    layout.nState = it != m_mapStateTxt.constEnd() ? it->nState : FlightLogNone;
    if (layout.nState == FlightLogMissing)
        layout.strWord = tr("Click download");
    else if (layout.nState == FlightLogComplete)
        layout.strWord = tr("Complete");
    layout.rects = FlightLogRects(rowOption.rect, QFontMetrics(rowOption.font), layout.strCount, layout.strWord);
    return layout;
}

void CLmProjetMgrDelegate::PaintFlightLogCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                              const QModelIndex& index) const
{
    const SFlightLogLayout layout = FlightLogLayout(rowOption, index);
    pPainter->drawText(layout.rects.rectCount, Qt::AlignCenter, layout.strCount);
    if (layout.strWord.isEmpty())
        return;
    const bool bSelected = rowOption.state & QStyle::State_Selected;
    QFont wordFont = pPainter->font();
    wordFont.setUnderline(layout.nState == FlightLogMissing);
    pPainter->setFont(wordFont);
    if (!bSelected)
        pPainter->setPen(layout.nState == FlightLogMissing ? LinkColor : CompleteColor);
    pPainter->drawText(layout.rects.rectWord, Qt::AlignCenter, layout.strWord);
}

void CLmProjetMgrDelegate::PaintTimeCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                         const QModelIndex& index) const
{
    const QRect& cell = rowOption.rect;
    const int iTextLeft = cell.left() + TextPadding;
    const QRect textRect(iTextLeft, cell.top(), ButtonsLeft(cell, index) - TextPadding - iTextLeft, cell.height());
    DrawItemText(pPainter, textRect, rowOption.text, Qt::AlignLeft | Qt::AlignVCenter);
    PaintButtons(pPainter, rowOption, index);
}

bool CLmProjetMgrDelegate::HandleRelease(const QPoint& pos, QAbstractItemModel* pModel,
                                         const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const QModelIndex rowIndex = index.siblingAtColumn(CLmProjetMgrItem::ColumnProject);
    switch (index.column()) {
    case CLmProjetMgrItem::ColumnProject:
        return ToggleCheckBox(pos, pModel, option.rect, rowIndex);
    case CLmProjetMgrItem::ColumnFlightLog: {
        const SFlightLogLayout layout = FlightLogLayout(RowOption(option, index), index);
        if (layout.nState != FlightLogMissing || !layout.rects.rectWord.contains(pos))
            return false;
        emit signalClickedDownload(rowIndex);
        return true;
    }
    case CLmProjetMgrItem::ColumnCreateTime: {
        const int iAction = ActionAt(pos, option.rect, index);
        if (iAction < 0)
            return false;
        emit(this->*ButtonLooks[iAction].clicked)(rowIndex);
        return true;
    }
    default:
        return false;
    }
}
