#pragma once

#include <QByteArray>
#include <QString>

// The upload text of a project file: its bytes in base64 with the URL and
// file-name safe alphabet ("-" and "_") and without "=" padding, so that it
// can stand as a form value without any further escaping. Empty when the
// file cannot be read.
QByteArray GetUploadArray(const QString& projectFilePath);
// Reverses GetUploadArray's encoding.
QByteArray DecodeUploadArray(const QByteArray& uploadText);

// A folder name under dirPath that does not exist yet: fileName itself when it
// is free, else fileName followed by "(1)", "(2)", ... .
QString CreateUniqueFileName(const QString& dirPath, const QString& fileName);

// A project name made safe to use as one folder or file name: path separators,
// control characters and leading dots become "_" (so it can never name the
// parent, the folder itself or a hidden folder the scan would miss), trailing
// blanks are removed, and an empty name becomes "_".
QString SafeProjectName(const QString& projectName);
