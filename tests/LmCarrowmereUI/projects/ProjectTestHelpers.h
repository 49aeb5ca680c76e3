#pragma once

#include "CLmProjectGenerator.h"
#include "TestSession.h"

#include <QByteArray>
#include <QJsonArray>
#include <QString>

// Session, cloud address and project files for the synchronisation tests.
namespace ProjectTestHelpers {

using TestSession::PointCloudAt;
using TestSession::SetSession;
QString ProjectRoot();
void ClearProjectRoot();

CLmProjectGenerator::SOptions Project(const QString& id, const QString& name, const QString& updatedAt,
                                      const QString& userId = QStringLiteral("1"));
// Writes the project into <root>/<folder>/ and returns the project file path.
QString WriteLocal(const CLmProjectGenerator::SOptions& options, const QString& folder = QString());
// The bytes of a project database as the cloud would send them.
QByteArray ProjectFileBytes(const CLmProjectGenerator::SOptions& options);
QByteArray ListReply(const QJsonArray& projects);
QJsonObject CloudEntry(const QString& id, const QString& name, const QString& updatedAt, int missions = 3);
QByteArray ReadFile(const QString& path);
qint64 VersionOf(const QString& projectFile);

}  // namespace ProjectTestHelpers
