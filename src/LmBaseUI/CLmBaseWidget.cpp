#include "CLmBaseWidget.h"

#include <QPainter>
#include <QStyleOption>

CLmBaseWidget::CLmBaseWidget(QWidget* parent)
    : QWidget(parent)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
}

void CLmBaseWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}
