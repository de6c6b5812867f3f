#pragma once
#include <sys/uio.h>

#include <cstdint>
#include <deque>
#include <functional>

#include "network/Packet.h"
#include "network/PacketQueue.h"

// Writes frames to a byte stream that takes what it can at a time: up to
// MAX_GATHER waiting frames in one write, each as its 8 header bytes (type
// and size, little-endian) and its payload, going on from wherever the last
// write stopped. It owns no socket, like FrameReader: the transport gives it
// a write function, and tests can take the bytes by hand.
class FrameWriter {
public:
    static constexpr size_t MAX_GATHER = 64;
    // Writes what it can of the parts: the number of bytes taken, 0 when
    // none can be taken now, below 0 when the connection is lost.
    using Write = std::function<long(const iovec* parts, size_t count)>;

    FrameWriter() = default;
    FrameWriter(const FrameWriter&) = delete;
    FrameWriter& operator=(const FrameWriter&) = delete;
    ~FrameWriter();

    // Takes frames from `queue` until MAX_GATHER are in hand, and writes
    // once: the bytes written, or below 0 when the connection is lost.
    long step(PacketQueue& queue, const Write& write);
    // Frames taken from the queue and not yet written whole.
    bool pending() const { return !writing.empty(); }

private:
    std::deque<Packet*> writing;
    uint32_t sent = 0;  // bytes of the first frame already written
};
