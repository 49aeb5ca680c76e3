#include "CLmPopupWidget.h"

#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace {

const char* const kPopupStyle =
    "CLmPopupWidget { background: #ffffff; border: 1px solid #d5dce6; border-radius: 10px; }"
    "CLmPopupWidget QLabel { color: #24324a; }";

const int kCardPadding = 8;

// Room between the anchor and the card.
const int kAnchorGap = 4;

QPoint PlaceNextToAnchor(const QRect& anchor, const QSize& size, const QRect& screenArea)
{
    int y = anchor.bottom() + 1 + kAnchorGap;
    if (y + size.height() > screenArea.bottom() + 1)
        y = anchor.top() - kAnchorGap - size.height();
    const int x = qBound(screenArea.left(), anchor.left(), screenArea.right() + 1 - size.width());
    return {x, qMax(y, screenArea.top())};
}

}  // namespace

CLmPopupWidget::CLmPopupWidget(QWidget* parent)
    : CLmBaseWidget(parent)
{
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
    // Lets the rounded corners show what is behind the card.
    setAttribute(Qt::WA_TranslucentBackground);
    setStyleSheet(QString::fromLatin1(kPopupStyle));
}

void CLmPopupWidget::ShowBelow(QWidget* anchor)
{
    m_pAnchor = anchor;
    adjustSize();
    move(PlaceNextToAnchor(AnchorGlobalRect(), size(), anchor->screen()->availableGeometry()));
    show();
}

QVBoxLayout* CLmPopupWidget::CreateCardLayout()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kCardPadding, kCardPadding, kCardPadding, kCardPadding);
    layout->setSpacing(kCardPadding);
    return layout;
}

QRect CLmPopupWidget::AnchorGlobalRect() const
{
    return QRect(m_pAnchor->mapToGlobal(QPoint(0, 0)), m_pAnchor->size());
}

void CLmPopupWidget::hideEvent(QHideEvent* event)
{
    CLmBaseWidget::hideEvent(event);
    emit WidgetClosed();
}

// A click on the anchor closes the popup like any click outside, but must not
// be replayed to the anchor afterwards: its handler would open the popup again.
void CLmPopupWidget::mousePressEvent(QMouseEvent* event)
{
    if (m_pAnchor && AnchorGlobalRect().contains(event->globalPos()))
        setAttribute(Qt::WA_NoMouseReplay);
    CLmBaseWidget::mousePressEvent(event);
}
