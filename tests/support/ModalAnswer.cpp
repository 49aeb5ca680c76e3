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

// Answers the modal widget and returns true, or returns false when the
// widget is not ready for this answer yet.
using Answer = std::function<bool(QWidget*)>;

constexpr int kPollIntervalMs = 10;
constexpr int kLeftOpenMs = 15000;

QWidget* VisibleModal(const char* dialogClass)
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible() || (dialogClass && !modal->inherits(dialogClass)))
        return nullptr;
    return modal;
}

void Poll(const Answer& answer, const char* dialogClass, QDeadlineTimer deadline, QObject* context)
{
    QWidget* modal = VisibleModal(dialogClass);
    if ((modal && answer(modal)) || deadline.hasExpired())
        return;
    QTimer::singleShot(kPollIntervalMs, context, [=] { Poll(answer, dialogClass, deadline, context); });
}

void AnswerWhenShown(const Answer& answer, const char* dialogClass, int timeoutMs, QObject* context)
{
    const QDeadlineTimer deadline(timeoutMs);
    if (!context)
        context = qApp;
    QTimer::singleShot(0, context, [=] { Poll(answer, dialogClass, deadline, context); });
}

}  // namespace

void PressWhenShown(const QString& buttonObjectName, QString* seenText, int timeoutMs, const char* dialogClass,
                    QObject* context)
{
    const Answer press = [buttonObjectName, seenText](QWidget* modal) {
        QAbstractButton* button = modal->findChild<QAbstractButton*>(buttonObjectName);
        if (!button || !button->isVisible())
            return false;
        if (seenText)
            *seenText = VisibleTexts(modal);
        button->click();
        return true;
    };
    AnswerWhenShown(press, dialogClass, timeoutMs, context);
}

void RunWhenShown(const char* dialogClass, const std::function<void(QWidget*)>& action, int timeoutMs,
                  QObject* context)
{
    const Answer run = [action](QWidget* modal) {
        QTimer::singleShot(kLeftOpenMs, modal, [modal] { modal->close(); });
        action(modal);
        return true;
    };
    AnswerWhenShown(run, dialogClass, timeoutMs, context);
}

}  // namespace ModalAnswer
