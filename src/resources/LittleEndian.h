#pragma once
#include <cstdint>
#include <cstring>

// Our files and the wire are little-endian whatever the machine's own order,
// so every number is put together and taken apart byte by byte.
namespace LittleEndian {

inline uint32_t readU32(const uint8_t* bytes) {
    return uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
           uint32_t(bytes[3]) << 24;
}

inline int32_t readI32(const uint8_t* bytes) { return int32_t(readU32(bytes)); }

inline float readF32(const uint8_t* bytes) {
    uint32_t bits = readU32(bytes);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

inline void writeU32(uint8_t* bytes, uint32_t value) {
    bytes[0] = uint8_t(value);
    bytes[1] = uint8_t(value >> 8);
    bytes[2] = uint8_t(value >> 16);
    bytes[3] = uint8_t(value >> 24);
}

inline void writeI32(uint8_t* bytes, int32_t value) { writeU32(bytes, uint32_t(value)); }

inline void writeF32(uint8_t* bytes, float value) {
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    writeU32(bytes, bits);
}

}  // namespace LittleEndian
