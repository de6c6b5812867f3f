#pragma once
#include <cstdint>
#include <string>

// The four little-endian bytes of a number, as the settings file and the archives hold it.
inline std::string u32(uint32_t value) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(char((value >> shift) & 0xFF));
    return bytes;
}
