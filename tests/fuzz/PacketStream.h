#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "network/Packet.h"
#include "resources/LittleEndian.h"
#include "resources/Resource.h"
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

// Silence, and the game's content in the resource store under the names the
// scripts use. The working directory stays: libFuzzer reads its corpus
// relative to it. Pictures stay out: decoding them is no part of the network
// code, and a client's world would decode them again for every input.
inline bool prepareGameContent() {
    if (!freopen("/dev/null", "w", stdout)) return false;
    Log::setFlags(0);
    const std::filesystem::path root = KORVANE_SOURCE_DIR "/data";
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || extension == ".png" || extension == ".jpg" || extension == ".bmp") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (bytes.empty()) continue;
        char* copy = new char[bytes.size() + 1];
        std::memcpy(copy, bytes.data(), bytes.size());
        copy[bytes.size()] = 0;
        Resource::preload(entry.path().lexically_relative(root).string(), uint32_t(bytes.size()), copy);
    }
    // The store's records die with the process; what they hold goes first.
    return !error && atexit(Resource::clear) == 0;
}
