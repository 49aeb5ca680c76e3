#include "CLmDataBase.h"

#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QtConcurrent/QtConcurrentRun>


class tst_CLmDataBase : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void isSqliteFile_data();
    void isSqliteFile();
    void boundValuesKeepQuotesAsData();
    void readOnlyOpenNeverCreatesFile();
    void objectsInSeveralThreadsDoNotShareConnections();

private:
    QString MakeDatabase(const QString& name, int rows);
    QTemporaryDir m_dir;
};

QString tst_CLmDataBase::MakeDatabase(const QString& name, int rows)
{
    const QString path = m_dir.filePath(name);
    CLmDataBase db(path);
    if (!db.Open())
        qFatal("cannot create %s", qPrintable(path));
    db.Exec(QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY, text TEXT)"));
    db.Exec(QStringLiteral("BEGIN"));
    for (int i = 0; i < rows; ++i)
        db.Exec(QStringLiteral("INSERT INTO t (text) VALUES (?)"), {QString(200, QLatin1Char('x'))});
    db.Exec(QStringLiteral("COMMIT"));
    return path;
}

void tst_CLmDataBase::init()
{
    QVERIFY(m_dir.isValid());
}

void tst_CLmDataBase::isSqliteFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("valid");
    QTest::newRow("complete database") << "complete" << true;
    QTest::newRow("database cut in half") << "truncated" << false;
    QTest::newRow("html error page") << "html" << false;
    QTest::newRow("empty file") << "empty" << false;
    QTest::newRow("missing file") << "missing" << false;
}

void tst_CLmDataBase::isSqliteFile()
{
    QFETCH(QString, kind);
    QFETCH(bool, valid);

    const QString complete = MakeDatabase(kind + QStringLiteral(".db"), 500);
    QString path = complete;
    if (kind == QLatin1String("truncated")) {
        QFile file(complete);
        QVERIFY(file.resize(file.size() / 2));
    } else if (kind == QLatin1String("html") || kind == QLatin1String("empty")) {
        QFile file(complete);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        if (kind == QLatin1String("html"))
            file.write("<html><body>502 Bad Gateway</body></html>");
    } else if (kind == QLatin1String("missing")) {
        path = m_dir.filePath(QStringLiteral("nothing-here.db"));
    }
    QCOMPARE(CLmDataBase::IsSqliteFile(path), valid);
}

void tst_CLmDataBase::boundValuesKeepQuotesAsData()
{
    CLmDataBase db(m_dir.filePath(QStringLiteral("quotes.db")));
    QVERIFY(db.Open());
    QVERIFY(db.Exec(QStringLiteral("CREATE TABLE p (name TEXT)")));
    const QString hostile = QStringLiteral("x'); DROP TABLE p; --");
    QVERIFY(db.Exec(QStringLiteral("INSERT INTO p (name) VALUES (?)"), {hostile}));
    QCOMPARE(db.SelectValue(QStringLiteral("SELECT name FROM p WHERE name = ?"), {hostile}).toString(), hostile);
    QVERIFY(db.TableExists(QStringLiteral("p")));
}

void tst_CLmDataBase::readOnlyOpenNeverCreatesFile()
{
    const QString path = m_dir.filePath(QStringLiteral("absent.db"));
    CLmDataBase db(path);
    QVERIFY(!db.Open(true));
    QVERIFY(!QFile::exists(path));
}

void tst_CLmDataBase::objectsInSeveralThreadsDoNotShareConnections()
{
    const QString path = MakeDatabase(QStringLiteral("shared.db"), 10);
    auto countRows = [path] {
        int total = 0;
        for (int i = 0; i < 20; ++i) {
            CLmDataBase db(path);
            if (!db.Open(true))
                return -1;
            total += db.SelectValue(QStringLiteral("SELECT COUNT(*) FROM t")).toInt();
        }
        return total;
    };
    QFuture<int> first = QtConcurrent::run(countRows);
    QFuture<int> second = QtConcurrent::run(countRows);
    QCOMPARE(first.result(), 200);
    QCOMPARE(second.result(), 200);
}

QTEST_GUILESS_MAIN(tst_CLmDataBase)
#include "tst_CLmDataBase.moc"
