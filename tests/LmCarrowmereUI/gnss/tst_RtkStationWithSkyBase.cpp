#include "CLmBaseStationLink.h"
#include "CLmRtkStationController.h"
#include "CLmRtkStationSettings.h"
#include "CNtripCasterProcess.h"
#include "CSkyBaseProcess.h"
#include "LmBaseStationMath.h"
#include "LmStationRules.h"
#include "ModalAnswer.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

// The base-station section against the emulated station: the settings walk,
// the recording lock, raw-file download, delete, format and a lost station.
class tst_RtkStationWithSkyBase : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void showsStationOnConnect();
    void setsPpkAndRefusesWhileRecording();
    void downloadsTwoFilesIntoChosenFolder();
    void deletesCheckedFile();
    void formatsStation();
    void pointsStationAtCaster();
    void showsNotAvailableWhenStationDrops();

private:
    template <typename T>
    T* Find(const char* name) const
    {
        T* widget = m_pPage->findChild<T*>(QLatin1String(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }
    QString Text(const char* label) const { return Find<QLabel>(label)->text(); }
    void Click(const char* button) { Find<QPushButton>(button)->click(); }
    QString StationFile(const QString& name) const;
    void EnterStationPosition();
    void ShowStorage();
    void ShowFiles();
    void CheckRow(const QString& name);
    QStringList RowNames() const;
    QStringList AnswerTwoBoxes(const std::function<void()>& action);

    QTemporaryDir m_dir;
    CSkyBaseProcess m_station;
    QByteArray m_seedA;
    QByteArray m_seedB;
    std::unique_ptr<CLmRtkStationSettings> m_pPage;
};

namespace {

constexpr int kStationWaitMs = 20000;
const char* const kSerial = "SKB2611000123";

QByteArray RandomBytes(int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& byte : bytes)
        byte = char(QRandomGenerator::global()->bounded(256));
    return bytes;
}

}  // namespace

