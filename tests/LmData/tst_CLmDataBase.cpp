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
    void foreignFileChecks_data();
    void foreignFileChecks();
    void foreignQueryIsBoundedInTime();
    void foreignFileWritableOnlyAsPrivateCopy_data();
    void foreignFileWritableOnlyAsPrivateCopy();
    void foreignAttachIsChecked();

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

Q_DECLARE_METATYPE(CLmDataBase::EForeignAccess)

namespace {

// Runs for ever while yielding nothing: a view or query built on it never ends.
const char* const kEndlessQuery = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
                                  " SELECT i FROM n WHERE i < 0";

}  // namespace

void tst_CLmDataBase::foreignFileChecks_data()
{
    QTest::addColumn<QStringList>("schema");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("plain tables") << QStringList{"CREATE TABLE project (id TEXT)", "CREATE TABLE task (id TEXT)"}
                                  << true;
    QTest::newRow("endless view in place of a table")
        << QStringList{QStringLiteral("CREATE VIEW project AS %1").arg(QLatin1String(kEndlessQuery)),
                       "CREATE TABLE task (id TEXT)"}
        << false;
    QTest::newRow("virtual table in place of a table")
        << QStringList{"CREATE VIRTUAL TABLE project USING rtree(id, x0, x1)", "CREATE TABLE task (id TEXT)"}
        << false;
    QTest::newRow("trigger on a table") << QStringList{"CREATE TABLE project (id TEXT)", "CREATE TABLE task (id TEXT)",
                                                       "CREATE TRIGGER t AFTER INSERT ON task BEGIN"
                                                       " DELETE FROM project; END"}
                                        << false;
    QTest::newRow("table missing") << QStringList{"CREATE TABLE project (id TEXT)"} << false;
}

void tst_CLmDataBase::foreignFileChecks()
{
    QFETCH(QStringList, schema);
    QFETCH(bool, accepted);

    const QString path = m_dir.filePath(QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".db"));
    {
        CLmDataBase db(path);
        QVERIFY(db.Open());
        for (const QString& statement : schema)
            QVERIFY2(db.Exec(statement), qPrintable(db.LastError()));
    }
    CLmDataBase foreign(path);
    QCOMPARE(foreign.OpenForeign({QStringLiteral("project"), QStringLiteral("task")}), accepted);
    QCOMPARE(foreign.IsOpen(), accepted);
}

void tst_CLmDataBase::foreignQueryIsBoundedInTime()
{
    CLmDataBase foreign(MakeDatabase(QStringLiteral("bounded.db"), 10));
    QVERIFY(foreign.OpenForeign({QStringLiteral("t")}, CLmDataBase::EForeignAccess::ReadOnly, 200));
    QVERIFY(!foreign.Exec(QLatin1String(kEndlessQuery)));
    QVERIFY(foreign.LastError().contains(QLatin1String("too long")));
    // The next statement has a budget of its own.
    QCOMPARE(foreign.SelectValue(QStringLiteral("SELECT count(*) FROM t")).toInt(), 10);
}

void tst_CLmDataBase::foreignFileWritableOnlyAsPrivateCopy_data()
{
    QTest::addColumn<CLmDataBase::EForeignAccess>("access");
    QTest::addColumn<bool>("written");
    QTest::newRow("read only") << CLmDataBase::EForeignAccess::ReadOnly << false;
    QTest::newRow("private copy") << CLmDataBase::EForeignAccess::PrivateCopy << true;
}

void tst_CLmDataBase::foreignFileWritableOnlyAsPrivateCopy()
{
    QFETCH(CLmDataBase::EForeignAccess, access);
    QFETCH(bool, written);

    CLmDataBase foreign(MakeDatabase(QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".db"), 3));
    QVERIFY(foreign.OpenForeign({QStringLiteral("t")}, access));
    QCOMPARE(foreign.Exec(QStringLiteral("UPDATE t SET text = 'stamped'")), written);
}

void tst_CLmDataBase::foreignAttachIsChecked()
{
    auto makeFile = [this](const QString& name, const QString& statement) {
        const QString path = m_dir.filePath(name);
        CLmDataBase db(path);
        if (!db.Open() || !db.Exec(statement))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    };
    const QString main = makeFile(QStringLiteral("main.db"), QStringLiteral("CREATE TABLE project (id)"));
    const QString plain = makeFile(QStringLiteral("plain.db"), QStringLiteral("CREATE TABLE mission (id)"));
    const QString hostile = makeFile(QStringLiteral("hostile.db"),
                                     QStringLiteral("CREATE VIEW mission AS %1").arg(QLatin1String(kEndlessQuery)));
    CLmDataBase db(main);
    QVERIFY(db.OpenForeign({QStringLiteral("project")}));
    QVERIFY(!db.AttachForeign(hostile, QStringLiteral("m"), {QStringLiteral("mission")}));
    QVERIFY(db.AttachForeign(plain, QStringLiteral("m"), {QStringLiteral("mission")}));
    QCOMPARE(db.SelectValue(QStringLiteral("SELECT count(*) FROM m.mission")).toInt(), 0);
}

QTEST_GUILESS_MAIN(tst_CLmDataBase)
#include "tst_CLmDataBase.moc"
