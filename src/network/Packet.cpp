#include "network/Packet.h"

#include <cstring>
#include <new>

#include "shell/Log.h"

Packet* Packet::allocate(int32_t type, uint32_t size) {
    void* block = ::operator new(sizeof(Packet) + size_t(size), std::nothrow);
    if (!block) {
        Log::fail("Packet.allocate: Brak pamieci (typ %d wielkosc %u)", type, size);
        return nullptr;
    }
    Packet* packet = new (block) Packet;
    packet->type = type;
    packet->size = size;
    return packet;
}

Packet* Packet::create(int32_t type, uint32_t size, const void* data) {
    if (!data) size = 0;
    Packet* packet = allocate(type, size);
    if (packet && size > 0) std::memcpy(packet->payload(), data, size);
    return packet;
}

Packet* Packet::share(Packet* packet) {
    packet->holders.fetch_add(1, std::memory_order_relaxed);
    return packet;
}

void Packet::destroy(Packet* packet) {
    if (!packet) return;
    // The worker lets go of a packet on its thread, the game on its own.
    if (packet->holders.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
    packet->~Packet();
    ::operator delete(packet);
}
