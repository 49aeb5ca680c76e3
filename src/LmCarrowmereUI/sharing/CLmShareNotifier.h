#pragma once

#include <QObject>

// Tells the main window that a share message arrived for the signed-in user.
// The sharing pages raise it; the window lights its message icon.
class CLmShareNotifier : public QObject
{
    Q_OBJECT
public:
    static CLmShareNotifier* Instance();

Q_SIGNALS:
    void ShareMessageArrived();

private:
    CLmShareNotifier() = default;
};
