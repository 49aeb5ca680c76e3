#pragma once

#include "CLmBaseWidget.h"

#include <QPointer>

class QVBoxLayout;

// Frameless popup card used by the filter pickers: white, rounded, opened
// under the button that asked for it. Like any Qt popup it closes on Escape
// and on a click outside.
class CLmPopupWidget : public CLmBaseWidget
{
    Q_OBJECT

public:
    explicit CLmPopupWidget(QWidget* parent = nullptr);

    // Shows the popup under anchor, or above it when the screen has no room
    // below, always inside the anchor's screen.
    void ShowBelow(QWidget* anchor);

signals:
    // Every close: after a choice, on Escape or on a click outside.
    void WidgetClosed();

protected:
    // The card's layout, with the padding every popup shares.
    QVBoxLayout* CreateCardLayout();

    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QRect AnchorGlobalRect() const;

    QPointer<QWidget> m_pAnchor;
};
