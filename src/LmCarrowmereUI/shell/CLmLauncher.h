#pragma once

#include <QList>
#include <QObject>
#include <QProcess>
#include <QString>

class QThread;
class QUrl;
class QWidget;
class CLmLinkManager;

// Starts the suite's sibling programs by their launcher keys ("VireoPlan",
// "VireoFly", "Vireo_Check", "Vireo_Process", "Vireo_Map", "Vireo_Monitor"),
// the two viewers and the help pages. The attached programs run in the
// window's process and share the aircraft radio: while one runs the window
// is hidden, every connected aircraft link (serial, UDP, TCP) is disconnected
// and, for "VireoFly", the flight-data upload pauses; all of it comes back
// when the program ends. A program or browser that cannot start is logged
// with its path or address (never with the session token).
class CLmLauncher : public QObject
{
    Q_OBJECT
public:
    // process runs the attached programs and uploadThread is paused while
    // "VireoFly" runs; both belong to pWindow, which parents the launcher and
    // its message boxes. pLinkManager addresses the aircraft links.
    CLmLauncher(QProcess& process, QThread& uploadThread, CLmLinkManager* pLinkManager, QWidget* pWindow);

    void Launch(const QString& key);
    void Open3DViewer();
    void OpenImageViewer();
    void OpenHelp();

    // The attached program has started or ended: the radio, the window and
    // the upload go to it and come back.
    void HandOver();
    void TakeBack(int exitCode, QProcess::ExitStatus exitStatus);

Q_SIGNALS:
    // The key needs a signed-in user and nobody is signed in.
    void SignInNeeded();
    void freeSerialPort();
    void connectSerialPort();

private:
    void StartAttached(const QString& key);
    void StartBesideMap(const QString& key);
    void OpenMonitor(const QString& token);
    void StartViewer(const QString& relativeProgram);
    void StartDetached(const QString& program, const QStringList& arguments, const QString& workingFolder);
    void OpenInBrowser(const QUrl& url);
    void ReportFailedStart(QProcess::ProcessError error);
    void ReleaseLinks();
    void RestoreLinks();
    bool IsFlying() const;

    QProcess& m_process;
    QThread& m_uploadThread;
    CLmLinkManager* m_pLinkManager;
    QWidget* m_pWindow;
    // The links the running program was given, to be connected again.
    QList<int> m_listHandedOverLinkIds;
};
