#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "network/FrameReader.h"
#include "resources/LittleEndian.h"

// One connection's receive path under fuzzing: bytes arrive in chunks, the
// reader takes them through its read function, and each packet it hands out
// must be exactly the next frame of the stream.
class FuzzedConnection {
public:
    explicit FuzzedConnection(const char* logPrefix) : reader(logPrefix) {
        static bool quiet = freopen("/dev/null", "w", stdout) != nullptr;
        (void)quiet;
    }
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
