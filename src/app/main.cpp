#include "CLmCarrowmereMainWindow.h"

#include <QApplication>
#include <QFile>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("SkyConsole"));

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
