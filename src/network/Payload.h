#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "network/Packet.h"

// Payloads as they travel: 32-bit little-endian numbers and texts that end
// in a zero byte.
namespace Payload {

// Reads what arrived and never past it: each read checks what is left, and
// after one has failed every later one fails too.
class Reader {
public:
    explicit Reader(const Packet* packet) : data(packet->payload()), size(packet->size) {}

    bool readI32(int32_t* value);
    bool readU32(uint32_t* value);
    bool readF32(float* value);
    // Up to the next zero byte, which must lie inside the payload.
    bool readText(std::string* text);

    const uint8_t* rest() const { return data + at; }
    uint32_t restSize() const { return size - at; }

private:
    const uint8_t* data;
    uint32_t size;
    uint32_t at = 0;
    bool ok = true;
};

class Writer {
public:
    explicit Writer(uint32_t expected = 0) { bytes.reserve(expected); }

    void writeI32(int32_t value);
    void writeU32(uint32_t value);
    void writeF32(float value);
    // The text and its zero byte.
    void writeText(const std::string& text);
    void writeBytes(const void* source, uint32_t count);
    // Bytes that are sent but never read.
    void writeZeros(uint32_t count);

    const uint8_t* data() const { return bytes.data(); }
    uint32_t size() const { return static_cast<uint32_t>(bytes.size()); }

private:
    std::vector<uint8_t> bytes;
};

}  // namespace Payload
