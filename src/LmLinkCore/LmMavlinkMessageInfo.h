#pragma once

#include <cstddef>
#include <cstdint>

// Wire layout of every message the generator knows, for code that handles
// messages by id rather than through their structs (parser, diagnostics).
namespace LmMavlink {

enum class EFieldType : uint8_t { Char, Int8, UInt8, Int16, UInt16, Int32, UInt32, Int64, UInt64, Float, Double };

struct SFieldInfo {
    const char* name;
    EFieldType type;
    uint8_t arrayLength; // 0 for a scalar
    uint8_t offset;      // in the untruncated payload
    bool extension;
};

struct SMessageInfo {
    uint32_t msgid;
    const char* name;
    uint8_t crcExtra;
    uint8_t minLength; // payload without extension fields
    uint8_t maxLength; // payload with extension fields
    uint8_t fieldCount;
    const SFieldInfo* fields; // in wire order
};

// Null when the id or name is not defined by the dialect.
const SMessageInfo* FindMessageInfo(uint32_t msgid);
const SMessageInfo* FindMessageInfo(const char* name);
std::size_t MessageInfoCount();
const SMessageInfo& MessageInfoAt(std::size_t index);

} // namespace LmMavlink
