#pragma once

#include "mavlink_message_t.h"

#include <QByteArray>
#include <QVector>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace LmMavlink {
struct SMessageInfo;
}

// Streaming MAVLink 1 and 2 parser. Bytes may arrive in chunks of any size;
// frames are taken out with Next(). After garbage, a cut-off frame or a
// checksum error the parser searches again from the byte after the failed
// frame start, so a good frame hidden behind a bad one is still found.
// Frames of ids the dialect does not define cannot be checked and are
// skipped whole when a frame start follows them, byte by byte otherwise.
// Signed version 2 frames are accepted; their signature is passed on
// unverified.
class CLmMavlinkParser
{
public:
    struct SStats {
        uint64_t messages = 0;
        uint64_t crcErrors = 0;
        uint64_t droppedBytes = 0;      // skipped while searching for a frame start
        uint64_t unknownMessages = 0;   // well-framed, but of an undefined id
        uint64_t unsupportedFrames = 0; // version 2 headers with incompatibility flags we cannot handle
    };

    void Feed(const uint8_t* data, std::size_t size);
    void Feed(const QByteArray& bytes);
    // Takes out the next good frame; false when the buffered bytes hold none yet.
    bool Next(mavlink_message_t& message);
    // Feed() followed by Next() until no frame is left.
    QVector<mavlink_message_t> Parse(const QByteArray& bytes);

    // Declares the input finished: a frame still waiting for its remaining
    // bytes is given up, so the frames inside its claimed length come out.
    // Feeding again resumes normal streaming.
    void Finish() { m_bInputFinished = true; }

    std::size_t BufferedBytes() const { return m_buffer.size() - m_nReadPos; }
    const SStats& Stats() const { return m_stats; }
    void Reset();

private:
    enum class ECandidate { Frame, Incomplete, BadChecksum, Unsupported, UnknownId };

    struct SHeader {
        std::size_t headerLength = 0;
        std::size_t frameLength = 0;
        uint32_t msgid = 0;
    };

    void SkipToFrameStart();
    static ECandidate ReadHeader(const uint8_t* frame, std::size_t available, SHeader& header);
    static ECandidate Examine(const uint8_t* frame, std::size_t available, SHeader& header,
                              mavlink_message_t& message);
    static void FillMessage(const uint8_t* frame, const SHeader& header, const LmMavlink::SMessageInfo& info,
                            mavlink_message_t& message);
    void DropByte();

    std::vector<uint8_t> m_buffer;
    std::size_t m_nReadPos = 0;
    bool m_bInputFinished = false;
    SStats m_stats;
};
