#include "LmProjectFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_LmProjectFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void safeName_data();
    void safeName();
    void uniqueName();
    void uploadArrayRoundTrip_data();
    void uploadArrayRoundTrip();
    void uploadArrayOfMissingFileIsEmpty();
};

void tst_LmProjectFiles::safeName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "Survey A" << "Survey A";
    QTest::newRow("trailing blanks") << "Survey A   " << "Survey A";
    QTest::newRow("slash") << "../../etc/passwd" << "___.._etc_passwd";
    QTest::newRow("backslash") << "..\\..\\Windows" << "___.._Windows";
    QTest::newRow("parent") << ".." << "__";
    QTest::newRow("self") << "." << "_";
    QTest::newRow("hidden") << ".config" << "_config";
    QTest::newRow("inner dots kept") << "v1.2..final" << "v1.2..final";
    QTest::newRow("empty") << "" << "_";
    QTest::newRow("only blanks") << "   " << "_";
    QTest::newRow("control characters") << QStringLiteral("a\nb\tc\x01") << "a_b_c_";
    QTest::newRow("unicode kept") << QStringLiteral("测区 Zürich") << QStringLiteral("测区 Zürich");
}

void tst_LmProjectFiles::safeName()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(SafeProjectName(name), expected);
}

void tst_LmProjectFiles::uniqueName()
{
    QTemporaryDir root;
    QCOMPARE(CreateUniqueFileName(root.path(), QStringLiteral("Alpha")), QStringLiteral("Alpha"));
    QVERIFY(QDir(root.path()).mkdir(QStringLiteral("Alpha")));
    QCOMPARE(CreateUniqueFileName(root.path(), QStringLiteral("Alpha")), QStringLiteral("Alpha(1)"));
    QVERIFY(QDir(root.path()).mkdir(QStringLiteral("Alpha(1)")));
    QFile plainFile(root.filePath(QStringLiteral("Alpha(2)")));
    QVERIFY(plainFile.open(QIODevice::WriteOnly));
    plainFile.close();
    QCOMPARE(CreateUniqueFileName(root.path(), QStringLiteral("Alpha")), QStringLiteral("Alpha(3)"));
}

void tst_LmProjectFiles::uploadArrayRoundTrip_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("form characters") << QByteArray("a=b&c=d+e%20f/?\xfb\xff\xfe", 15);
    QByteArray binary;
    for (int i = 0; i < 70000; ++i)
        binary.append(static_cast<char>(i * 31 % 256));
    QTest::newRow("large binary") << binary;
}

void tst_LmProjectFiles::uploadArrayRoundTrip()
{
    QFETCH(QByteArray, content);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("p.proj"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    const QByteArray text = GetUploadArray(path);
    // Must stand as a form value without escaping.
    for (char c : text)
        QVERIFY2(std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_', text.left(40).constData());
    QCOMPARE(DecodeUploadArray(text), content);
}

void tst_LmProjectFiles::uploadArrayOfMissingFileIsEmpty()
{
    QVERIFY(GetUploadArray(QStringLiteral("/nonexistent/folder/x.proj")).isEmpty());
}

QTEST_GUILESS_MAIN(tst_LmProjectFiles)
#include "tst_LmProjectFiles.moc"
