#pragma once

#include "CLmPopupWidget.h"

#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

// A page covering the screen with a filter button on it: popups open under
// the button, and a click far from both lands on the page.
class CPopupTestPage : public QWidget
{
public:
    CPopupTestPage()
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setGeometry(screen()->availableGeometry());
        m_pAnchor = new QPushButton(QStringLiteral("Filter"), this);
        m_pAnchor->setGeometry(40, 40, 80, 30);
        show();
    }

    QPushButton* Anchor() const { return m_pAnchor; }

    bool Open(CLmPopupWidget& popup)
    {
        popup.ShowBelow(m_pAnchor);
        return QTest::qWaitForWindowExposed(this) && QTest::qWaitForWindowExposed(&popup)
            && QApplication::activePopupWidget() == &popup;
    }

    void ClickAway() { QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, rect().bottomRight() - QPoint(10, 10)); }

    static QTestEventList Keys(const QString& typed, std::initializer_list<Qt::Key> keys)
    {
        QTestEventList events;
        events.addKeyClicks(typed);
        for (Qt::Key key : keys)
            events.addKeyClick(key);
        return events;
    }

    // Each key goes where a person's would: to the widget with the focus.
    static void Press(const QTestEventList& keys)
    {
        for (QTestEvent* key : keys)
            key->simulate(QApplication::focusWidget());
    }

    // The first argument of every emission, as text.
    static QStringList Sent(const QSignalSpy& spy)
    {
        QStringList texts;
        for (const QList<QVariant>& arguments : spy)
            texts << arguments.first().toString();
        return texts;
    }

private:
    QPushButton* m_pAnchor = nullptr;
};