void tst_RtkStationWithSkyBase::initTestCase()
{
    QVERIFY(m_dir.isValid());
    // Two raw files on the station before it starts: one over a megabyte.
    const QString staticDir = m_dir.filePath(QStringLiteral("station/ftp/static"));
    QVERIFY(QDir().mkpath(staticDir));
    m_seedA = RandomBytes(300 * 1024 + 17);
    m_seedB = RandomBytes(1536 * 1024 + 3);
    for (const auto& [name, bytes] : {std::pair{"SEED_A.GNS", m_seedA}, std::pair{"SEED_B.GNS", m_seedB}}) {
        QFile file(QDir(staticDir).filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    QVERIFY(m_station.Start(m_dir.filePath(QStringLiteral("station"))));
    qputenv("SKYCONSOLE_BASESTATION_HOST", "127.0.0.1");
    qputenv("SKYCONSOLE_BASESTATION_CONTROL_PORT", QByteArray::number(m_station.ControlPort()));
    qputenv("SKYCONSOLE_BASESTATION_FTP_PORT", QByteArray::number(m_station.FtpPort()));
}

void tst_RtkStationWithSkyBase::init()
{
    m_pPage = std::make_unique<CLmRtkStationSettings>();
    m_pPage->resize(1100, 900);
    m_pPage->show();
    m_pPage->ConnectBaseStation();
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblSerial"), QString::fromLatin1(kSerial), kStationWaitMs);
    // The first state reply decides how the page opens.
    QTRY_VERIFY_WITH_TIMEOUT(Text("m_pLblRecordingState") != QLatin1String("N/A"), kStationWaitMs);
}

void tst_RtkStationWithSkyBase::cleanup()
{
    m_pPage.reset();
}

QString tst_RtkStationWithSkyBase::StationFile(const QString& name) const
{
    return m_dir.filePath(QStringLiteral("station/ftp/static/") + name);
}

void tst_RtkStationWithSkyBase::showsStationOnConnect()
{
    QCOMPARE(Text("m_pLblRecordingState"), QStringLiteral("Not recording"));
    QCOMPARE(Text("m_pLblStaticFile"), QStringLiteral("N/A"));
    QVERIFY(!Text("m_pLblFirmware").isEmpty());
    QCOMPARE(m_pPage->Controller()->StationMode(), int(LmStationRules::eModeDisuse));
    // Nothing to stop, so "Disuse" offers no button.
    QVERIFY(!Find<QPushButton>("m_pBtnNext")->isVisible());
}

// The point is entered where the station stands, so the deviation check passes.
void tst_RtkStationWithSkyBase::EnterStationPosition()
{
    QSignalSpy positions(m_pPage->Controller(), &CLmRtkStationController::PositionRead);
    QTRY_VERIFY_WITH_TIMEOUT(!positions.isEmpty(), kStationWaitMs);
    const auto report = positions.constLast().at(0).value<SGGAParam>();
    const auto lat = LmStationRules::DmsText(LmBaseStationMath::DegreesFromDdmm(report.dLatitude));
    const auto lng = LmStationRules::DmsText(LmBaseStationMath::DegreesFromDdmm(report.dLongitude));
    Find<QLineEdit>("m_pEditLatDeg")->setText(lat.degrees);
    Find<QLineEdit>("m_pEditLatMin")->setText(lat.minutes);
    Find<QLineEdit>("m_pEditLatSec")->setText(lat.seconds);
    Find<QLineEdit>("m_pEditLngDeg")->setText(lng.degrees);
    Find<QLineEdit>("m_pEditLngMin")->setText(lng.minutes);
    Find<QLineEdit>("m_pEditLngSec")->setText(lng.seconds);
    Find<QLineEdit>("m_pEditAltitude")->setText(QString::number(report.dAltitude - 1.5, 'f', 3));
    Find<QLineEdit>("m_pEditVertical")->setText(QStringLiteral("1.5"));
}

void tst_RtkStationWithSkyBase::setsPpkAndRefusesWhileRecording()
{
    auto* stack = Find<QStackedWidget>("m_pStackSettings");
    auto* next = Find<QPushButton>("m_pBtnNext");
    auto* mode = Find<QComboBox>("m_pComboStationMode");

    // PPK with a manually entered point: the point is named and saved first.
    mode->setCurrentIndex(LmStationRules::eModePpk);
    QCOMPARE(stack->currentIndex(), int(CLmRtkStationController::eKnownPointPage));
    QCOMPARE(next->text(), QStringLiteral("Next"));
    EnterStationPosition();
    ModalAnswer::RunWhenShown("CLmCarrowmereSaveRPWidget", [](QWidget* dialog) {
        dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditName"))->setText(QStringLiteral("Pad 1"));
        dialog->findChild<QPushButton*>(QStringLiteral("m_pBtnOK"))->click();
    });
    next->click();
    QCOMPARE(stack->currentIndex(), int(CLmRtkStationController::ePpkPage));
    QCOMPARE(next->text(), QStringLiteral("Save"));
    QCOMPARE(Find<QComboBox>("m_pComboKnownPoints")->currentText(), QStringLiteral("Pad 1"));
    next->click();
    // The station records raw data in PPK.
    QSignalSpy stateReplies(m_pPage->Controller(), &CLmRtkStationController::StaticFileStateRead);
    QTRY_VERIFY_WITH_TIMEOUT(!stateReplies.isEmpty(), kStationWaitMs);
    m_pPage->Controller()->ReadFileState();
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblRecordingState"), QStringLiteral("Recording"), kStationWaitMs);
    QVERIFY(Text("m_pLblStaticFile").endsWith(QLatin1String(".GNS")));

    // Single station while recording: told to stop first, and nothing is set.
    mode->setCurrentIndex(LmStationRules::eModeSingleStation);
    next->click();
    QCOMPARE(stack->currentIndex(), int(CLmRtkStationController::eBasePage));
    QString notice;
    QString question;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &notice, kStationWaitMs);
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnCancel"), &question, kStationWaitMs);
    next->click();
    QTRY_VERIFY_WITH_TIMEOUT(!question.isEmpty(), kStationWaitMs);
    QVERIFY(notice.contains(QLatin1String("Currently in static record mode,please stop static file then click save")));
    QVERIFY(question.contains(QLatin1String("Are you stop static record file?")));
    m_pPage->Controller()->slotReadMainFrame();
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblWorkMode"), QStringLiteral("Static"), kStationWaitMs);

    // "Disuse" offers to stop the recording.
    mode->setCurrentIndex(LmStationRules::eModeDisuse);
    m_pPage->Controller()->ReadFileState();
    QTRY_VERIFY_WITH_TIMEOUT(next->isVisible(), kStationWaitMs);
    const QStringList boxes = AnswerTwoBoxes([next] { next->click(); });
    QVERIFY(boxes.at(0).contains(QLatin1String("The operator will be stop static capture.Are you sure?")));
    QVERIFY(boxes.at(1).contains(QLatin1String("Stop static file:Success")));
}

// The question and the notice that follows its answer both open from the
// station's replies, the second possibly while the test still waits for the
// first: both are answered with OK from the start.
QStringList tst_RtkStationWithSkyBase::AnswerTwoBoxes(const std::function<void()>& action)
{
    QString first;
    QString second;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &first, kStationWaitMs);
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &second, kStationWaitMs);
    action();
    // Unanswered boxes leave their text empty and fail the caller's checks.
    if (!QTest::qWaitFor([&] { return !first.isEmpty() && !second.isEmpty(); }, kStationWaitMs))
        qWarning("a box was not shown");
    return {first, second};
}

