#include "LmCloudRequest.h"

#include "CLmNetWorkRequest.h"

namespace LmCloudRequest {

CLmNetWorkRequest* NewAnonymous(const QByteArray& path)
{
    auto* request = new CLmNetWorkRequest;
    request->SetUrl(GetServerIP() + path);
    return request;
}

CLmNetWorkRequest* NewSignedIn(const QByteArray& path)
{
    return AddressSignedIn(new CLmNetWorkRequest, path);
}

}  // namespace LmCloudRequest
