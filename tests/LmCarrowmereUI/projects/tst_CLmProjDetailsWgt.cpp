#include "CDemoProjectCloud.h"
#include "CFlightWriterThread.h"
#include "CLmProjDetailsWgt.h"
#include "LmProjRowLayout.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int FlightDataColumn = 4;

QString LabelText(const QWidget& page, const char* name)
{
    const auto* pLabel = page.findChild<QLabel*>(QLatin1String(name));
    return pLabel ? pLabel->text() : QStringLiteral("(no %1)").arg(QLatin1String(name));
}

}  // namespace

class tst_CLmProjDetailsWgt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void downloadFromTheMissionTable();
    void projectOnlyInTheCloudShowsWhyNoMission();

private:
    CDemoProjectCloud m_cloud;
    QTemporaryDir m_projectRoot;
};

void tst_CLmProjDetailsWgt::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

// The page lists the flights, and a click on a download mark fetches that
// mission through the writer and counts it as downloaded.
void tst_CLmProjDetailsWgt::downloadFromTheMissionTable()
{
    CLmProjDetailsWgt page;
    CFlightWriterThread writer;
    writer.Serve(&page);
    page.resize(1280, 720);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* pTable = page.findChild<QTableWidget*>(QStringLiteral("m_pTableMission"));
    QVERIFY(pTable);

    page.ShowProject(m_cloud.ProjectId(), QLatin1String(CDemoProjectCloud::ProjectName),
                     m_cloud.WriteProjectFile(m_projectRoot.path()));
    QTRY_COMPARE(pTable->rowCount(), 3);
    QCOMPARE(pTable->item(2, 0)->text(), QStringLiteral("Mission 3"));
    QCOMPARE(LabelText(page, "m_pLabelMissionsCount"), QStringLiteral("8"));
    QCOMPARE(LabelText(page, "m_pLabelFlownCount"), QStringLiteral("3"));
    QCOMPARE(LabelText(page, "m_pLabelDownloadedCount"), QStringLiteral("0"));
    QCOMPARE(page.findChild<QStackedWidget*>(QStringLiteral("m_pStackMissions"))->currentWidget()->objectName(),
             QStringLiteral("m_pPageMissionTable"));

    QSignalSpy handedOn(&page, &CLmProjDetailsWgt::parseJsonArray);
    const QRect cell = pTable->visualRect(pTable->model()->index(2, FlightDataColumn));
    QTest::mouseClick(pTable->viewport(), Qt::LeftButton, Qt::NoModifier,
                      LmProjRowLayout::MarkRect(cell).center());

    QTRY_COMPARE(LabelText(page, "m_pLabelDownloadedCount"), QStringLiteral("1"));
    QCOMPARE(handedOn.count(), 3);
    QCOMPARE(LabelText(page, "m_pLabelStatus"), QStringLiteral("Mission 3 downloaded."));
}

void tst_CLmProjDetailsWgt::projectOnlyInTheCloudShowsWhyNoMission()
{
    CLmProjDetailsWgt page;

    page.ShowProject(m_cloud.ProjectId(), QLatin1String(CDemoProjectCloud::ProjectName), QString());

    QCOMPARE(page.findChild<QStackedWidget*>(QStringLiteral("m_pStackMissions"))->currentWidget()->objectName(),
             QStringLiteral("m_pCardNoMission"));
    QCOMPARE(LabelText(page, "m_pLabelProjLocation"), QStringLiteral("Only in the cloud"));
    QCOMPARE(LabelText(page, "m_pLabelFlownCount"), QStringLiteral("\u2013"));
}

QTEST_MAIN(tst_CLmProjDetailsWgt)
#include "tst_CLmProjDetailsWgt.moc"
