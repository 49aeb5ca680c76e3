#include "CLmControl.h"
#include "CLmProjMgrWgt.h"
#include "CLmProjetMgrItem.h"
#include "CSkyCloudProcess.h"
#include "LmProjRowLayout.h"
#include "ModalAnswer.h"
#include "ProjectTestHelpers.h"

#include <QApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QtTest>

using namespace ProjectTestHelpers;

namespace {

const QString LocalOnlyId = QStringLiteral("3f2a9c1e-7b4d-4e8a-9c21-5d6e7f809a1b");

struct SCloudProject
{
    QString strName;
    QString strUpdatedAt;
};

}  // namespace

// The project page end to end: the engine on its thread reads a generated
// store and the emulated cloud, and the user filters and deletes.
class tst_CLmProjMgrWgt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void rowsAppearWithTheirStates();
    void typingInTheSearchLineNarrows_data();
    void typingInTheSearchLineNarrows();
    void deleteOneAsksAndRemovesInTheCloudAndLocally();
    void deleteWhileOfflineSaysSo();
    void failedRowDownloadOffersRetry();
    void detailsOpensTheProjectAndComesBack();

private:
    QMap<QString, SCloudProject> CloudProjects() const;
    QString CloudIdOf(const QString& name) const;
    QTreeWidget* Tree() const;
    QTreeWidgetItem* RowNamed(const QString& name) const;
    QStringList VisibleNames() const;
    void ClickRowButton(QTreeWidgetItem* row, LmProjRowLayout::EButton button);

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    QByteArray m_token;
    QMap<QString, SCloudProject> m_cloudAtStart;
    std::unique_ptr<CLmProjMgrWgt> m_page;
    // Last synchronisation state the page reported for each project id.
    QMap<QString, int> m_states;
};

void tst_CLmProjMgrWgt::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    PointCloudAt(m_cloud->BaseUrl());
    m_token = m_cloud->SignIn("13800000001");
    SetSession(QString::fromLatin1(m_token), QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(true);
    m_cloudAtStart = CloudProjects();
    QCOMPARE(m_cloudAtStart.size(), 3);

    // In step, behind the cloud, only here; "Harbour Survey" stays in the cloud.
    ClearProjectRoot();
    const QString riverside = CloudIdOf("Riverside Farm");
    const QString quarry = CloudIdOf("Quarry North");
    QVERIFY(!WriteLocal(Project(riverside, "Riverside Farm", m_cloudAtStart.value(riverside).strUpdatedAt)).isEmpty());
    QVERIFY(!WriteLocal(Project(quarry, "Quarry North", "2020-01-01 08:00:00")).isEmpty());
    QVERIFY(!WriteLocal(Project(LocalOnlyId, "Local Only", "2026-05-04 08:00:00")).isEmpty());

    m_states.clear();
    m_page = std::make_unique<CLmProjMgrWgt>();
    connect(m_page.get(), &CLmProjMgrWgt::signalUpdateStateBtn, this,
            [this](int state, const QString& id) { m_states.insert(id, state); });
    m_page->resize(1280, 744);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    QTRY_COMPARE(Tree()->topLevelItemCount(), 4);
    QTRY_COMPARE(m_states.size(), 4);
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_CLmProjMgrWgt::cleanup()
{
    m_page.reset();
    m_cloud.reset();
    CLmControl::GetInstance()->SetNetWorkState(true);
}

QMap<QString, SCloudProject> tst_CLmProjMgrWgt::CloudProjects() const
{
    QMap<QString, SCloudProject> projects;
    for (const QJsonValue& value : m_cloud->Call("/project/list", {}, m_token).value("data").toArray())
        projects.insert(value["id"].toString(), {value["project_name"].toString(), value["updated_at"].toString()});
    return projects;
}

QString tst_CLmProjMgrWgt::CloudIdOf(const QString& name) const
{
    for (auto it = m_cloudAtStart.cbegin(); it != m_cloudAtStart.cend(); ++it) {
        if (it->strName == name)
            return it.key();
    }
    return QString();
}

QTreeWidget* tst_CLmProjMgrWgt::Tree() const
{
    return m_page->findChild<QTreeWidget*>("m_pTreeProject");
}

QTreeWidgetItem* tst_CLmProjMgrWgt::RowNamed(const QString& name) const
{
    const QList<QTreeWidgetItem*> rows = Tree()->findItems(name, Qt::MatchExactly, CLmProjetMgrItem::ColumnProject);
    return rows.value(0);
}

QStringList tst_CLmProjMgrWgt::VisibleNames() const
{
    QStringList names;
    for (int i = 0; i < Tree()->topLevelItemCount(); ++i) {
        if (!Tree()->topLevelItem(i)->isHidden())
            names.append(Tree()->topLevelItem(i)->text(CLmProjetMgrItem::ColumnProject));
    }
    names.sort();
    return names;
}

void tst_CLmProjMgrWgt::ClickRowButton(QTreeWidgetItem* row, LmProjRowLayout::EButton button)
{
    const QString id = static_cast<CLmProjetMgrItem*>(row)->ProjectId();
    const QVector<LmProjRowLayout::EButton> buttons = LmProjRowLayout::ButtonsForState(m_states.value(id));
    const int fromRight = buttons.size() - 1 - buttons.indexOf(button);
    QVERIFY(fromRight < buttons.size());
    Tree()->scrollToItem(row);
    const QRect timeCell = Tree()->visualRect(Tree()->model()->index(
        Tree()->indexOfTopLevelItem(row), CLmProjetMgrItem::ColumnCreateTime));
    QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      LmProjRowLayout::ButtonRect(timeCell, fromRight).center());
}

