#pragma once
#include <atomic>
#include <cstdint>

// Packet types as they travel. A type of 0 or below is a ping and never
// leaves the transports.
enum PacketType : int32_t {
    PING_CLIENT = -1,
    PING_SERVER = 0,
    CONTROLLER_STATE = 1,
    CONTROLLER_RELAY = 2,
    CHARACTER_STATE = 3,
    ARENA_STATE = 4,
    GAMEMODE_STATE = 5,
    GAME_START = 6,
    GAME_PAUSE = 7,
    GAME_STOP = 8,
    RESERVED_10 = 10,
    RESERVED_11 = 11,
    SOUND = 12,
    HANDSHAKE = 50,
    DISCONNECT = 51,
    CONNECT = 52,
    SERVER_INFO = 53,
    CHARACTER_INFO = 54,
    ARENA_INFO = 55,
    RESERVED_90 = 90,
    DATA_RAW = 100,
    DATA_ARENA = 101,
    DATA_CHARACTER = 102,
};

// One packet in memory: the header and the payload in one heap block.
// Whoever pops a packet from a queue frees it with destroy. A packet for
// several clients is made once and queued for each: every queue holds it,
// and the last to let it go frees it.
struct Packet {
    // A frame on the wire: type and size, 4 bytes each, then the payload.
    static constexpr uint32_t HEADER_SIZE = 8;
    // Larger payloads are logged on arrival but still delivered.
    static constexpr uint32_t LARGE_SIZE = 4096;
    // Larger (or negative) sizes are hostile: the connection is dropped.
    static constexpr uint32_t MAX_SIZE = 1u << 20;
    // The network port of every game.
    static constexpr uint16_t PORT = 16700;

    int32_t type;
    uint32_t size;
    // Queues that hold this packet; it is freed when the last lets it go.
    std::atomic<uint32_t> holders{1};

    uint8_t* payload() { return reinterpret_cast<uint8_t*>(this + 1); }
    const uint8_t* payload() const { return reinterpret_cast<const uint8_t*>(this + 1); }
    // Its length on the wire, header and payload.
    uint64_t frameBytes() const { return HEADER_SIZE + uint64_t(size); }

    // A new packet with a copy of `size` bytes of data; a null `data` makes a
    // payload of 0 bytes whatever `size` says. Null, with one log line, when
    // memory runs out.
    static Packet* create(int32_t type, uint32_t size, const void* data);
    // A packet whose payload the caller fills in.
    static Packet* allocate(int32_t type, uint32_t size);
    // One more holder of the same packet; a shared packet must not change.
    static Packet* share(Packet* packet);
    // Lets the packet go; the last holder frees it.
    static void destroy(Packet* packet);
};
