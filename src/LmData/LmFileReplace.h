#pragma once

#include <QString>

// Replacing a file so that a reader (or a crash) sees either the old file or
// the new one, never half of one: the new content is written beside the
// target and renamed over it, which POSIX makes atomic within one folder.
namespace LmFileReplace {

// Renames fromPath over targetPath, replacing a file that is there.
bool Replace(const QString& fromPath, const QString& targetPath);

// Copies sourcePath to a temporary file in the target's folder and renames
// it over targetPath, readable by everyone; the target is untouched when
// anything fails.
bool CopyOver(const QString& sourcePath, const QString& targetPath);

}  // namespace LmFileReplace
