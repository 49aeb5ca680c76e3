#include "ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace ModalAnswer {

QString VisibleTexts(const QWidget* widget)
{
    QStringList texts;
    for (const QLabel* label : widget->findChildren<QLabel*>()) {
        if (!label->text().isEmpty())
            texts << label->text();
    }
    return texts.join(QLatin1Char('\n'));
}

namespace {

void PollForModal(const QString& buttonObjectName, QString* seenText, QDeadlineTimer deadline,
                  const char* dialogClass, QObject* context)
{
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && dialogClass && !modal->inherits(dialogClass))
        modal = nullptr;
    QAbstractButton* button = modal ? modal->findChild<QAbstractButton*>(buttonObjectName) : nullptr;
    if (button && button->isVisible()) {
        if (seenText)
            *seenText = VisibleTexts(modal);
        button->click();
        return;
    }
    if (deadline.hasExpired())
        return;
    QTimer::singleShot(10, context, [=] { PollForModal(buttonObjectName, seenText, deadline, dialogClass, context); });
}

}  // namespace

void PressWhenShown(const QString& buttonObjectName, QString* seenText, int timeoutMs, const char* dialogClass,
                    QObject* context)
{
    const QDeadlineTimer deadline(timeoutMs);
    if (!context)
        context = qApp;
    QTimer::singleShot(0, context, [=] { PollForModal(buttonObjectName, seenText, deadline, dialogClass, context); });
}

}  // namespace ModalAnswer
