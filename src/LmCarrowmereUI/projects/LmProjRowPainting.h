#pragma once

#include <QFont>
#include <QStyleOptionViewItem>

class QPainter;

// Painting shared by the project manager's delegates and header: the row
// font, the item background without its content, the check box and elided
// text.
namespace LmProjRowPainting {

// base with the family "Microsoft YaHei" where it is installed; elsewhere
// base's family stays.
QFont RowFont(const QFont& base);

// The style's background, selection and focus of the item, without its
// text, icon or check indicator.
void DrawItemBackground(QPainter* pPainter, const QStyleOptionViewItem& option);

// Text colour of the item: the highlighted text colour on a selected row.
QColor TextColor(const QStyleOptionViewItem& option);

// The check box image of a row or the header in the check box place of cell.
void DrawCheckBox(QPainter* pPainter, const QRect& cell, bool bChecked);

// strTxt in rect with the painter's pen and font, elided at the right when
// it does not fit.
void DrawItemText(QPainter* pPainter, const QRect& rect, const QString& strTxt, Qt::Alignment alignment);

}  // namespace LmProjRowPainting
