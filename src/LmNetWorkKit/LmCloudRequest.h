#pragma once

#include "CLmSessionStore.h"
#include "LmConstants.h"

#include <QByteArray>

class CLmNetWorkRequest;

// Requests to the cloud service, built the one way every caller uses: the URL
// is GetServerIP() followed by the path (a query, where a path has one,
// already appended by the caller) and a signed-in call carries the stored
// session token in the "token" header. The caller connects its slots, sets a
// body or time-out and posts it.
namespace LmCloudRequest {

// A new request without parent for a call made before sign-in (login,
// registration, update checks).
CLmNetWorkRequest* NewAnonymous(const QByteArray& path);

// A new request without parent on behalf of the signed-in user. Nobody signed
// in sends an empty token, which the service refuses.
CLmNetWorkRequest* NewSignedIn(const QByteArray& path);

// Points any request object with SetUrl/SetRawHeader (a file transfer of the
// project library, say) at path on behalf of the signed-in user.
template <class TRequest>
TRequest* AddressSignedIn(TRequest* request, const QByteArray& path)
{
    request->SetUrl(GetServerIP() + path);
    request->SetRawHeader(QByteArrayLiteral("token"), CLmSessionStore().Token().toUtf8());
    return request;
}

}  // namespace LmCloudRequest
