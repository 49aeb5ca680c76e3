#include "CLmMessageBox.h"
#include "ModalAnswer.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

class tst_CLmMessageBox : public QObject
{
    Q_OBJECT

private slots:
    void execReturnsOneOnlyForAffirmative_data();
    void execReturnsOneOnlyForAffirmative();
    void keysAnswerTheBox_data();
    void keysAnswerTheBox();
    void setBtnHiddenHidesTheNamedButtons_data();
    void setBtnHiddenHidesTheNamedButtons();
    void buttonSetDecidesCancel_data();
    void buttonSetDecidesCancel();
    void emptyTitleFallsBackToApplicationName_data();
    void emptyTitleFallsBackToApplicationName();
    void iconShownOnlyWhenItLoads();
};

void tst_CLmMessageBox::execReturnsOneOnlyForAffirmative_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("expected");
    QTest::newRow("OK") << "m_pBtnOk" << 1;
    QTest::newRow("Cancel") << "m_pBtnCancel" << 0;
    QTest::newRow("title-bar close") << "m_pBtnClose" << 0;
}

void tst_CLmMessageBox::execReturnsOneOnlyForAffirmative()
{
    QFETCH(QString, button);
    QFETCH(int, expected);
    CLmMessageBox box(QStringLiteral("Do you want to exit the application?"), QString());
    QString seen;
    ModalAnswer::PressWhenShown(button, &seen);
    QCOMPARE(box.exec(), expected);
    QVERIFY(seen.contains(QStringLiteral("Do you want to exit the application?")));
}

void tst_CLmMessageBox::keysAnswerTheBox_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");
    QTest::newRow("Escape, OK and Cancel") << int(CLmMessageBox::BtnOkCancel) << int(Qt::Key_Escape) << 0;
    QTest::newRow("Escape, OK only") << int(CLmMessageBox::BtnOk) << int(Qt::Key_Escape) << 0;
    QTest::newRow("Return presses OK") << int(CLmMessageBox::BtnOkCancel) << int(Qt::Key_Return) << 1;
}

void tst_CLmMessageBox::keysAnswerTheBox()
{
    QFETCH(int, buttons);
    QFETCH(int, key);
    QFETCH(int, expected);
    CLmMessageBox box(QStringLiteral("Network fault"), QString(), QString(),
                      static_cast<CLmMessageBox::EMsgButtons>(buttons));
    ModalAnswer::RunWhenShown("CLmMessageBox",
                              [key](QWidget* modal) { QTest::keyClick(modal, static_cast<Qt::Key>(key)); });
    QCOMPARE(box.exec(), expected);
}

void tst_CLmMessageBox::setBtnHiddenHidesTheNamedButtons_data()
{
    QTest::addColumn<bool>("hideOk");
    QTest::addColumn<bool>("hideCancel");
    QTest::addColumn<bool>("hideClose");
    QTest::newRow("close only") << false << false << true;
    QTest::newRow("cancel only") << false << true << false;
    QTest::newRow("ok and close") << true << false << true;
    QTest::newRow("none") << false << false << false;
}

void tst_CLmMessageBox::setBtnHiddenHidesTheNamedButtons()
{
    QFETCH(bool, hideOk);
    QFETCH(bool, hideCancel);
    QFETCH(bool, hideClose);
    CLmMessageBox box(QStringLiteral("Please confirm that you have changed the parachute rope."), QString());
    box.SetBtnHidden(hideOk, hideCancel, hideClose);
    box.show();
    QCOMPARE(box.findChild<QPushButton*>(QStringLiteral("m_pBtnOk"))->isVisible(), !hideOk);
    QCOMPARE(box.findChild<QPushButton*>(QStringLiteral("m_pBtnCancel"))->isVisible(), !hideCancel);
    QCOMPARE(box.findChild<QPushButton*>(QStringLiteral("m_pBtnClose"))->isVisible(), !hideClose);
}

void tst_CLmMessageBox::buttonSetDecidesCancel_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<bool>("cancelVisible");
    QTest::newRow("OK") << int(CLmMessageBox::BtnOk) << false;
    QTest::newRow("OK and Cancel") << int(CLmMessageBox::BtnOkCancel) << true;
}

void tst_CLmMessageBox::buttonSetDecidesCancel()
{
    QFETCH(int, buttons);
    QFETCH(bool, cancelVisible);
    CLmMessageBox box(QStringLiteral("text"), QString(), QString(), static_cast<CLmMessageBox::EMsgButtons>(buttons));
    box.show();
    QVERIFY(box.findChild<QPushButton*>(QStringLiteral("m_pBtnOk"))->isVisible());
    QCOMPARE(box.findChild<QPushButton*>(QStringLiteral("m_pBtnCancel"))->isVisible(), cancelVisible);
}

void tst_CLmMessageBox::emptyTitleFallsBackToApplicationName_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << QString() << "SkyConsole";
    QTest::newRow("given") << "System Information" << "System Information";
}

void tst_CLmMessageBox::emptyTitleFallsBackToApplicationName()
{
    QFETCH(QString, title);
    QFETCH(QString, shown);
    CLmMessageBox box(QStringLiteral("text"), QString(), title);
    QCOMPARE(box.findChild<QLabel*>(QStringLiteral("m_pLabelTitle"))->text(), shown);
}

void tst_CLmMessageBox::iconShownOnlyWhenItLoads()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString iconPath = dir.filePath(QStringLiteral("icon.png"));
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::red);
    QVERIFY(pixmap.save(iconPath));

    CLmMessageBox withIcon(QStringLiteral("text"), iconPath);
    withIcon.show();
    const QLabel* icon = withIcon.findChild<QLabel*>(QStringLiteral("m_pLabelIcon"));
    QVERIFY(icon->isVisible());
    QCOMPARE(icon->pixmap(Qt::ReturnByValue).size(), QSize(48, 48));

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("icon not found")));
    CLmMessageBox withoutIcon(QStringLiteral("text"), QStringLiteral(":/images/Normal/NoSuchIcon.png"));
    withoutIcon.show();
    QVERIFY(!withoutIcon.findChild<QLabel*>(QStringLiteral("m_pLabelIcon"))->isVisible());
    QCOMPARE(withoutIcon.Text(), QStringLiteral("text"));
}

QTEST_MAIN(tst_CLmMessageBox)
#include "tst_CLmMessageBox.moc"
