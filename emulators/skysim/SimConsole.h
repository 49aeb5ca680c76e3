#pragma once

#include <QObject>
#include <QSet>
#include <QSocketNotifier>

// Commands typed on skysim's standard input, one per line:
//   failure-codes 7,45,46   the multirotor's active failure codes from now on
//   failure-codes none      no failure
// Unknown lines are reported on stderr and otherwise ignored.
class SimConsole : public QObject
{
    Q_OBJECT
public:
    explicit SimConsole(QObject* parent = nullptr);

    // "7,45,46" or "none" as a set of codes; false when the text is neither.
    static bool parseFailureCodes(const QString& text, QSet<int>* codes);

signals:
    void failureCodesChanged(const QSet<int>& codes);

private:
    void readInput();
    void runLine(const QString& line);

    QSocketNotifier m_notifier;
    QByteArray m_pending;
};
