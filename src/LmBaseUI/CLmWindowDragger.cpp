#include "CLmWindowDragger.h"

#include <QMouseEvent>
#include <QWidget>

CLmWindowDragger::CLmWindowDragger(QWidget* handle)
    : QObject(handle)
    , m_pHandle(handle)
{
    handle->installEventFilter(this);
}

bool CLmWindowDragger::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pHandle)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton) {
            m_bPressed = true;
            m_ptOffset = mouse->globalPos() - m_pHandle->window()->pos();
        }
        break;
    }
    case QEvent::MouseMove:
        if (m_bPressed && (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton))
            m_pHandle->window()->move(static_cast<QMouseEvent*>(event)->globalPos() - m_ptOffset);
        break;
    case QEvent::MouseButtonRelease:
        m_bPressed = false;
        break;
    default:
        break;
    }
    return false;
}
