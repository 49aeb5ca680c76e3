#pragma once

#include <QRect>
#include <QVector>

class QFontMetrics;

// Geometry of the painted parts of the project manager's rows, header and
// mission table. Painting and hit-testing both ask these functions, so a
// click always lands on what is drawn.
namespace LmProjRowLayout {

enum EButton { ButtonShare, ButtonDelete, ButtonDownload, ButtonDetails, ButtonOpen };

constexpr int ButtonWidth = 24;
constexpr int ButtonHeight = 24;
constexpr int ButtonSpacing = 5;
constexpr int ButtonRightMargin = 20;
constexpr int CheckBoxSize = 16;
constexpr int CheckBoxLeft = 8;
constexpr int TextPadding = 8;
constexpr int MarkSize = 16;

// Buttons of a row in its synchronisation state, left to right. A state
// without its own set (not reported yet, or unknown) gets the in-step set.
QVector<EButton> ButtonsForState(int iSynchState);

// The k-th button counted from the right (k = 0 is the rightmost). The 20 px
// margin lies between the cell's right edge and the rightmost button, so the
// right edge of button k (first pixel past it) is cell right - 20 - 29 k.
QRect ButtonRect(const QRect& cell, int k);

// Index into buttons of the button under pos, or -1 over a gap or no button.
int ButtonAt(const QRect& cell, int iButtonCount, const QPoint& pos);

// Left edge of the leftmost of iButtonCount buttons; text must end before it.
int ButtonsLeft(const QRect& cell, int iButtonCount);

// The row check box: 16 x 16, 8 px from the cell's left edge, centred
// vertically. It is also the area a click toggles. The header's check-all box
// uses the same place, so it lines up with the rows' boxes.
QRect CheckBoxRect(const QRect& cell);

// Where a row's name or the header's title starts, right of the check box.
QRect TextAfterCheckBox(const QRect& cell);

// The flight-log column: the count text and the state word after it, the
// pair centred in the cell. Either text may be empty.
struct SFlightLogRects
{
    QRect rectCount;
    QRect rectWord;
};
SFlightLogRects FlightLogRects(const QRect& cell, const QFontMetrics& metrics, const QString& strCount,
                               const QString& strWord);

// The mission table's 16 x 16 download mark, 8 px from the cell's left edge.
QRect MarkRect(const QRect& cell);

}  // namespace LmProjRowLayout
