#pragma once

#include <QString>

// Removal of a local project's folder (the folder holding its project
// database) from the project store.
namespace LmProjectFolder {

enum class ERemoval {
    Removed,
    // Another program holds the project database, or the folder could not be
    // removed whole; whatever could not be removed stays.
    InUse,
    // The folder is not a project folder directly under the project root once
    // links are resolved (or it is the root itself); nothing is touched.
    Refused,
    // Nothing was there to remove.
    Missing,
};

// True when another connection holds the project database: an exclusive
// transaction cannot start at once.
bool IsInUse(const QString& projectFilePath);

// Removes the folder of projectFilePath when its real path is a folder
// directly under the real projectRoot. Symbolic links are never followed:
// a link inside the folder is removed as a link, and a folder that resolves
// outside the root is refused.
ERemoval Remove(const QString& projectFilePath, const QString& projectRoot);

}  // namespace LmProjectFolder