void tst_RtkStationWithSkyBase::ShowStorage()
{
    Click("m_pBtnBaseData");
    QTRY_VERIFY_WITH_TIMEOUT(Text("m_pLblMemorySize").endsWith(QLatin1String(" GB")), kStationWaitMs);
    QVERIFY(Text("m_pLblFreeSpace").endsWith(QLatin1String(" GB")));
}

void tst_RtkStationWithSkyBase::ShowFiles()
{
    ShowStorage();
    QTRY_VERIFY_WITH_TIMEOUT(Find<QTableWidget>("m_pTableFiles")->rowCount() > 0, kStationWaitMs);
}

QStringList tst_RtkStationWithSkyBase::RowNames() const
{
    QStringList names;
    auto* table = Find<QTableWidget>("m_pTableFiles");
    for (int row = 0; row < table->rowCount(); ++row)
        names.append(table->item(row, 0)->text());
    return names;
}

void tst_RtkStationWithSkyBase::CheckRow(const QString& name)
{
    auto* table = Find<QTableWidget>("m_pTableFiles");
    const int row = RowNames().indexOf(name);
    QVERIFY(row >= 0);
    table->item(row, 0)->setCheckState(Qt::Checked);
}

void tst_RtkStationWithSkyBase::downloadsTwoFilesIntoChosenFolder()
{
    ShowFiles();
    QVERIFY(RowNames().contains(QStringLiteral("SEED_A.GNS")));
    auto* table = Find<QTableWidget>("m_pTableFiles");
    const int rowB = RowNames().indexOf(QStringLiteral("SEED_B.GNS"));
    QCOMPARE(table->item(rowB, 2)->text(), QStringLiteral("1536KB"));
    CheckRow(QStringLiteral("SEED_A.GNS"));
    CheckRow(QStringLiteral("SEED_B.GNS"));

    const QString target = m_dir.filePath(QStringLiteral("downloads"));
    QVERIFY(QDir().mkpath(target));
    ModalAnswer::RunWhenShown("QFileDialog", [target](QWidget* dialog) {
        auto* chooser = static_cast<QFileDialog*>(dialog);
        chooser->setDirectory(target);
        chooser->selectFile(target);
        QMetaObject::invokeMethod(chooser, "accept");
    });
    QString finished;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &finished, 60000);
    Click("m_pBtnDownload");
    QTRY_VERIFY_WITH_TIMEOUT(!finished.isEmpty(), 60000);
    QVERIFY(finished.contains(QLatin1String("All file(s) to download finished.")));
    QCOMPARE(QDir(target).entryList(QDir::Files | QDir::Hidden),
             (QStringList{QStringLiteral("SEED_A.GNS"), QStringLiteral("SEED_B.GNS")}));
    for (const auto& [name, bytes] : {std::pair{"SEED_A.GNS", m_seedA}, std::pair{"SEED_B.GNS", m_seedB}}) {
        QFile file(QDir(target).filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(file.readAll() == bytes, name);
    }
    QVERIFY(Find<QPushButton>("m_pBtnDownload")->isEnabled());
}

void tst_RtkStationWithSkyBase::deletesCheckedFile()
{
    ShowFiles();
    CheckRow(QStringLiteral("SEED_A.GNS"));
    const QStringList boxes = AnswerTwoBoxes([this] { Click("m_pBtnDelete"); });
    QVERIFY(boxes.at(0).contains(QLatin1String("Are you sure to delete selected file(s)?")));
    QVERIFY(boxes.at(1).contains(QLatin1String("delete file(s) succeed.")));
    QVERIFY(!RowNames().contains(QStringLiteral("SEED_A.GNS")));
    QVERIFY(RowNames().contains(QStringLiteral("SEED_B.GNS")));
    QVERIFY(!QFile::exists(StationFile(QStringLiteral("SEED_A.GNS"))));
    QVERIFY(QFile::exists(StationFile(QStringLiteral("SEED_B.GNS"))));
}

