#include "CLmRowButtonDelegate.h"

#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>

namespace {

// Rows are tall enough for the buttons with 8 px above and below.
constexpr int MinRowHeight = LmProjRowLayout::ButtonHeight + 16;

QString ButtonImage(const CLmRowButtonDelegate::SButton& button, bool bHovered)
{
    return QStringLiteral(":/images/Normal/ProjMgr/") + QLatin1String(button.pszImage)
           + (bHovered ? QStringLiteral("_hovpre.png") : QStringLiteral("_nor.png"));
}

}  // namespace

CLmRowButtonDelegate::CLmRowButtonDelegate(QAbstractItemView* pView, int iButtonColumn)
    : QStyledItemDelegate(pView)
    , m_pView(pView)
    , m_iButtonColumn(iButtonColumn)
    , m_ptMouse(-1, -1)
{
    pView->setMouseTracking(true);
    pView->viewport()->setAttribute(Qt::WA_Hover);
}

void CLmRowButtonDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    const QStyleOptionViewItem rowOption = RowOption(option, index);
    LmProjRowPainting::DrawItemBackground(pPainter, rowOption);
    pPainter->save();
    pPainter->setFont(rowOption.font);
    pPainter->setPen(LmProjRowPainting::TextColor(rowOption));
    PaintCell(pPainter, rowOption, index);
    pPainter->restore();
}

QSize CLmRowButtonDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), MinRowHeight));
    return size;
}

bool CLmRowButtonDelegate::editorEvent(QEvent* pEvent, QAbstractItemModel* pModel,
                                       const QStyleOptionViewItem& option, const QModelIndex& index)
{
    switch (pEvent->type()) {
    case QEvent::MouseMove:
        TrackMouse(static_cast<QMouseEvent*>(pEvent), option, index);
        return false;
    case QEvent::MouseButtonRelease: {
        const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
        return pMouse->button() == Qt::LeftButton && HandleRelease(pMouse->pos(), pModel, option, index);
    }
    default:
        return false;
    }
}

QStyleOptionViewItem CLmRowButtonDelegate::RowOption(const QStyleOptionViewItem& option,
                                                     const QModelIndex& index) const
{
    QStyleOptionViewItem rowOption(option);
    initStyleOption(&rowOption, index);
    rowOption.font = LmProjRowPainting::RowFont(rowOption.font);
    return rowOption;
}

void CLmRowButtonDelegate::PaintCheckCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption) const
{
    LmProjRowPainting::DrawCheckBox(pPainter, rowOption.rect, rowOption.checkState == Qt::Checked);
    LmProjRowPainting::DrawItemText(pPainter, LmProjRowLayout::TextAfterCheckBox(rowOption.rect), rowOption.text,
                                    Qt::AlignLeft | Qt::AlignVCenter);
}

bool CLmRowButtonDelegate::ToggleCheckBox(const QPoint& pos, QAbstractItemModel* pModel, const QRect& cell,
                                          const QModelIndex& rowIndex)
{
    if (!LmProjRowLayout::CheckBoxRect(cell).contains(pos))
        return false;
    const bool bChecked = rowIndex.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    pModel->setData(rowIndex, bChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    emit signalChecked(rowIndex);
    return true;
}

void CLmRowButtonDelegate::PaintButtons(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                        const QModelIndex& index) const
{
    const QVector<SButton> buttons = RowButtons(index);
    const bool bRowHovered = rowOption.state & QStyle::State_MouseOver;
    for (int i = 0; i < buttons.size(); ++i) {
        const QRect rect = LmProjRowLayout::ButtonRect(rowOption.rect, buttons.size() - 1 - i);
        pPainter->drawPixmap(rect, QPixmap(ButtonImage(buttons.at(i), bRowHovered && rect.contains(m_ptMouse))));
    }
}

int CLmRowButtonDelegate::ButtonsLeft(const QRect& cell, const QModelIndex& index) const
{
    return LmProjRowLayout::ButtonsLeft(cell, RowButtons(index).size());
}

int CLmRowButtonDelegate::ActionAt(const QPoint& pos, const QRect& cell, const QModelIndex& index) const
{
    if (index.column() != m_iButtonColumn)
        return -1;
    const QVector<SButton> buttons = RowButtons(index);
    const int iButton = LmProjRowLayout::ButtonAt(cell, buttons.size(), pos);
    return iButton < 0 ? -1 : buttons.at(iButton).nAction;
}

void CLmRowButtonDelegate::TrackMouse(const QMouseEvent* pEvent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index)
{
    m_ptMouse = pEvent->pos();
    QString strTip;
    if (index.column() == m_iButtonColumn) {
        const QVector<SButton> buttons = RowButtons(index);
        const int iButton = LmProjRowLayout::ButtonAt(option.rect, buttons.size(), m_ptMouse);
        if (iButton >= 0)
            strTip = buttons.at(iButton).strToolTip;
    }
    QToolTip::showText(pEvent->globalPos(), strTip, m_pView->viewport());
    RepaintRow(option.rect);
}

void CLmRowButtonDelegate::RepaintRow(const QRect& cell) const
{
    m_pView->viewport()->update(QRect(0, cell.top(), m_pView->viewport()->width(), cell.height()));
}

QAbstractItemView* CLmRowButtonDelegate::View() const
{
    return m_pView;
}
