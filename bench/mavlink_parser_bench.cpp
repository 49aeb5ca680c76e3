// Throughput of the MAVLink parser over a recorded-like telemetry stream,
// next to the cost of the checksums alone over the same bytes.
#include "CLmMavlinkCrc.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessages.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>

using namespace LmMavlink;

namespace {

constexpr int STREAM_BYTES = 4 * 1000 * 1000;
constexpr int READ_SIZE = 4096; // what one serial or socket read typically hands over
constexpr int RUNS = 7;

// Roughly what a connected aircraft sends while a log downloads: status at
// a few hertz, a parameter now and then, log data filling the rest.
QByteArray telemetryStream()
{
    CLmMavlinkEncoder aircraft(1, 1);
    std::mt19937 random(2024);
    QByteArray stream;
    stream.reserve(STREAM_BYTES + 512);
    for (uint32_t round = 0; stream.size() < STREAM_BYTES; ++round) {
        SHeartbeat heartbeat;
        heartbeat.type = MAV_TYPE_FIXED_WING;
        heartbeat.custom_mode = round;
        stream += aircraft.Encode(heartbeat);
        SSysStatus status;
        status.voltage_battery = static_cast<uint16_t>(22000 + random() % 2000);
        status.battery_remaining = static_cast<int8_t>(random() % 100);
        stream += aircraft.Encode(status);
        SBatteryStatus battery;
        battery.id = static_cast<uint8_t>(round % 3);
        std::fill(std::begin(battery.voltages), std::end(battery.voltages), static_cast<uint16_t>(3900 + round % 300));
        stream += aircraft.Encode(battery);
        if (round % 4 == 0) {
            SParamValue param;
            std::snprintf(param.param_id, sizeof param.param_id, "PARAM_%u", round % 500);
            param.param_value = static_cast<float>(round);
            param.param_type = MAV_PARAM_TYPE_REAL32;
            stream += aircraft.Encode(param);
        }
        for (int packet = 0; packet < 8; ++packet) {
            SLogData data;
            data.id = 3;
            data.ofs = (round * 8 + static_cast<uint32_t>(packet)) * 90;
            data.count = 90;
            std::generate(std::begin(data.data), std::end(data.data), [&random] { return uint8_t(random()); });
            stream += aircraft.Encode(data);
        }
    }
    return stream;
}

// Best of several runs, in MB/s (10^6 bytes per second).
double bestThroughput(const QByteArray& stream, const std::function<uint64_t()>& pass)
{
    double best = 0;
    volatile uint64_t sink = 0;
    for (int run = 0; run < RUNS; ++run) {
        const auto start = std::chrono::steady_clock::now();
        sink = sink + pass();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        best = std::max(best, stream.size() / elapsed.count() / 1e6);
    }
    return best;
}

uint64_t parseAll(const QByteArray& stream)
{
    CLmMavlinkParser parser;
    mavlink_message_t message;
    uint64_t checksums = 0;
    const auto* bytes = reinterpret_cast<const uint8_t*>(stream.constData());
    for (int offset = 0; offset < stream.size(); offset += READ_SIZE) {
        parser.Feed(bytes + offset, static_cast<std::size_t>(std::min(READ_SIZE, stream.size() - offset)));
        while (parser.Next(message))
            checksums += message.checksum;
    }
    if (parser.Stats().crcErrors || parser.Stats().droppedBytes) {
        std::fprintf(stderr, "mavlink_parser_bench: the generated stream did not parse cleanly\n");
        std::exit(1);
    }
    return checksums;
}

uint64_t checksumAll(const QByteArray& stream)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(stream.constData());
    uint64_t checksums = 0;
    for (int offset = 0; offset < stream.size(); offset += READ_SIZE)
        checksums += CLmMavlinkCrc::Compute(bytes + offset,
                                            static_cast<std::size_t>(std::min(READ_SIZE, stream.size() - offset)));
    return checksums;
}

} // namespace

int main()
{
    const QByteArray stream = telemetryStream();
    const double parser = bestThroughput(stream, [&stream] { return parseAll(stream); });
    const double floor = bestThroughput(stream, [&stream] { return checksumAll(stream); });
    std::printf("mavlink_parser_throughput: %.1f MB/s (target >= 250 MB/s)\n", parser);
    std::printf("mavlink_crc_floor: %.1f MB/s (baseline)\n", floor);
    return 0;
}
