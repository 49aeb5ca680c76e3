#include "CLmCarrowmereMainWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <unistd.h>

namespace {

// The news page's browser engine refuses to start its sandbox as root and
// would end the process; the hub keeps running without the sandbox instead.
void AllowWebEngineAsRoot()
{
    if (geteuid() != 0 || qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        return;
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    qWarning("running as root: the news page's browser engine runs without its sandbox");
}

// --help and --version answer and end the process before the window's
// application object exists, so that they work in a terminal without a
// display. Options the parser does not know are left to QApplication (Qt's
// own, such as -platform).
void AnswerHelpOrVersion(int argc, char* argv[])
{
    QCoreApplication probe(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "main", "Desktop hub for survey-drone crews: cloud projects, aircraft, flight logs, GNSS base stations.\n"
                "Deployment data: /etc/skyconsole/deployment.ini, overridden by "
                "~/.config/SkyConsole/deployment.ini and SKYCONSOLE_<GROUP>_<KEY> variables."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(help))
        parser.showHelp(0);
    if (parser.isSet(version))
        parser.showVersion();
}

}  // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("SkyConsole"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SKYCONSOLE_VERSION));
    AnswerHelpOrVersion(argc, argv);
    AllowWebEngineAsRoot();
    // The news page's browser engine shares its GL context with the window.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
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
