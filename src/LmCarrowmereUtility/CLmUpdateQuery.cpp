#include "CLmUpdateQuery.h"

#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCarrowmereUtilityLog.h"
#include "LmCloudRequest.h"
#include "LmVersion.h"

#include <QJsonObject>
#include <QRegularExpression>
#include <QUrl>

namespace {

bool IsDownloadable(const QJsonObject& release)
{
    static const QRegularExpression sha256(QStringLiteral("^[0-9a-fA-F]{64}$"));
    return !release.value(QStringLiteral("url")).toString().isEmpty()
           && release.value(QStringLiteral("size")).toDouble() > 0
           && sha256.match(release.value(QStringLiteral("sha256")).toString()).hasMatch();
}

}  // namespace

CLmUpdateQuery::CLmUpdateQuery(QObject* parent)
    : QObject(parent)
{
}

void CLmUpdateQuery::Query(const QString& product, const QString& currentVersion)
{
    CLmNetWorkRequest* request = LmCloudRequest::NewAnonymous(
        "/app/checkupdate?product=" + QUrl::toPercentEncoding(product) + "&version="
        + QUrl::toPercentEncoding(currentVersion));
    connect(request, &CLmNetWorkRequest::ActionSucced, this,
            [this, currentVersion](const QByteArray& reply) { OnReply(reply, currentVersion); });
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmUpdateQuery::Failed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, [this] { emit Failed(tr("Network fault")); });
    request->PostNetWorkReplyMessage();
}

void CLmUpdateQuery::OnReply(const QByteArray& reply, const QString& currentVersion)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    const QJsonObject release = envelope.DataObject();
    if (!envelope.IsSuccess()) {
        emit Failed(envelope.Message());
    } else if (!LmVersion::IsNewer(release.value(QStringLiteral("version")).toString(), currentVersion)) {
        emit UpToDate();
    } else if (!IsDownloadable(release)) {
        qCWarning(lcUpdateCheck) << "release without a usable download:" << release.value(QStringLiteral("version"));
        emit Failed(tr("The update information is incomplete."));
    } else {
        emit NewerRelease(release);
    }
}
