#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

// Moves the window of a frameless widget while the left mouse button is held
// down on a handle widget (usually a title bar). Child of the handle.
class CLmWindowDragger : public QObject
{
    Q_OBJECT

public:
    explicit CLmWindowDragger(QWidget* handle);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_pHandle;
    bool m_bPressed = false;
    QPoint m_ptOffset;  // cursor global position minus window position
};
