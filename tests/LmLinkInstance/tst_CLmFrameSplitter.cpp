#include "CLmFrameSplitter.h"

#include <QTest>

// The push channel's frames reach the notice handling only whole; a frame
// cut at a read boundary or a peer that never ends one must not lose or
// merge notifications.
class tst_CLmFrameSplitter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void wholeFramesOnly_data();
    void wholeFramesOnly();
};

namespace {

const QByteArray Oversized(CLmFrameSplitter::MaxPendingBytes + 1, 'x');

}  // namespace

// Rows: the chunks as read, what each read hands on.
void tst_CLmFrameSplitter::wholeFramesOnly_data()
{
    QTest::addColumn<QByteArrayList>("chunks");
    QTest::addColumn<QByteArrayList>("frames");
    QTest::newRow("one frame") << QByteArrayList{"aEND"} << QByteArrayList{"aEND"};
    QTest::newRow("delimiter cut in two") << QByteArrayList{"aEN", "Db"} << QByteArrayList{"", "aEND"};
    QTest::newRow("delimiter cut in three") << QByteArrayList{"aE", "N", "DbEND"} << QByteArrayList{"", "", "aENDbEND"};
    QTest::newRow("two frames and a start")
        << QByteArrayList{"aENDbENDc", "END"} << QByteArrayList{"aENDbEND", "cEND"};
    QTest::newRow("oversized frame dropped, the next kept")
        << QByteArrayList{Oversized, "tailEND", "nextEND"} << QByteArrayList{"", "", "nextEND"};
    QTest::newRow("delimiter cut where an oversized frame is dropped")
        << QByteArrayList{Oversized + "EN", "DnextEND"} << QByteArrayList{"", "nextEND"};
    QTest::newRow("frames after the dropped one in the same read")
        << QByteArrayList{Oversized, "tailENDaENDb"} << QByteArrayList{"", "aEND"};
}

void tst_CLmFrameSplitter::wholeFramesOnly()
{
    QFETCH(QByteArrayList, chunks);
    QFETCH(QByteArrayList, frames);
    CLmFrameSplitter splitter("END");
    for (int i = 0; i < chunks.size(); ++i)
        QCOMPARE(splitter.Take(chunks.at(i)), frames.at(i));
}

QTEST_GUILESS_MAIN(tst_CLmFrameSplitter)
#include "tst_CLmFrameSplitter.moc"
