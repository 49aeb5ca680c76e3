#include "LmProjRowPainting.h"

#include "LmProjRowLayout.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPixmap>
#include <QStyle>

namespace LmProjRowPainting {

QFont RowFont(const QFont& base)
{
    static const bool bHasYaHei = QFontDatabase().families().contains(QStringLiteral("Microsoft YaHei"));
    QFont font(base);
    if (bHasYaHei)
        font.setFamily(QStringLiteral("Microsoft YaHei"));
    return font;
}

void DrawItemBackground(QPainter* pPainter, const QStyleOptionViewItem& option)
{
    QStyleOptionViewItem background(option);
    background.text.clear();
    background.icon = QIcon();
    background.features &= ~(QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration
                             | QStyleOptionViewItem::HasCheckIndicator);
    const QStyle* pStyle = option.widget ? option.widget->style() : QApplication::style();
    pStyle->drawControl(QStyle::CE_ItemViewItem, &background, pPainter, option.widget);
}

QColor TextColor(const QStyleOptionViewItem& option)
{
    const QPalette::ColorGroup group = option.state & QStyle::State_Enabled ? QPalette::Normal : QPalette::Disabled;
    const QPalette::ColorRole role = option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;
    return option.palette.color(group, role);
}

void DrawCheckBox(QPainter* pPainter, const QRect& cell, bool bChecked)
{
    const QString strImage = bChecked ? QStringLiteral(":/images/Normal/ProjMgr/Check_box_pre.png")
                                      : QStringLiteral(":/images/Normal/ProjMgr/Check_box_nor.png");
    pPainter->drawPixmap(LmProjRowLayout::CheckBoxRect(cell), QPixmap(strImage));
}

void DrawItemText(QPainter* pPainter, const QRect& rect, const QString& strTxt, Qt::Alignment alignment)
{
    const QString strShown = QFontMetrics(pPainter->font()).elidedText(strTxt, Qt::ElideRight, rect.width());
    pPainter->drawText(rect, static_cast<int>(alignment | Qt::TextSingleLine), strShown);
}

}  // namespace LmProjRowPainting
