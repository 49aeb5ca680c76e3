#include "CLmCarrowmereSaveRPWidget.h"
#include "CLmCoordinateConverter.h"
#include "CLmCorsStationSettingPage.h"
#include "ModalAnswer.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

// The point-naming and CORS dialogs: what they refuse, in which order.
class tst_GnssDialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void namesPoint_data();
    void namesPoint();
    void checksAccountBeforeMountPoint_data();
    void checksAccountBeforeMountPoint();
    void replacesSourceList();
    void convertsAngle_data();
    void convertsAngle();
};

void tst_GnssDialogs::namesPoint_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("message");
    QTest::newRow("new") << "Ridge" << true << "";
    QTest::newRow("differs in case") << "tower" << true << "";
    QTest::newRow("spaces around") << "  Ridge  " << true << "";
    QTest::newRow("taken") << "Tower" << false << "The reference point name has been exist.";
    QTest::newRow("blank") << "   " << false << "Please input reference point name.";
    QTest::newRow("too long") << QString(33, QLatin1Char('x')) << false << "at most 32 characters";
}

void tst_GnssDialogs::namesPoint()
{
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    QFETCH(QString, message);
    CLmCarrowmereSaveRPWidget dialog(nullptr, {QStringLiteral("Tower")});
    dialog.show();
    dialog.findChild<QLineEdit*>(QStringLiteral("m_pEditName"))->setText(typed);
    QString seen;
    if (!accepted)
        ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnOK"))->click();
    QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
    QVERIFY2(seen.contains(message), qPrintable(seen));
    if (accepted)
        QCOMPARE(dialog.Name(), typed.trimmed());
}

void tst_GnssDialogs::checksAccountBeforeMountPoint_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QStringList>("mountPoints");
    QTest::addColumn<QString>("message");
    QTest::newRow("no password, no mount point") << "pilot" << "" << QStringList{}
                                                 << "Please input account and password.";
    QTest::newRow("no account") << "" << "secret" << QStringList{"SKY01"} << "Please input account and password.";
    QTest::newRow("no mount point") << "pilot" << "secret" << QStringList{} << "Please select source node.";
}

void tst_GnssDialogs::checksAccountBeforeMountPoint()
{
    QFETCH(QString, account);
    QFETCH(QString, password);
    QFETCH(QStringList, mountPoints);
    QFETCH(QString, message);
    CLmCorsStationSettingPage dialog(nullptr, nullptr);
    dialog.SetCorsParam(QStringLiteral("127.0.0.1"), QStringLiteral("2101"), account, password, mountPoints, 0);
    dialog.show();
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnAccept"))->click();
    QVERIFY2(seen.contains(message), qPrintable(seen));
    QVERIFY(seen.contains(QLatin1String("Connect to CORS station")));
    QVERIFY(dialog.isVisible());
}

void tst_GnssDialogs::replacesSourceList()
{
    CLmCorsStationSettingPage dialog(nullptr, nullptr);
    dialog.SetCorsParam({}, {}, {}, {}, {QStringLiteral("OLD1"), QStringLiteral("OLD2")}, 1);
    dialog.slotReceivedSrcNodeList({QStringLiteral("SKY01")}, 1);
    auto* list = dialog.findChild<QComboBox*>(QStringLiteral("m_pComboSourceList"));
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->itemText(0), QStringLiteral("SKY01"));
}

void tst_GnssDialogs::convertsAngle_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("typed");  // decimal, or degrees, minutes, seconds
    QTest::addColumn<QString>("ddmm");
    QTest::newRow("south to ddmm") << "m_pBtnFromDecimal" << QStringList{"-22.5"} << "-2230.0000000";
    QTest::newRow("east from dms") << "m_pBtnFromDms" << QStringList{"113", "15", "36"} << "11315.6000000";
    QTest::newRow("minutes out of range") << "m_pBtnFromDms" << QStringList{"22", "61", "0"} << "Not an angle";
    QTest::newRow("beyond 180") << "m_pBtnFromDecimal" << QStringList{"181"} << "Not an angle";
}

void tst_GnssDialogs::convertsAngle()
{
    QFETCH(QString, button);
    QFETCH(QStringList, typed);
    QFETCH(QString, ddmm);
    CLmCoordinateConverter dialog;
    const QStringList fields = typed.size() == 1 ? QStringList{"m_pEditDecimal"}
                                                 : QStringList{"m_pEditDeg", "m_pEditMin", "m_pEditSec"};
    for (int i = 0; i < fields.size(); ++i)
        dialog.findChild<QLineEdit*>(fields.at(i))->setText(typed.at(i));
    dialog.findChild<QPushButton*>(button)->click();
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("m_pLblDdmm"))->text(), ddmm);
}

QTEST_MAIN(tst_GnssDialogs)
#include "tst_GnssDialogs.moc"
