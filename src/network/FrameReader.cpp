#include "network/FrameReader.h"

#include "resources/LittleEndian.h"
#include "shell/Log.h"

FrameReader::Step FrameReader::step(const Read& read, Packet*& complete) {
    if (!packet) {
        int got = read(header + received, Packet::HEADER_SIZE - received);
        if (got < 0) return LOST;
        received += uint32_t(got);
        if (received < Packet::HEADER_SIZE) return HEADER_PENDING;
        Step started = startPacket();
        if (started != PAYLOAD_PENDING) return started;
    }
    if (received < packet->size) {
        int got = read(packet->payload() + received, packet->size - received);
        if (got < 0) return LOST;
        received += uint32_t(got);
        if (received < packet->size) return PAYLOAD_PENDING;
    }
    complete = packet;
    packet = nullptr;
    received = 0;
    return COMPLETE;
}

FrameReader::Step FrameReader::startPacket() {
    int32_t type = LittleEndian::readI32(header);
    int32_t size = LittleEndian::readI32(header + 4);
    received = 0;
    // A negative size or one beyond any sane packet would have us allocate
    // whatever a hostile peer asks for; the stream cannot be trusted after it.
    if (size < 0 || uint32_t(size) > Packet::MAX_SIZE) {
        Log::fail("%s: Bledna wielkosc pakietu (typ %d wielkosc %d)", logPrefix, type, size);
        return REFUSED;
    }
    if (uint32_t(size) > Packet::LARGE_SIZE)
        Log::fail("%s: Duzy pakiet (typ %d wielkosc %d)", logPrefix, type, size);
    packet = Packet::allocate(type, uint32_t(size));
    return packet ? PAYLOAD_PENDING : REFUSED;
}

void FrameReader::reset() {
    Packet::destroy(packet);
    packet = nullptr;
    received = 0;
}