void tst_CLmProjMgrWgt::rowsAppearWithTheirStates()
{
    const QMap<QString, int> expected = {{CloudIdOf("Riverside Farm"), SynchStateInStep},
                                         {CloudIdOf("Quarry North"), SynchStateNeedDownload},
                                         {LocalOnlyId, SynchStateNeedUpload},
                                         {CloudIdOf("Harbour Survey"), SynchStateCloudOnly}};
    QTRY_COMPARE(m_states, expected);
    // Three generated missions, two of them flown.
    QCOMPARE(RowNamed("Local Only")->text(CLmProjetMgrItem::ColumnFlightLog), QStringLiteral("2/3"));
    QCOMPARE(m_page->findChild<QLabel*>("m_pLabelProjCount")->text(), QStringLiteral("4"));
}

void tst_CLmProjMgrWgt::typingInTheSearchLineNarrows_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("visible");
    QTest::newRow("nothing") << "" << QStringList{"Harbour Survey", "Local Only", "Quarry North", "Riverside Farm"};
    QTest::newRow("lower case") << "quarry" << QStringList{"Quarry North"};
    QTest::newRow("letter in several") << "r" << QStringList{"Harbour Survey", "Quarry North", "Riverside Farm"};
    QTest::newRow("nobody") << "xyz" << QStringList{};
}

void tst_CLmProjMgrWgt::typingInTheSearchLineNarrows()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, visible);
    auto* search = m_page->findChild<QLineEdit*>("m_pEditSearchLv2");
    QTest::keyClicks(search, typed);
    QCOMPARE(VisibleNames(), visible);
    search->clear();
    QCOMPARE(VisibleNames().size(), 4);
}

void tst_CLmProjMgrWgt::deleteOneAsksAndRemovesInTheCloudAndLocally()
{
    const QString id = CloudIdOf("Riverside Farm");
    const QString folder = ProjectRoot() + "/Riverside Farm";
    QVERIFY(QFileInfo::exists(folder));

    QString question;
    ModalAnswer::PressWhenShown("m_pBtnOk", &question, 5000, "CLmMessageBox", this);
    ClickRowButton(RowNamed("Riverside Farm"), LmProjRowLayout::ButtonDelete);
    // The box shows its text above its title.
    QCOMPARE(question, QStringLiteral("Are you sure to delete project Riverside Farm ?\nSkyConsole"));

    QString result;
    ModalAnswer::PressWhenShown("m_pBtnOk", &result, 10000, "CLmMessageBox", this);
    QTRY_COMPARE_WITH_TIMEOUT(result, QStringLiteral("The Project delete was successful.\nDelete Project"), 10000);
    QVERIFY(!RowNamed("Riverside Farm"));
    QVERIFY(!QFileInfo::exists(folder));
    QVERIFY(!CloudProjects().contains(id));
    QCOMPARE(CloudProjects().size(), 2);
    QCOMPARE(m_page->findChild<QLabel*>("m_pLabelProjCount")->text(), QStringLiteral("3"));
}

