// Fuzz entry point for the cloud's reply envelope. Checked for every body:
//  - a body that is not a JSON object reads as not parsed and sets nothing;
//  - success is exactly a parsed status of 0;
//  - an envelope written out again reads back the same.
#include "CLmReplyEnvelope.h"
#include "FuzzCheck.h"

#include <QJsonDocument>

#include <cstdint>

namespace {

void checkUnparsed(const CLmReplyEnvelope& envelope)
{
    require(envelope.Status() == CLmReplyEnvelope::NoStatus);
    require(!envelope.IsSuccess());
    require(envelope.Message().isEmpty());
    require(envelope.Data().isUndefined());
}

bool sameEnvelope(const CLmReplyEnvelope& first, const CLmReplyEnvelope& second)
{
    return first.IsParsed() == second.IsParsed() && first.Status() == second.Status()
           && first.Message() == second.Message() && first.Data() == second.Data();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const QByteArray body = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(body);
    if (!envelope.IsParsed()) {
        checkUnparsed(envelope);
        return 0;
    }
    require(envelope.IsSuccess() == (envelope.Status() == 0));
    const QJsonObject object = QJsonDocument::fromJson(body).object();
    require(sameEnvelope(envelope, CLmReplyEnvelope::FromObject(object)));
    require(sameEnvelope(envelope, CLmReplyEnvelope::Parse(QJsonDocument(object).toJson(QJsonDocument::Compact))));
    return 0;
}
