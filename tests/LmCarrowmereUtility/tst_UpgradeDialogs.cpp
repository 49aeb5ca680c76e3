#include "CLmCarrowmereUpgradeLauncher.h"
#include "CLmCarrowmereUpgradeSure.h"
#include "CLmDeployConfig.h"
#include "CLmUpdateFolders.h"
#include "CSkyCloudProcess.h"
#include "ModalAnswer.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

// The two installer download dialogs against the emulated cloud, answered as
// a user would.
class tst_UpgradeDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void applicationPackageIsDownloadedAndOffered();
    void corruptedPackageFailsUntilRetrySucceeds();
    void launcherDialogFindsAndDownloadsTheLauncher();

private:
    QString ServedPackage(const QString& product) const;
    QJsonObject Release(const QString& product) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
};

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Declines the offer to open the folder once its message box is up; the
// progress dialog below it is modal too and has a Cancel button of its own.
void DeclineFolderOffer(QObject* dialog, QString* offer = nullptr)
{
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnCancel"), offer, 30000, "CLmMessageBox", dialog);
}

QString StatusText(const QWidget& dialog)
{
    return dialog.findChild<QLabel*>("m_pLabelText")->text();
}

}  // namespace

void tst_UpgradeDialogs::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>(QStringList{QStringLiteral("--offer-updates")});
    QVERIFY(m_cloud->Start());
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", m_cloud->BaseUrl());
    CLmDeployConfig::Reload();
}

void tst_UpgradeDialogs::cleanup()
{
    m_cloud.reset();
    QDir(CLmUpdateFolders::Installers()).removeRecursively();
}

QString tst_UpgradeDialogs::ServedPackage(const QString& product) const
{
    return m_cloud->DataDir() + "/updates/files/" + Release(product).value("file").toString();
}

QJsonObject tst_UpgradeDialogs::Release(const QString& product) const
{
    const QJsonObject manifest =
        QJsonDocument::fromJson(ReadAll(m_cloud->DataDir() + "/updates/" + product + ".json")).object();
    QJsonObject release = manifest;
    release.insert("url", QString(QString::fromLatin1(m_cloud->BaseUrl() + "/app/download/")
                                  + manifest.value("file").toString()));
    return release;
}

void tst_UpgradeDialogs::applicationPackageIsDownloadedAndOffered()
{
    CLmCarrowmereUpgradeSure dialog;
    dialog.SetDownloadData(Release("skyconsole"));
    QString offer;
    DeclineFolderOffer(&dialog, &offer);
    QCOMPARE(dialog.exec(false), int(QDialog::Accepted));

    QVERIFY(offer.contains("Open its folder"));
    QVERIFY(dialog.DownloadedFilePath().startsWith(CLmUpdateFolders::Installers()));
    QCOMPARE(ReadAll(dialog.DownloadedFilePath()), ReadAll(ServedPackage("skyconsole")));
}

void tst_UpgradeDialogs::corruptedPackageFailsUntilRetrySucceeds()
{
    const QString served = ServedPackage("skyconsole");
    const QByteArray original = ReadAll(served);
    QFile file(served);
    QVERIFY(file.open(QIODevice::ReadWrite));
    file.seek(10);
    file.write("#");
    file.close();

    CLmCarrowmereUpgradeSure dialog;
    dialog.SetDownloadData(Release("skyconsole"));
    dialog.show();
    QTRY_COMPARE(StatusText(dialog), QStringLiteral("Download File Failed."));
    auto* retry = dialog.findChild<QPushButton*>("m_pBtnRetry");
    QVERIFY(retry->isVisible());
    QVERIFY(QDir(CLmUpdateFolders::Installers()).entryList(QDir::Files).isEmpty());

    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(original);
    file.close();
    DeclineFolderOffer(&dialog);
    retry->click();
    QTRY_VERIFY(!dialog.DownloadedFilePath().isEmpty());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(ReadAll(dialog.DownloadedFilePath()), original);
}

void tst_UpgradeDialogs::launcherDialogFindsAndDownloadsTheLauncher()
{
    CLmCarrowmereUpgradeLauncher dialog;
    DeclineFolderOffer(&dialog);
    QCOMPARE(dialog.exec(false), int(QDialog::Accepted));
    QCOMPARE(ReadAll(dialog.DownloadedFilePath()), ReadAll(ServedPackage("launcher")));
}

QTEST_MAIN(tst_UpgradeDialogs)
#include "tst_UpgradeDialogs.moc"
