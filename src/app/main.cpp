#include "CLmCarrowmereMainWindow.h"
#include "LmTransferMemory.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

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

// Reads the command line before the window's application object exists, so
// that --help and --version answer (and end the process) in a terminal
// without a display. Options the parser does not know are left to
// QApplication (Qt's own, such as -platform). Returns the language asked for
// with --lang, empty for the system's.
QString ParseCommandLine(int argc, char* argv[])
{
    QCoreApplication probe(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "main", "Desktop hub for survey-drone crews: cloud projects, aircraft, flight logs, GNSS base stations.\n"
                "Deployment data: /etc/skyconsole/deployment.ini, overridden by "
                "~/.config/SkyConsole/deployment.ini and SKYCONSOLE_<GROUP>_<KEY> variables."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption language(QStringLiteral("lang"),
                                      QCoreApplication::translate("main", "Language of the texts: en or zh_CN."),
                                      QStringLiteral("language"));
    parser.addOption(language);
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(help))
        parser.showHelp(0);
    if (parser.isSet(version))
        parser.showVersion();
    return parser.value(language);
}

// The hub's texts and Qt's own in the language asked for, else the system's.
// English is the language of the code and needs no file. The hub's files
// lie in share/skyconsole/translations beside bin/, in the build tree as
// when installed.
void InstallTranslations(QApplication& app, const QString& language)
{
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    QLocale::setDefault(locale);
    const QString hubFolder = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/skyconsole/translations");
    const QString qtFolder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const std::pair<QString, QString> files[] = {{QStringLiteral("skyconsole"), hubFolder},
                                                 {QStringLiteral("qtbase"), qtFolder}};
    for (const auto& [name, folder] : files) {
        auto* translator = new QTranslator(&app);
        if (translator->load(locale, name, QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    }
}

}  // namespace

int main(int argc, char* argv[])
{
    if (!LmTransferMemory::KeepTransferBuffersForReuse())
        qWarning("the allocator keeps its own thresholds: large downloads fault in fresh memory");
    QCoreApplication::setApplicationName(QStringLiteral("SkyConsole"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SKYCONSOLE_VERSION));
    const QString language = ParseCommandLine(argc, argv);
    AllowWebEngineAsRoot();
    // The news page's browser engine shares its GL context with the window.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    InstallTranslations(app, language);
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
