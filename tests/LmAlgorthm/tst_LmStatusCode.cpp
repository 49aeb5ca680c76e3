#include "LmStatusCode.h"

#include <QTest>

// The status page warns of a failed battery self-check (7) and low power
// (45, 46) from these codes: a bit read from the wrong word or report hides
// a warning or raises a false one.
class tst_LmStatusCode : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void codesFromBits_data();
    void codesFromBits();
};

void tst_LmStatusCode::codesFromBits_data()
{
    QTest::addColumn<int>("codeNum");
    QTest::addColumn<quint32>("code0");
    QTest::addColumn<quint32>("code1");
    QTest::addColumn<QList<int>>("codes");

    QTest::newRow("healthy") << 0 << 0u << 0u << QList<int>{};
    QTest::newRow("battery self-check") << 0 << (1u << 7) << 0u << QList<int>{7};
    QTest::newRow("low and ultra-low power") << 0 << 0u << ((1u << 13) | (1u << 14)) << QList<int>{45, 46};
    QTest::newRow("all three, ascending") << 0 << (1u << 7) << ((1u << 14) | (1u << 13)) << QList<int>{7, 45, 46};
    QTest::newRow("word edges") << 0 << ((1u << 0) | (1u << 31)) << ((1u << 0) | (1u << 31))
                                << QList<int>{0, 31, 32, 63};
    QTest::newRow("second report") << 1 << (1u << 7) << (1u << 13) << QList<int>{71, 109};
    QTest::newRow("last report, every bit") << 255 << 0xFFFFFFFFu << 0u << [] {
        QList<int> codes;
        for (int code = 255 * 64; code < 255 * 64 + 32; ++code)
            codes << code;
        return codes;
    }();
}

void tst_LmStatusCode::codesFromBits()
{
    QFETCH(int, codeNum);
    QFETCH(quint32, code0);
    QFETCH(quint32, code1);
    QFETCH(QList<int>, codes);
    QCOMPARE(ParseStatusCodeSum(quint8(codeNum), code0, code1), codes);
}

QTEST_GUILESS_MAIN(tst_LmStatusCode)
#include "tst_LmStatusCode.moc"
