#include "network/Payload.h"

#include <cstring>

#include "resources/LittleEndian.h"

namespace Payload {

bool Reader::readU32(uint32_t* value) {
    if (!ok || restSize() < 4) return ok = false;
    *value = LittleEndian::readU32(rest());
    at += 4;
    return true;
}

bool Reader::readI32(int32_t* value) {
    uint32_t bits = 0;
    if (!readU32(&bits)) return false;
    *value = static_cast<int32_t>(bits);
    return true;
}

bool Reader::readF32(float* value) {
    if (!ok || restSize() < 4) return ok = false;
    *value = LittleEndian::readF32(rest());
    at += 4;
    return true;
}

bool Reader::readText(std::string* text) {
    if (!ok) return false;
    const void* end = std::memchr(rest(), 0, restSize());
    if (!end) return ok = false;
    uint32_t length = static_cast<uint32_t>(static_cast<const uint8_t*>(end) - rest());
    text->assign(reinterpret_cast<const char*>(rest()), length);
    at += length + 1;
    return true;
}

void Writer::writeU32(uint32_t value) {
    uint8_t word[4];
    LittleEndian::writeU32(word, value);
    bytes.insert(bytes.end(), word, word + 4);
}

void Writer::writeI32(int32_t value) { writeU32(static_cast<uint32_t>(value)); }

void Writer::writeF32(float value) {
    uint8_t word[4];
    LittleEndian::writeF32(word, value);
    bytes.insert(bytes.end(), word, word + 4);
}

void Writer::writeText(const std::string& text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
}

void Writer::writeBytes(const void* source, uint32_t count) {
    const uint8_t* from = static_cast<const uint8_t*>(source);
    bytes.insert(bytes.end(), from, from + count);
}

void Writer::writeZeros(uint32_t count) { bytes.insert(bytes.end(), count, 0); }

}  // namespace Payload
