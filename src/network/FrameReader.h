#pragma once
#include <cstdint>
#include <functional>

#include "network/Packet.h"

// Puts frames back together from a byte stream that arrives in any chunks:
// the 8 header bytes (type and size, little-endian), then `size` payload
// bytes. It owns no socket: each step takes its bytes through a read
// function, so both transports share it and tests can feed it by hand.
class FrameReader {
public:
    enum Step {
        HEADER_PENDING,   // the header is not complete yet
        PAYLOAD_PENDING,  // the header is in, the payload is not
        COMPLETE,         // a whole packet is handed out
        LOST,             // the read function reported a broken connection
        REFUSED,          // a hostile size or no memory; logged, drop the connection
    };
    // Reads up to `count` bytes into `into`: the number read, 0 when none
    // are there now, below 0 when the connection is lost.
    using Read = std::function<int(uint8_t* into, uint32_t count)>;

    // `logPrefix` names the transport's operation in the log lines.
    explicit FrameReader(const char* logPrefix) : logPrefix(logPrefix) {}
    FrameReader(const FrameReader&) = delete;
    FrameReader& operator=(const FrameReader&) = delete;
    ~FrameReader() { reset(); }

    // One step: at most one read of the header and one of the payload. On
    // COMPLETE `complete` holds the packet, now the caller's.
    Step step(const Read& read, Packet*& complete);
    // Forgets a half-read frame.
    void reset();

private:
    Step startPacket();

    const char* logPrefix;
    uint8_t header[Packet::HEADER_SIZE];
    uint32_t received = 0;  // of the header while `packet` is null, else of the payload
    Packet* packet = nullptr;
};
