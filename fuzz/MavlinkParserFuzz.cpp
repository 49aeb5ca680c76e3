// Fuzz entry point for the MAVLink parser. The first input byte chooses the
// size of the chunks the rest is fed in, so splits across reads are explored
// as well. Checked for every input:
//  - feeding in chunks yields exactly the frames feeding at once yields;
//  - every frame taken out is of a defined message and, written out again,
//    parses back to the same bytes.
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessageInfo.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::string frameBytes(const mavlink_message_t& message)
{
    uint8_t frame[mavlink_message_t::MAX_FRAME_LENGTH];
    return std::string(reinterpret_cast<const char*>(frame), CLmMavlinkEncoder::Serialize(message, frame));
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkFrame(const mavlink_message_t& message)
{
    require(LmMavlink::FindMessageInfo(message.msgid) != nullptr);
    const std::string bytes = frameBytes(message);
    require(bytes.size() == message.FrameLength());
    CLmMavlinkParser again;
    again.Feed(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    mavlink_message_t reparsed;
    require(again.Next(reparsed));
    require(frameBytes(reparsed) == bytes);
    require(!again.Next(reparsed));
}

std::vector<std::string> parseInChunks(const uint8_t* data, std::size_t size, std::size_t chunk)
{
    CLmMavlinkParser parser;
    mavlink_message_t message;
    std::vector<std::string> frames;
    for (std::size_t offset = 0; offset < size; offset += chunk) {
        parser.Feed(data + offset, std::min(chunk, size - offset));
        while (parser.Next(message))
            frames.push_back(frameBytes(message));
    }
    parser.Finish();
    while (parser.Next(message)) {
        checkFrame(message);
        frames.push_back(frameBytes(message));
    }
    return frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t chunk = 1 + data[0] % 64;
    ++data;
    --size;

    CLmMavlinkParser parser;
    parser.Feed(data, size);
    parser.Finish();
    mavlink_message_t message;
    std::vector<std::string> whole;
    while (parser.Next(message)) {
        checkFrame(message);
        whole.push_back(frameBytes(message));
    }
    require(parseInChunks(data, size, chunk) == whole);
    return 0;
}
