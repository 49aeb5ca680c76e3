#pragma once

#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <QWidget>

#include <functional>

// Runs action on the next modal widget once it is shown, from inside its own
// event loop. Schedule before the call to exec().
inline void WhenModalShown(std::function<void(QWidget*)> action, QDeadlineTimer deadline = QDeadlineTimer(5000))
{
    QTimer::singleShot(10, [action, deadline] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal->isVisible())
            action(modal);
        else if (!deadline.hasExpired())
            WhenModalShown(action, deadline);
    });
}
