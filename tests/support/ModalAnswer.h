#pragma once

#include <QString>

class QObject;
class QWidget;

// Answers the next modal dialog as a user would: once it is the active modal
// widget, presses the push button with the given object name. Schedule before
// the code that opens the dialog, because exec() does not return until then.
namespace ModalAnswer {

// Presses objectName in the next modal widget (of the given class, when one
// is named); records its texts in *seenText (all labels joined by newlines)
// when seenText is given. Waiting ends at the time-out or when the context
// object is destroyed, so seenText must live as long as the context.
void PressWhenShown(const QString& buttonObjectName, QString* seenText = nullptr, int timeoutMs = 5000,
                    const char* dialogClass = nullptr, QObject* context = nullptr);

// The texts of every QLabel in the widget, joined by newlines.
QString VisibleTexts(const QWidget* widget);

}  // namespace ModalAnswer
