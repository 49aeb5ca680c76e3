#include "CLmCarrowmereMainWindow.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>

int main(int argc, char* argv[])
{
    // The news page's browser engine shares its GL context with the window.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("SkyConsole"));
    // Library chatter stays quiet unless QT_LOGGING_RULES asks for it; the
    // window's own events (aircraft connect) and the push notices are kept.
    QLoggingCategory::setFilterRules(QStringLiteral(
        "sky.*.debug=false\nsky.carrowmereui.mainwindow.debug=true\nsky.carrowmereui.notices.debug=true"));

    QFile style(QStringLiteral(":/styles/skyconsole.qss"));
    if (style.open(QIODevice::ReadOnly))
        app.setStyleSheet(QString::fromUtf8(style.readAll()));

    // The window deletes itself when closed.
    auto* window = new CLmCarrowmereMainWindow(nullptr);
    window->show();
    window->ConnectSerialPort();
    window->ConnectUploadData();
    window->TestNetworkConnect();
    return app.exec();
}
