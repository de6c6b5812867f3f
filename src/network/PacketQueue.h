#pragma once
#include <cstdint>
#include <deque>

#include "network/Packet.h"

// A FIFO of packets that owns what it holds, counts their frame bytes
// (header and payload) and refuses a packet that would take it past its limit.
class PacketQueue {
public:
    static constexpr uint64_t UNBOUNDED = UINT64_MAX;

    explicit PacketQueue(uint64_t limit = UNBOUNDED) : limit(limit) {}
    PacketQueue(const PacketQueue&) = delete;
    PacketQueue& operator=(const PacketQueue&) = delete;
    ~PacketQueue() { clear(); }

    // Takes the packet, or refuses it (false) and leaves it to the caller.
    bool push(Packet* packet) {
        const uint64_t frame = packet->frameBytes();
        if (frame > limit - held) return false;
        packets.push_back(packet);
        held += frame;
        return true;
    }
    // The front packet, now the caller's; null when empty.
    Packet* pop() {
        if (packets.empty()) return nullptr;
        Packet* packet = packets.front();
        packets.pop_front();
        held -= packet->frameBytes();
        return packet;
    }
    void clear() {
        for (Packet* packet : packets) Packet::destroy(packet);
        packets.clear();
        held = 0;
    }
    bool empty() const { return packets.empty(); }
    uint64_t bytes() const { return held; }

private:
    std::deque<Packet*> packets;
    uint64_t held = 0;
    uint64_t limit;
};
