#include "network/FrameWriter.h"

#include <algorithm>

#include "resources/LittleEndian.h"

FrameWriter::~FrameWriter() {
    for (Packet* packet : writing) Packet::destroy(packet);
}

long FrameWriter::step(PacketQueue& queue, const Write& write) {
    while (writing.size() < MAX_GATHER) {
        Packet* next = queue.pop();
        if (!next) break;
        writing.push_back(next);
    }
    if (writing.empty()) return 0;
    uint8_t headers[MAX_GATHER][Packet::HEADER_SIZE];
    iovec parts[2 * MAX_GATHER];
    size_t count = 0;
    for (size_t i = 0; i < writing.size(); ++i) {
        Packet* packet = writing[i];
        LittleEndian::writeI32(headers[i], packet->type);
        LittleEndian::writeU32(headers[i] + 4, packet->size);
        parts[count++] = iovec{headers[i], Packet::HEADER_SIZE};
        parts[count++] = iovec{packet->payload(), packet->size};
    }
    // The first frame goes on from where the last write left it.
    uint32_t skip = sent;
    for (size_t i = 0; i < 2 && skip > 0; ++i) {
        size_t part = std::min<size_t>(skip, parts[i].iov_len);
        parts[i].iov_base = static_cast<uint8_t*>(parts[i].iov_base) + part;
        parts[i].iov_len -= part;
        skip -= uint32_t(part);
    }
    long written = write(parts, count);
    if (written <= 0) return written;
    uint64_t done = uint64_t(written) + sent;
    while (!writing.empty()) {
        uint64_t frame = writing.front()->frameBytes();
        if (done < frame) break;
        done -= frame;
        Packet::destroy(writing.front());
        writing.pop_front();
    }
    sent = uint32_t(done);
    return written;
}
