#pragma once

#include <QByteArray>
#include <QString>

// The deployment data and signed-in session a test runs with.
namespace TestSession {

// Sends every cloud request of this process to baseUrl.
void PointCloudAt(const QByteArray& baseUrl);
// Stores a session as a sign-in would (token and user id).
void SetSession(const QString& token, const QString& userId);

}  // namespace TestSession
