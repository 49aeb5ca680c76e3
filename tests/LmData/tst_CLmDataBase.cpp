#include "CLmDataBase.h"

#include <QSqlError>
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
    void foreignFileOpens_data();
    void foreignFileOpens();
    void foreignStatementIsStoppedOverBudget();
    void foreignAttachIsChecked();

private:
    QString MakeDatabase(const QString& name, int rows);
    QString MakeForeignFile(const QString& name, const QStringList& statements);
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

namespace {

// Counts up for ever; only an interrupted statement ends it.
constexpr char EndlessRows[] = "WITH RECURSIVE r(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM r) SELECT x FROM r";

}  // namespace

QString tst_CLmDataBase::MakeForeignFile(const QString& name, const QStringList& statements)
{
    const QString path = m_dir.filePath(name);
    CLmDataBase db(path);
    if (!db.Open())
        qFatal("cannot create %s", qPrintable(path));
    for (const QString& statement : statements)
        if (!db.Exec(statement))
            qFatal("cannot run %s", qPrintable(statement));
    return path;
}

void tst_CLmDataBase::foreignFileOpens_data()
{
    const QString table = QStringLiteral("CREATE TABLE project (id TEXT, name TEXT)");
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<bool>("opens");
    QTest::newRow("plain tables") << QStringList{table, QStringLiteral("CREATE TABLE other (x)")} << true;
    QTest::newRow("expected table missing") << QStringList{QStringLiteral("CREATE TABLE other (x)")} << true;
    QTest::newRow("unrelated view") << QStringList{table, QStringLiteral("CREATE VIEW v AS SELECT 1")} << true;
    QTest::newRow("expected table is an endless view")
        << QStringList{QStringLiteral("CREATE VIEW project AS ") + QLatin1String(EndlessRows)} << false;
    QTest::newRow("expected table named in other case is a view")
        << QStringList{QStringLiteral("CREATE VIEW PROJECT AS SELECT 1 AS id")} << false;
    QTest::newRow("trigger on an unrelated table")
        << QStringList{table, QStringLiteral("CREATE TABLE other (x)"),
                       QStringLiteral("CREATE TRIGGER t AFTER INSERT ON other BEGIN DELETE FROM project; END")}
        << false;
}

void tst_CLmDataBase::foreignFileOpens()
{
    QFETCH(QStringList, statements);
    QFETCH(bool, opens);
    const QString path = MakeForeignFile(QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".db"),
                                         statements);
    CLmDataBase db(path);
    QCOMPARE(db.OpenForeign({QStringLiteral("project")}), opens);
    QCOMPARE(db.IsOpen(), opens);
    CLmDataBase writer(path);
    QCOMPARE(writer.OpenForeignForWriting({QStringLiteral("project")}), opens);
    if (!opens)
        return;
    QVERIFY2(!db.Exec(QStringLiteral("CREATE TABLE written (x)")), "a file opened for reading is never written");
    QVERIFY(writer.Exec(QStringLiteral("CREATE TABLE written (x)")));
}

void tst_CLmDataBase::foreignStatementIsStoppedOverBudget()
{
    const QString path = MakeForeignFile(QStringLiteral("budget.db"), {QStringLiteral("CREATE TABLE project (id)")});
    CLmDataBase db(path);
    QVERIFY(db.OpenForeign({QStringLiteral("project")}, 50));
    QVERIFY(!db.Exec(QStringLiteral("SELECT count(*) FROM (%1)").arg(QLatin1String(EndlessRows))));
    QSqlQuery rows(db.Database());
    QVERIFY(rows.exec(QLatin1String(EndlessRows)));
    while (rows.next()) {
    }
    QVERIFY2(rows.lastError().isValid(), "a statement run past the connection's helper is bounded as well");
    QCOMPARE(db.SelectValue(QStringLiteral("SELECT count(*) FROM project")).toInt(), 0);
}

void tst_CLmDataBase::foreignAttachIsChecked()
{
    const QString main = MakeForeignFile(QStringLiteral("main.db"), {QStringLiteral("CREATE TABLE project (id)")});
    const QString plain = MakeForeignFile(QStringLiteral("plain.db"), {QStringLiteral("CREATE TABLE mission (id)")});
    const QString hostile = MakeForeignFile(QStringLiteral("hostile.db"),
        {QStringLiteral("CREATE VIEW mission AS ") + QLatin1String(EndlessRows)});
    CLmDataBase db(main);
    QVERIFY(db.OpenForeign({QStringLiteral("project")}));
    QVERIFY(!db.AttachForeign(hostile, QStringLiteral("m"), {QStringLiteral("mission")}));
    QVERIFY(db.AttachForeign(plain, QStringLiteral("m"), {QStringLiteral("mission")}));
    QCOMPARE(db.SelectValue(QStringLiteral("SELECT count(*) FROM m.mission")).toInt(), 0);
}

QTEST_GUILESS_MAIN(tst_CLmDataBase)
#include "tst_CLmDataBase.moc"