void tst_RtkStationWithSkyBase::formatsStation()
{
    ShowFiles();
    const QStringList boxes = AnswerTwoBoxes([this] { Click("m_pBtnFormat"); });
    QVERIFY(boxes.at(0).contains(QLatin1String("Are you sure to format base station")));
    QVERIFY(boxes.at(1).contains(QLatin1String("delete file(s) succeed.")));
    QCOMPARE(Find<QTableWidget>("m_pTableFiles")->rowCount(), 0);
    // Back in the mode the page shows, so that its settings can be saved again.
    QCOMPARE(m_pPage->Controller()->StationMode(), int(LmStationRules::eModeDisuse));
    QVERIFY(QDir(m_dir.filePath(QStringLiteral("station/ftp/static"))).entryList(QDir::Files).isEmpty());
}

void tst_RtkStationWithSkyBase::pointsStationAtCaster()
{
    CNtripCasterProcess caster;
    QVERIFY(caster.Start(QStringLiteral("SKY01"), QStringLiteral("pilot"), QStringLiteral("secret")));
    auto* stack = Find<QStackedWidget>("m_pStackSettings");
    auto* next = Find<QPushButton>("m_pBtnNext");
    Find<QComboBox>("m_pComboStationMode")->setCurrentIndex(LmStationRules::eModeCorsPpk);
    auto* knownPoints = Find<QComboBox>("m_pComboKnownPoints");
    QVERIFY(knownPoints->count() > 1);
    knownPoints->setCurrentIndex(1);
    QSignalSpy positions(m_pPage->Controller(), &CLmRtkStationController::PositionRead);
    QTRY_VERIFY_WITH_TIMEOUT(!positions.isEmpty(), kStationWaitMs);
    QSignalSpy casterShown(m_pPage->Controller(), &CLmRtkStationController::CasterParamRead);
    next->click();
    QCOMPARE(stack->currentIndex(), int(CLmRtkStationController::eCorsPage));
    // The fields first show what the station holds.
    QTRY_VERIFY_WITH_TIMEOUT(!casterShown.isEmpty(), kStationWaitMs);

    Find<QLineEdit>("m_pEditHost")->setText(QStringLiteral("127.0.0.1"));
    Find<QLineEdit>("m_pEditPort")->setText(QString::number(caster.Port()));
    Click("m_pBtnAcquiring");
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblSrcState"), QStringLiteral("Connected"), kStationWaitMs);
    QCOMPARE(Find<QComboBox>("m_pComboSourceList")->currentText(), QStringLiteral("SKY01"));

    // A refused login is told; the right account makes the station a rover.
    Find<QLineEdit>("m_pEditAccount")->setText(QStringLiteral("pilot"));
    Find<QLineEdit>("m_pEditPassword")->setText(QStringLiteral("wrong"));
    QString refused;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &refused, kStationWaitMs);
    next->click();
    QTRY_VERIFY_WITH_TIMEOUT(refused.contains(QLatin1String("connect to CORS station failed.")), kStationWaitMs);
    // The station reports what it holds: the caster it was given.
    QTRY_COMPARE_WITH_TIMEOUT(Find<QLineEdit>("m_pEditPassword")->text(), QStringLiteral("wrong"), kStationWaitMs);
    Find<QLineEdit>("m_pEditPassword")->setText(QStringLiteral("secret"));
    QSignalSpy results(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::SettingRet);
    next->click();
    QTRY_VERIFY_WITH_TIMEOUT(!results.isEmpty(), kStationWaitMs);
    QCOMPARE(results.constFirst().at(0).toString(), QStringLiteral("roverNtrips"));
    QCOMPARE(results.constFirst().at(1).toInt(), 0);
    m_pPage->Controller()->slotReadMainFrame();
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblWorkMode"), QStringLiteral("Rover"), kStationWaitMs);
}

void tst_RtkStationWithSkyBase::showsNotAvailableWhenStationDrops()
{
    ShowStorage();
    m_station.Kill();
    QTRY_COMPARE_WITH_TIMEOUT(Text("m_pLblMemorySize"), QStringLiteral("N/A"), kStationWaitMs);
    QCOMPARE(Text("m_pLblRecordingState"), QStringLiteral("N/A"));
    QCOMPARE(Text("m_pLblWorkMode"), QStringLiteral("N/A"));
    // The page stays usable: the settings tab still opens.
    Click("m_pBtnBaseSetting");
    QCOMPARE(Find<QStackedWidget>("m_pStackTabs")->currentIndex(), 0);
}

QTEST_MAIN(tst_RtkStationWithSkyBase)
#include "tst_RtkStationWithSkyBase.moc"
