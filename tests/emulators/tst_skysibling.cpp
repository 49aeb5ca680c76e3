#include <QProcess>
#include <QTest>

// skysibling stands in for the programs the hub launches; what it shows must
// be exactly what it was given, or a launcher fault would go unseen.
class tst_skysibling : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsWhatItWasGiven_data();
    void showsWhatItWasGiven();
};

void tst_skysibling::showsWhatItWasGiven_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("firstLine");
    QTest::newRow("attached") << QStringList{"VireoPlan", "{key}", "http://127.0.0.1:1"}
                              << "skysibling skysibling: key: VireoPlan; launch key: {key}; "
                                 "server address: http://127.0.0.1:1";
    QTest::newRow("detached") << QStringList{"{key}"} << "skysibling skysibling: launch key: {key}";
    QTest::newRow("viewer") << QStringList{} << "skysibling skysibling: no arguments";
}

void tst_skysibling::showsWhatItWasGiven()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, firstLine);
    QProcess sibling;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("SKYSIBLING_QUIT_AFTER_MS"), QStringLiteral("1"));
    sibling.setProcessEnvironment(environment);
    sibling.start(QStringLiteral(SKYSIBLING_PATH), arguments);
    QVERIFY(sibling.waitForFinished(20000));
    QCOMPARE(sibling.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(sibling.readAllStandardOutput()).section(QLatin1Char('\n'), 0, 0), firstLine);
}

QTEST_GUILESS_MAIN(tst_skysibling)
#include "tst_skysibling.moc"
