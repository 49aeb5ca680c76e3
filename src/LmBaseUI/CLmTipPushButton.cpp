#include "CLmTipPushButton.h"

#include <QPainter>

CLmTipPushButton::CLmTipPushButton(QWidget* parent)
    : QPushButton(parent)
{
}

void CLmTipPushButton::SetTipMargin(int right, int top)
{
    m_nTipRight = right;
    m_nTipTop = top;
    update();
}

void CLmTipPushButton::SetTipSize(const QSize& size)
{
    m_sizeTip = size;
    update();
}

void CLmTipPushButton::SetTipVisible(bool bVisible)
{
    m_bTipVisible = bVisible;
    update();
}

bool CLmTipPushButton::IsTipVisible() const
{
    return m_bTipVisible;
}

QRect CLmTipPushButton::TipRect() const
{
    return QRect(QPoint(width() - m_nTipRight - m_sizeTip.width(), m_nTipTop), m_sizeTip);
}

void CLmTipPushButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (!m_bTipVisible)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xe5, 0x39, 0x35));
    painter.drawEllipse(TipRect());
}
