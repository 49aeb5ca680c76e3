// skysibling: a stand-in for the programs the hub launches ("VireoPlan",
// "VireoFly", "Vireo_Check", "Vireo_Map", the viewers ...). It is laid out
// under their names and shows the arguments it was given; closing its window
// ends it, as ending the real program would.
#include "SiblingWindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const QString programName = QFileInfo(QString::fromLocal8Bit(argv[0])).fileName();
    const QStringList arguments = app.arguments().mid(1);

    // The first line tells scripts and tests what the hub handed over.
    QTextStream(stdout) << "skysibling " << programName << ": "
                        << SiblingWindow::DescribeArguments(arguments).join(QStringLiteral("; ")) << Qt::endl;

    SiblingWindow window(programName, arguments);
    window.show();
    // Scripted runs close the stand-in after a while, as a user would.
    const int quitAfterMs = qEnvironmentVariableIntValue("SKYSIBLING_QUIT_AFTER_MS");
    if (quitAfterMs > 0)
        QTimer::singleShot(quitAfterMs, &window, &QWidget::close);
    return app.exec();
}
