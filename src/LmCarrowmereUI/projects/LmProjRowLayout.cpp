#include "LmProjRowLayout.h"

#include "LmProjSynchTypes.h"

#include <QFontMetrics>

namespace LmProjRowLayout {

namespace {

QRect SquareLeftAligned(const QRect& cell, int iLeft, int iSize)
{
    return QRect(cell.left() + iLeft, cell.top() + (cell.height() - iSize) / 2, iSize, iSize);
}

}  // namespace

QVector<EButton> ButtonsForState(int iSynchState)
{
    switch (iSynchState) {
    case SynchStateNeedDownload:
        return {ButtonShare, ButtonDelete, ButtonDownload, ButtonDetails, ButtonOpen};
    case SynchStateCloudOnly:
        return {ButtonShare, ButtonDownload};
    default:
        return {ButtonShare, ButtonDelete, ButtonDetails, ButtonOpen};
    }
}

QRect ButtonRect(const QRect& cell, int k)
{
    const int iCellEnd = cell.left() + cell.width();
    const int iButtonEnd = iCellEnd - ButtonRightMargin - (ButtonWidth + ButtonSpacing) * k;
    return QRect(iButtonEnd - ButtonWidth, cell.top() + (cell.height() - ButtonHeight) / 2, ButtonWidth,
                 ButtonHeight);
}

int ButtonAt(const QRect& cell, int iButtonCount, const QPoint& pos)
{
    for (int k = 0; k < iButtonCount; ++k) {
        if (ButtonRect(cell, k).contains(pos))
            return iButtonCount - 1 - k;
    }
    return -1;
}

int ButtonsLeft(const QRect& cell, int iButtonCount)
{
    return iButtonCount > 0 ? ButtonRect(cell, iButtonCount - 1).left() : cell.left() + cell.width();
}

QRect CheckBoxRect(const QRect& cell)
{
    return SquareLeftAligned(cell, CheckBoxLeft, CheckBoxSize);
}

QRect TextAfterCheckBox(const QRect& cell)
{
    const int iLeft = CheckBoxRect(cell).right() + 1 + TextPadding;
    return QRect(iLeft, cell.top(), cell.left() + cell.width() - TextPadding - iLeft, cell.height());
}

SFlightLogRects FlightLogRects(const QRect& cell, const QFontMetrics& metrics, const QString& strCount,
                               const QString& strWord)
{
    const int iCountWidth = metrics.horizontalAdvance(strCount);
    const int iWordWidth = metrics.horizontalAdvance(strWord);
    const int iGap = !strCount.isEmpty() && !strWord.isEmpty() ? TextPadding : 0;
    const int iLeft = cell.left() + (cell.width() - iCountWidth - iGap - iWordWidth) / 2;
    const int iHeight = metrics.height();
    const int iTop = cell.top() + (cell.height() - iHeight) / 2;
    return {QRect(iLeft, iTop, iCountWidth, iHeight), QRect(iLeft + iCountWidth + iGap, iTop, iWordWidth, iHeight)};
}

QRect MarkRect(const QRect& cell)
{
    return SquareLeftAligned(cell, TextPadding, MarkSize);
}

}  // namespace LmProjRowLayout
