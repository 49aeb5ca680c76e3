// Fuzz entry point for the push channel's stream: frames cut by the frame
// splitter, then read as notifications. The first input byte chooses the
// size of the reads the rest arrives in. Checked for every input:
//  - the frames handed on are exactly the stream up to its last marker,
//    however it was cut into reads;
//  - the notifications of the frames read one by one are those of the whole.
#include "CLmFrameSplitter.h"
#include "FuzzCheck.h"
#include "LmPushText.h"

#include <algorithm>
#include <cstdint>

namespace {

const QByteArray Marker = QByteArrayLiteral("SWOOLE_SOCKET_FINISH");

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    if (size == 0 || size > std::size_t(CLmFrameSplitter::MaxPendingBytes))
        return 0;
    const int chunk = 1 + data[0] % 64;
    const QByteArray stream(reinterpret_cast<const char*>(data + 1), int(size - 1));

    CLmFrameSplitter splitter(Marker);
    QByteArray frames;
    QVector<QJsonObject> notifications;
    for (int offset = 0; offset < stream.size(); offset += chunk) {
        const QByteArray taken = splitter.Take(stream.mid(offset, chunk));
        require(taken.isEmpty() || taken.endsWith(Marker));
        frames += taken;
        notifications += LmPushText::Notifications(taken);
    }
    const int last = stream.lastIndexOf(Marker);
    require(frames == (last < 0 ? QByteArray() : stream.left(last + Marker.size())));
    require(frames.isEmpty() || notifications == LmPushText::Notifications(frames));
    return 0;
}
