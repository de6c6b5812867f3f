#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <unistd.h>

#include "network/Packet.h"
#include "resources/LittleEndian.h"
#include "shell/Log.h"

// The fuzz input as packets: frames as on the wire, a type and a size of 4
// bytes each and the payload, which the input may cut short. `prefix` bytes
// before each frame are the caller's, such as the sender's slot.
template <typename Handle>
void forEachPacket(const uint8_t* data, size_t size, size_t prefix, Handle handle) {
    size_t at = 0;
    while (size - at >= prefix + Packet::HEADER_SIZE) {
        const uint8_t* head = data + at;
        at += prefix + Packet::HEADER_SIZE;
        size_t length = LittleEndian::readU32(head + prefix + 4);
        if (length > size - at) length = size - at;
        handle(head, Packet::create(LittleEndian::readI32(head + prefix), uint32_t(length), data + at));
        at += length;
    }
}

// Silence, and the game's content where the scripts expect it.
inline bool prepareGameFolder() {
    if (!freopen("/dev/null", "w", stdout)) return false;
    Log::setFlags(0);
    return chdir(KORVANE_SOURCE_DIR "/data") == 0;
}
