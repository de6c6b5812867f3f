#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "network/FrameReader.h"
#include "resources/LittleEndian.h"

// One connection's receive path under fuzzing: bytes arrive in chunks, the
// reader takes them through its read function, and every packet it hands
// out is checked against the stream it came from.
class FuzzedConnection {
public:
    explicit FuzzedConnection(const char* logPrefix) : reader(logPrefix) {}

    bool open() const { return !dropped; }
    void arrive(const uint8_t* bytes, size_t count) { stream.append(reinterpret_cast<const char*>(bytes), count); }

    // One step of the reader over what has arrived; false once nothing more
    // can come of the bytes there are.
    bool step() {
        if (dropped) return false;
        Packet* packet = nullptr;
        size_t before = handedOut;
        FrameReader::Step result = reader.step(read, packet);
        if (result == FrameReader::COMPLETE) {
            check(packet);
            Packet::destroy(packet);
            return true;
        }
        if (result == FrameReader::REFUSED) {
            int32_t size = LittleEndian::readI32(frameStart() + 4);
            if (size >= 0 && uint32_t(size) <= Packet::MAX_SIZE) abort();  // a sane size refused
            dropped = true;
            return false;
        }
        return handedOut != before;
    }

private:
    const uint8_t* frameStart() const { return reinterpret_cast<const uint8_t*>(stream.data()) + checked; }

    // The packet must be exactly the next frame of the stream.
    void check(const Packet* packet) {
        const uint8_t* frame = frameStart();
        if (stream.size() - checked < Packet::HEADER_SIZE + packet->size) abort();
        if (LittleEndian::readI32(frame) != packet->type || LittleEndian::readU32(frame + 4) != packet->size) abort();
        if (memcmp(frame + Packet::HEADER_SIZE, packet->payload(), packet->size) != 0) abort();
        checked += Packet::HEADER_SIZE + packet->size;
        if (checked != handedOut) abort();  // read past its frame
    }

    std::string stream;
    size_t handedOut = 0;  // bytes the reader has taken
    size_t checked = 0;    // bytes of the frames handed out and checked
    bool dropped = false;
    FrameReader reader;
    FrameReader::Read read = [this](uint8_t* into, uint32_t count) {
        size_t given = std::min<size_t>(count, stream.size() - handedOut);
        memcpy(into, stream.data() + handedOut, given);
        handedOut += given;
        return int(given);
    };
};

inline void quietLog() {
    static bool quiet = freopen("/dev/null", "w", stdout) != nullptr;
    (void)quiet;
}
