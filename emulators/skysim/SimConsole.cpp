#include "SimConsole.h"

#include "SimLog.h"

#include <unistd.h>

namespace {

constexpr int STDIN_FD = 0;
constexpr int MAX_FAILURE_CODE = 127; // two reports of 64 codes

} // namespace

SimConsole::SimConsole(QObject* parent)
    : QObject(parent)
    , m_notifier(STDIN_FD, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &SimConsole::readInput);
}

bool SimConsole::parseFailureCodes(const QString& text, QSet<int>* codes)
{
    codes->clear();
    if (text.trimmed() == QLatin1String("none"))
        return true;
    for (const QString& item : text.split(QLatin1Char(','))) {
        bool ok = false;
        const int code = item.trimmed().toInt(&ok);
        if (!ok || code < 0 || code > MAX_FAILURE_CODE)
            return false;
        codes->insert(code);
    }
    return true;
}

void SimConsole::readInput()
{
    char buffer[512];
    const ssize_t count = ::read(STDIN_FD, buffer, sizeof buffer);
    if (count <= 0) {
        m_notifier.setEnabled(false); // end of input: nothing more will come
        return;
    }
    m_pending.append(buffer, static_cast<int>(count));
    int end = 0;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        runLine(QString::fromUtf8(m_pending.left(end)).trimmed());
        m_pending.remove(0, end + 1);
    }
}

void SimConsole::runLine(const QString& line)
{
    const QString command = line.section(QLatin1Char(' '), 0, 0);
    const QString argument = line.section(QLatin1Char(' '), 1).trimmed();
    QSet<int> codes;
    if (command == QLatin1String("failure-codes") && parseFailureCodes(argument, &codes)) {
        qCInfo(lcSkySim) << "failure codes now" << codes;
        emit failureCodesChanged(codes);
        return;
    }
    if (!line.isEmpty())
        qCWarning(lcSkySim) << "unknown console command" << line;
}
