#include "CLmReconnectBackoff.h"

#include <QtTest>

// The waits between reconnection attempts of a lost link.
class tst_CLmReconnectBackoff : public QObject
{
    Q_OBJECT

private slots:
    void delaysDoubleUpToTheCap_data();
    void delaysDoubleUpToTheCap();
    void resetStartsOver();
};

void tst_CLmReconnectBackoff::delaysDoubleUpToTheCap_data()
{
    QTest::addColumn<int>("attempt");
    QTest::addColumn<int>("delayMs");
    QTest::newRow("first") << 1 << 1000;
    QTest::newRow("second") << 2 << 2000;
    QTest::newRow("fifth") << 5 << 16000;
    QTest::newRow("sixth is capped") << 6 << 30000;
    QTest::newRow("stays capped") << 20 << 30000;
}

void tst_CLmReconnectBackoff::delaysDoubleUpToTheCap()
{
    QFETCH(int, attempt);
    QFETCH(int, delayMs);
    CLmReconnectBackoff backoff;
    int delay = 0;
    for (int i = 0; i < attempt; ++i)
        delay = backoff.NextDelayMs();
    QCOMPARE(delay, delayMs);
}

void tst_CLmReconnectBackoff::resetStartsOver()
{
    CLmReconnectBackoff backoff;
    for (int i = 0; i < 8; ++i)
        backoff.NextDelayMs();
    backoff.Reset();
    QCOMPARE(backoff.NextDelayMs(), CLmReconnectBackoff::InitialDelayMs);
}

QTEST_GUILESS_MAIN(tst_CLmReconnectBackoff)
#include "tst_CLmReconnectBackoff.moc"
