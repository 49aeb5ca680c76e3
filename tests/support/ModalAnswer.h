#pragma once

#include <QString>

#include <functional>

class QObject;
class QWidget;

// Answers the next modal dialog as a user would, from inside the dialog's own
// event loop: once it is the active modal widget, a button is pressed or an
// action runs on it. Schedule before the code that opens the dialog, because
// exec() does not return until then.
//
// dialogClass, when not null, skips modal widgets of other classes. Waiting
// ends at the time-out or when the context object (the application when
// none is given) is destroyed, so whatever the answer writes to must live as
// long as the context.
namespace ModalAnswer {

// Presses buttonObjectName in the next modal widget that shows it; records
// the widget's texts in *seenText (all labels joined by newlines) when
// seenText is given.
void PressWhenShown(const QString& buttonObjectName, QString* seenText = nullptr, int timeoutMs = 5000,
                    const char* dialogClass = nullptr, QObject* context = nullptr);

// Runs action on the next visible modal widget. A dialog the action leaves
// open is closed a while later, so a failing test ends instead of waiting in
// exec().
void RunWhenShown(const char* dialogClass, const std::function<void(QWidget*)>& action, int timeoutMs = 5000,
                  QObject* context = nullptr);

// The texts of every QLabel in the widget, joined by newlines.
QString VisibleTexts(const QWidget* widget);

}  // namespace ModalAnswer
