#pragma once

#include <QByteArray>
#include <QString>

// Where the station's raw files land on this computer.
namespace LmStationFiles {

// dir + "/" + name when name is a plain file name; empty when it is not
// (a path, "..", or characters a file name cannot hold), so that a name
// from the station never leaves the chosen folder.
QString TargetPath(const QString& dir, const QString& name);
// Writes bytes to a temporary file beside path and gives it path's name
// only when all of it was written; an older file of that name is replaced.
bool WriteWhole(const QString& path, const QByteArray& bytes);

}  // namespace LmStationFiles
