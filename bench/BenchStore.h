#pragma once

#include <QString>

class QTemporaryDir;

// What the project benchmarks share: a home of their own and a generated
// project store.
namespace BenchStore {

// Points HOME and the XDG folders into home, so nothing of the user's is read
// or written.
void UseHome(const QTemporaryDir& home);

// Writes count projects of user 1 into root, each with ten missions (six
// flown), spread over a few regions and a few hours.
bool GenerateProjects(const QString& root, int count);

}  // namespace BenchStore
