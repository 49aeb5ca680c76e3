#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

class QThread;
class QWidget;

// Starts the suite's sibling programs by their launcher keys ("VireoPlan",
// "VireoFly", "Vireo_Check", "Vireo_Process", "Vireo_Map", "Vireo_Monitor"),
// the two viewers and the help pages. The attached programs run in the
// window's process and share the aircraft radio: while one runs the window
// is hidden, the radio is handed to it and, for "VireoFly", the flight-data
// upload pauses.
class CLmLauncher : public QObject
{
    Q_OBJECT
public:
    // process runs the attached programs and uploadThread is paused while
    // "VireoFly" runs; both belong to pWindow, which parents the launcher and
    // its message boxes.
    CLmLauncher(QProcess& process, QThread& uploadThread, QWidget* pWindow);

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
    bool IsFlying() const;

    QProcess& m_process;
    QThread& m_uploadThread;
    QWidget* m_pWindow;
};
