#include "CLmDataBase.h"
#include "LmProjectFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using LmProjectFolder::ERemoval;

Q_DECLARE_METATYPE(ERemoval)

// A store with a project root, a neighbour project and a folder outside the
// root that must survive every removal.
class tst_LmProjectFolder : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void removesOnlyProjectFolders_data();
    void removesOnlyProjectFolders();
    void linksInsideAreRemovedNotFollowed();
    void heldDatabaseStays_data();
    void heldDatabaseStays();

private:
    QString Root() const { return m_dir.path() + QStringLiteral("/Project"); }
    QString Outside() const { return m_dir.path() + QStringLiteral("/outside"); }
    static void WriteDatabase(const QString& filePath);

    QTemporaryDir m_dir;
};

void tst_LmProjectFolder::WriteDatabase(const QString& filePath)
{
    QDir().mkpath(QFileInfo(filePath).absolutePath());
    CLmDataBase db(filePath);
    QVERIFY(db.Open());
    QVERIFY(db.Exec(QStringLiteral("CREATE TABLE project (id TEXT)")));
}

void tst_LmProjectFolder::init()
{
    QVERIFY(m_dir.isValid());
    QDir(m_dir.path()).removeRecursively();
    QDir().mkpath(m_dir.path());
    WriteDatabase(Root() + QStringLiteral("/North/North.proj"));
    WriteDatabase(Root() + QStringLiteral("/South/South.proj"));
    WriteDatabase(Outside() + QStringLiteral("/keep.proj"));
    QVERIFY(QFile::link(Outside(), Root() + QStringLiteral("/LinkOut")));
    QVERIFY(QFile::link(Root() + QStringLiteral("/South"), Root() + QStringLiteral("/LinkSouth")));
    WriteDatabase(Root() + QStringLiteral("/Deep/Inner/Inner.proj"));
}

void tst_LmProjectFolder::removesOnlyProjectFolders_data()
{
    QTest::addColumn<QString>("projectFile");
    QTest::addColumn<ERemoval>("expected");
    QTest::addColumn<QString>("goneFolder");

    QTest::newRow("project folder") << "Project/North/North.proj" << ERemoval::Removed << "Project/North";
    QTest::newRow("file at the root") << "Project/stray.proj" << ERemoval::Refused << "";
    QTest::newRow("folder linked out of the root") << "Project/LinkOut/keep.proj" << ERemoval::Refused << "";
    QTest::newRow("folder linked to a neighbour") << "Project/LinkSouth/South.proj" << ERemoval::Refused << "";
    QTest::newRow("parent steps out of the root") << "Project/../outside/keep.proj" << ERemoval::Refused << "";
    QTest::newRow("deeper than a project folder") << "Project/Deep/Inner/Inner.proj" << ERemoval::Refused << "";
    QTest::newRow("already gone") << "Project/Gone/Gone.proj" << ERemoval::Missing << "";
}

void tst_LmProjectFolder::removesOnlyProjectFolders()
{
    QFETCH(QString, projectFile);
    QFETCH(ERemoval, expected);
    QFETCH(QString, goneFolder);

    QFile(Root() + QStringLiteral("/stray.proj")).open(QIODevice::WriteOnly);
    QCOMPARE(LmProjectFolder::Remove(m_dir.path() + QLatin1Char('/') + projectFile, Root()), expected);

    QVERIFY(QFileInfo::exists(Root()));
    QVERIFY(QFileInfo::exists(Outside() + QStringLiteral("/keep.proj")));
    QVERIFY(QFileInfo::exists(Root() + QStringLiteral("/South/South.proj")));
    QVERIFY(QFileInfo::exists(Root() + QStringLiteral("/Deep/Inner/Inner.proj")));
    if (!goneFolder.isEmpty())
        QVERIFY(!QFileInfo::exists(m_dir.path() + QLatin1Char('/') + goneFolder));
    else
        QVERIFY(QFileInfo::exists(Root() + QStringLiteral("/North/North.proj")));
}

void tst_LmProjectFolder::linksInsideAreRemovedNotFollowed()
{
    QVERIFY(QFile::link(Outside(), Root() + QStringLiteral("/North/maps")));
    QCOMPARE(LmProjectFolder::Remove(Root() + QStringLiteral("/North/North.proj"), Root()), ERemoval::Removed);
    QVERIFY(!QFileInfo::exists(Root() + QStringLiteral("/North")));
    QVERIFY(QFileInfo::exists(Outside() + QStringLiteral("/keep.proj")));
}

void tst_LmProjectFolder::heldDatabaseStays_data()
{
    QTest::addColumn<QString>("transaction");
    QTest::newRow("writer waiting") << "BEGIN IMMEDIATE";
    // An exclusive holder keeps readers out too.
    QTest::newRow("exclusive holder") << "BEGIN EXCLUSIVE";
}

void tst_LmProjectFolder::heldDatabaseStays()
{
    QFETCH(QString, transaction);
    const QString file = Root() + QStringLiteral("/North/North.proj");
    CLmDataBase other(file);
    QVERIFY(other.Open());
    QVERIFY(other.Exec(transaction));
    QVERIFY(LmProjectFolder::IsInUse(file));
    QCOMPARE(LmProjectFolder::Remove(file, Root()), ERemoval::InUse);
    QVERIFY(QFileInfo::exists(file));

    QVERIFY(other.Exec(QStringLiteral("ROLLBACK")));
    QVERIFY(!LmProjectFolder::IsInUse(file));
    QCOMPARE(LmProjectFolder::Remove(file, Root()), ERemoval::Removed);
}

QTEST_GUILESS_MAIN(tst_LmProjectFolder)
#include "tst_LmProjectFolder.moc"
