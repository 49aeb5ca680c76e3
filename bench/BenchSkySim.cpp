#include "BenchSkySim.h"

#include <QCoreApplication>

namespace BenchSkySim {

quint16 Start(QProcess& process, const QStringList& arguments)
{
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/skysim"), arguments);
    if (!process.waitForReadyRead(10000))
        return 0;
    const QString line = QString::fromUtf8(process.readLine()).trimmed();
    if (!line.startsWith(QLatin1String("skysim ready on udp ")))
        return 0;
    return static_cast<quint16>(line.section(QLatin1Char(':'), -1).toUInt());
}

} // namespace BenchSkySim