void tst_CLmProjMgrWgt::deleteWhileOfflineSaysSo()
{
    CLmControl::GetInstance()->SetNetWorkState(false);
    QString shown;
    ModalAnswer::PressWhenShown("m_pBtnOk", &shown, 5000, "CLmMessageBox", this);
    ClickRowButton(RowNamed("Riverside Farm"), LmProjRowLayout::ButtonDelete);
    QCOMPARE(shown, QStringLiteral("The network is not connected\nSkyConsole"));
    QVERIFY(RowNamed("Riverside Farm"));
    QVERIFY(QFileInfo::exists(ProjectRoot() + "/Riverside Farm"));
    QCOMPARE(CloudProjects().size(), 3);
}

void tst_CLmProjMgrWgt::detailsOpensTheProjectAndComesBack()
{
    auto* stack = m_page->findChild<QStackedWidget*>("m_pProjMgrStackedWidget");
    QWidget* projectPage = stack->currentWidget();
    ClickRowButton(RowNamed("Riverside Farm"), LmProjRowLayout::ButtonDetails);
    QCOMPARE(stack->currentWidget()->objectName(), QStringLiteral("CLmProjDetailsWgt"));
    QCOMPARE(stack->currentWidget()->findChild<QLabel*>("m_pLabelProjName")->text(), QStringLiteral("Riverside Farm"));

    QTest::mouseClick(stack->currentWidget()->findChild<QPushButton*>("m_pBtnBackProject"), Qt::LeftButton);
    QCOMPARE(stack->currentWidget(), projectPage);
}

void tst_CLmProjMgrWgt::failedRowDownloadOffersRetry()
{
    // Another computer removed the project from the cloud meanwhile.
    const QString id = CloudIdOf("Harbour Survey");
    m_cloud->Call("/project/remove", "id=" + id.toLatin1(), m_token);

    // Retry asks the cloud again and, failing again, asks again. The second
    // question may come as soon as the first one closes, so its answer is
    // ready before the first is pressed.
    QString first;
    QString second;
    ModalAnswer::RunWhenShown(
        "CLmMessageBox",
        [this, &first, &second](QWidget* box) {
            first = ModalAnswer::VisibleTexts(box);
            ModalAnswer::PressWhenShown("m_pBtnCancel", &second, 10000, "CLmMessageBox", this);
            box->findChild<QPushButton*>("m_pBtnOk")->click();
        },
        10000, this);
    ClickRowButton(RowNamed("Harbour Survey"), LmProjRowLayout::ButtonDownload);
    QTRY_VERIFY_WITH_TIMEOUT(!first.isEmpty(), 10000);
    QVERIFY2(first.startsWith("Download project file failed.Press cancel to use project on sever,press retry to "
                              "download project again."),
             qPrintable(first));
    QTRY_COMPARE_WITH_TIMEOUT(second, first, 10000);
    QVERIFY(RowNamed("Harbour Survey"));
    // The queue goes on with the other cloud projects; this one ends failed.
    const auto* finished = m_page->findChild<QTreeWidget*>("m_pTreeFinished");
    QTRY_VERIFY(!finished->findItems(QStringLiteral("Harbour Survey"), Qt::MatchExactly).isEmpty());
    QCOMPARE(finished->findItems(QStringLiteral("Harbour Survey"), Qt::MatchExactly).first()->text(2),
             QStringLiteral("Download Failed"));
}

QTEST_MAIN(tst_CLmProjMgrWgt)
#include "tst_CLmProjMgrWgt.moc"
