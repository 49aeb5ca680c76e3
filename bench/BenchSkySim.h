#pragma once

#include <QProcess>
#include <QStringList>

// Starting the skysim emulator built next to the benchmark binaries.
namespace BenchSkySim {

// Starts skysim with the arguments (its log silenced) and reads its ready
// line; returns its UDP port, 0 when it did not start.
quint16 Start(QProcess& process, const QStringList& arguments);

} // namespace BenchSkySim
