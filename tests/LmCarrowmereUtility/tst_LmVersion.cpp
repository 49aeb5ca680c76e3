#include "LmVersion.h"

#include <QtTest>

// Release versions are compared number by number, never as text.
class tst_LmVersion : public QObject
{
    Q_OBJECT

private slots:
    void isNewer_data();
    void isNewer();
};

void tst_LmVersion::isNewer_data()
{
    QTest::addColumn<QString>("candidate");
    QTest::addColumn<QString>("current");
    QTest::addColumn<bool>("newer");

    QTest::newRow("1.10 after 1.9") << "1.10" << "1.9" << true;
    QTest::newRow("1.9 not after 1.10") << "1.9" << "1.10" << false;
    QTest::newRow("patch level") << "0.1.1" << "0.1.0" << true;
    QTest::newRow("same") << "2.1.0" << "2.1.0" << false;
    QTest::newRow("trailing zero is the same") << "1.2.0" << "1.2" << false;
    QTest::newRow("major wins over minor") << "2.0" << "1.99.99" << true;
    QTest::newRow("anything after nothing held") << "2.1.0" << "0" << true;
    QTest::newRow("unparsable candidate") << "beta" << "0.1.0" << false;
    QTest::newRow("empty candidate") << "" << "0.1.0" << false;
    QTest::newRow("spaces around") << " 0.2.0 " << "0.1.0" << true;
}

void tst_LmVersion::isNewer()
{
    QFETCH(QString, candidate);
    QFETCH(QString, current);
    QFETCH(bool, newer);
    QCOMPARE(LmVersion::IsNewer(candidate, current), newer);
}

QTEST_GUILESS_MAIN(tst_LmVersion)
#include "tst_LmVersion.moc"
