#pragma once
// What the fuzz targets share: silence, inputs as files, packets and frames
// cut from the input, the game's content, and a walk over a sprite's frames.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "audio/Sound.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"
#include "network/FrameReader.h"
#include "network/Packet.h"
#include "resources/LittleEndian.h"
#include "resources/Resource.h"
#include "shell/Log.h"

// Parsers report what they refuse on standard output and in the log: silence.
inline void quiet() {
    static const bool silenced = freopen("/dev/null", "w", stdout) != nullptr;
    (void)silenced;
    Log::setFlags(0);
}

// The input as a file of this process's own, for readers that take a path.
inline const std::string& asFile(const uint8_t* data, size_t size, const char* extension) {
    static const std::string path = "/tmp/fuzz-" + std::to_string(getpid()) + extension;
    static const bool removedAtExit = atexit([] { remove(path.c_str()); }) == 0;
    (void)removedAtExit;
    if (FILE* file = fopen(path.c_str(), "wb")) {
        fwrite(data, 1, size, file);
        fclose(file);
    }
    return path;
}

// Every frame in every direction, a few steps each; unsigned, huge sizes wrap.
inline uint32_t walkFrames(Graphics::SpriteInstance& instance, float dt) {
    uint32_t sum = 0;
    for (int32_t anim = 0; anim <= instance.animCount(); ++anim) {
        instance.setAnim(anim);
        for (int32_t slot = 0; slot < Graphics::DIR_SLOTS; ++slot) {
            instance.setDir(slot);
            for (int32_t step = 0; step < 3; ++step) {
                instance.update(dt);
                sum += uint32_t(instance.getW()) + uint32_t(instance.getH()) + uint32_t(instance.getSY());
            }
        }
    }
    return sum;
}

// The fuzz input as packets: frames as on the wire, a type and a size of 4
// bytes each and the payload, which the input may cut short. `prefix` bytes
// before each frame are the caller's, such as the sender's slot.
template <typename Handle>
void forEachPacket(const uint8_t* data, size_t size, size_t prefix, Handle handle) {
    for (size_t at = 0; size - at >= prefix + Packet::HEADER_SIZE;) {
        const uint8_t* head = data + at;
        at += prefix + Packet::HEADER_SIZE;
        size_t length = std::min<size_t>(LittleEndian::readU32(head + prefix + 4), size - at);
        handle(head, Packet::create(LittleEndian::readI32(head + prefix), uint32_t(length), data + at));
        at += length;
    }
}

// Silence, and the game's content in the resource store under the names the
// scripts use. The working directory stays: libFuzzer reads its corpus
// relative to it. Pictures stay out: decoding them is no part of the network
// code, and a client's world would decode them again for every input.
inline bool prepareGameContent() {
    quiet();
    const std::filesystem::path root = KORVANE_SOURCE_DIR "/data";
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || extension == ".png" || extension == ".jpg" || extension == ".bmp") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (bytes.empty()) continue;
        char* copy = new char[bytes.size() + 1]();
        bytes.copy(copy, bytes.size());
        Resource::preload(entry.path().lexically_relative(root).string(), uint32_t(bytes.size()), copy);
    }
    // The store's records and the sounds a world has played die with the
    // process; what they hold goes first.
    return !error && atexit(Resource::clear) == 0 && atexit(Sound::clear) == 0;
}

// One connection's receive path under fuzzing: bytes arrive in chunks, the
// reader takes them through its read function, and each packet it hands out
// must be exactly the next frame of the stream.
class FuzzedConnection {
public:
    explicit FuzzedConnection(const char* logPrefix) : reader(logPrefix) { quiet(); }
    bool open() const { return !dropped; }
    void arrive(const uint8_t* bytes, size_t count) { stream.append(reinterpret_cast<const char*>(bytes), count); }

    // One step over what has arrived; false when it took nothing new.
    bool step() {
        if (dropped) return false;
        size_t before = taken;
        Packet* packet = nullptr;
        FrameReader::Step result = reader.step(read, packet);
        const uint8_t* frame = reinterpret_cast<const uint8_t*>(stream.data()) + checked;
        if (result == FrameReader::REFUSED) {
            int32_t size = LittleEndian::readI32(frame + 4);
            if (size >= 0 && uint32_t(size) <= Packet::MAX_SIZE) abort();
            dropped = true;
        }
        if (result != FrameReader::COMPLETE) return taken != before && !dropped;
        checked += Packet::HEADER_SIZE + packet->size;
        if (checked != taken || LittleEndian::readI32(frame) != packet->type ||
            LittleEndian::readU32(frame + 4) != packet->size ||
            memcmp(frame + Packet::HEADER_SIZE, packet->payload(), packet->size) != 0)
            abort();
        Packet::destroy(packet);
        return true;
    }

private:
    std::string stream;
    size_t taken = 0;    // bytes the reader has read
    size_t checked = 0;  // bytes of the frames it handed out
    bool dropped = false;
    FrameReader reader;
    FrameReader::Read read = [this](uint8_t* into, uint32_t count) {
        size_t given = std::min<size_t>(count, stream.size() - taken);
        memcpy(into, stream.data() + taken, given);
        taken += given;
        return int(given);
    };
};
