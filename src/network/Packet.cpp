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

void Packet::destroy(Packet* packet) {
    if (!packet) return;
    packet->~Packet();
    ::operator delete(packet);
}
