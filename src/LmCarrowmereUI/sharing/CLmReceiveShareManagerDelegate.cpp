#include "CLmReceiveShareManagerDelegate.h"

#include "CLmShareManagerController.h"
#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"
#include "LmShareRoles.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>

using namespace LmProjRowLayout;
using namespace LmProjRowPainting;
using Controller = CLmShareManagerController;

namespace {

constexpr char ReceiveImage[] = ":/images/Normal/Home/HomeFile_receive_but_nor.png";
constexpr char RefuseImage[] = ":/images/Normal/Home/HomeFile_Refuse_but_nor.png";
constexpr char MessageImage[] = ":/images/Normal/Home/HomeFile_message_ic.png";
constexpr int ImageGap = 8;

QModelIndex RowIndex(const QModelIndex& index)
{
    return index.siblingAtColumn(CLmReceiveShareManagerDelegate::ColumnProject);
}

}  // namespace

CLmReceiveShareManagerDelegate::CLmReceiveShareManagerDelegate(QAbstractItemView* pView)
    : CLmRowButtonDelegate(pView, ColumnOperation)
{
}

QRect CLmReceiveShareManagerDelegate::ReceiveRect(const QRect& cell)
{
    const int iLeft = cell.left() + (cell.width() - 2 * ButtonWidth - ImageGap) / 2;
    return QRect(iLeft, cell.top() + (cell.height() - ButtonHeight) / 2, ButtonWidth, ButtonHeight);
}

QRect CLmReceiveShareManagerDelegate::RefuseRect(const QRect& cell)
{
    return ReceiveRect(cell).translated(ButtonWidth + ImageGap, 0);
}

void CLmReceiveShareManagerDelegate::PaintCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                               const QModelIndex& index) const
{
    switch (index.column()) {
    case ColumnProject:
        PaintCheckCell(pPainter, rowOption);
        break;
    case ColumnState:
        PaintStateCell(pPainter, rowOption, index);
        break;
    case ColumnOperation:
        PaintButtons(pPainter, rowOption, index);
        break;
    case ColumnMessage:
        PaintMessageCell(pPainter, rowOption);
        break;
    default:
        DrawItemText(pPainter, rowOption.rect.adjusted(TextPadding, 0, -TextPadding, 0), rowOption.text,
                     Qt::AlignCenter);
        break;
    }
}

void CLmReceiveShareManagerDelegate::PaintStateCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                                                    const QModelIndex& index) const
{
    if (IsWaitingReceived(index)) {
        pPainter->drawPixmap(ReceiveRect(rowOption.rect), QPixmap(QLatin1String(ReceiveImage)));
        pPainter->drawPixmap(RefuseRect(rowOption.rect), QPixmap(QLatin1String(RefuseImage)));
        return;
    }
    DrawItemText(pPainter, rowOption.rect.adjusted(TextPadding, 0, -TextPadding, 0),
                 Controller::StateText(RowState(index)), Qt::AlignCenter);
}

void CLmReceiveShareManagerDelegate::PaintMessageCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption) const
{
    const QRect mark = MarkRect(rowOption.rect);
    pPainter->drawPixmap(mark, QPixmap(QLatin1String(MessageImage)));
    const QRect text(mark.right() + 1 + TextPadding, rowOption.rect.top(),
                     rowOption.rect.right() - mark.right() - 2 * TextPadding, rowOption.rect.height());
    DrawItemText(pPainter, text, rowOption.text.isEmpty() ? tr("Message") : rowOption.text,
                 Qt::AlignLeft | Qt::AlignVCenter);
}

bool CLmReceiveShareManagerDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView,
                                               const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (index.column() != ColumnMessage)
        return QStyledItemDelegate::helpEvent(pEvent, pView, option, index);
    const auto messages = RowIndex(index).data(LmShareRole::Messages).value<Controller::MessageList>();
    QToolTip::showText(pEvent->globalPos(), Controller::MessageHistory(messages), pView->viewport());
    return true;
}

bool CLmReceiveShareManagerDelegate::HandleRelease(const QPoint& pos, QAbstractItemModel* pModel,
                                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const QModelIndex rowIndex = RowIndex(index);
    switch (index.column()) {
    case ColumnProject:
        return ToggleCheckBox(pos, pModel, option.rect, rowIndex);
    case ColumnState:
        if (!IsWaitingReceived(index))
            return false;
        if (ReceiveRect(option.rect).contains(pos)) {
            emit signalClickedDownload(rowIndex);
            return true;
        }
        if (RefuseRect(option.rect).contains(pos)) {
            emit signalDeleteBtnClicked(rowIndex);
            return true;
        }
        return false;
    case ColumnOperation:
        switch (ActionAt(pos, option.rect, index)) {
        case ActionAccept:
            emit signalAcceptBtnClicked(rowIndex);
            return true;
        case ActionShare:
            emit signalShareBtnClicked(rowIndex);
            return true;
        case ActionDelete:
            emit signalDeleteBtnClicked(rowIndex);
            return true;
        case ActionMessage:
            emit signalMessageBtnClicked(rowIndex);
            return true;
        default:
            return false;
        }
    case ColumnMessage:
        emit signalMessageBtnClicked(rowIndex);
        return true;
    default:
        return false;
    }
}

void CLmReceiveShareManagerDelegate::slotResetBtn()
{
    m_mapState.clear();
    View()->viewport()->update();
}

void CLmReceiveShareManagerDelegate::slotUpdateStateTxt(int nItenID, int nState)
{
    m_mapState.insert(nItenID, nState);
    View()->viewport()->update();
}

QVector<CLmRowButtonDelegate::SButton> CLmReceiveShareManagerDelegate::RowButtons(const QModelIndex& index) const
{
    const SButton accept{"send_btn", tr("Accept"), ActionAccept};
    const SButton share{"download_btn", tr("Share"), ActionShare};
    const SButton remove{"delete1_btn", tr("Delete"), ActionDelete};
    const SButton message{"message_btn", tr("Message"), ActionMessage};
    if (RowIndex(index).data(LmShareRole::Kind).toString() == Controller::KindName(Controller::KindSent))
        return {share, remove, message};
    if (IsWaitingReceived(index))
        return {accept, remove, message};
    return {remove, message};
}

int CLmReceiveShareManagerDelegate::RowState(const QModelIndex& index) const
{
    const QModelIndex rowIndex = RowIndex(index);
    const qint64 nId = rowIndex.data(LmShareRole::ShareId).toLongLong();
    return m_mapState.value(nId, rowIndex.data(LmShareRole::State).toInt());
}

bool CLmReceiveShareManagerDelegate::IsWaitingReceived(const QModelIndex& index) const
{
    return RowIndex(index).data(LmShareRole::Kind).toString() != Controller::KindName(Controller::KindSent)
           && RowState(index) == Controller::StateWaiting;
}
