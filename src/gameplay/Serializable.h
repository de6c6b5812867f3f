#pragma once
#include <cstdint>

// An object whose state travels in snapshots. serialize writes into the
// object's own buffer, made on the first call and reused after, and returns it.
// deserialize is told how many bytes arrived and refuses fewer than its
// snapshot holds, with a log line; the bytes are little-endian whatever the
// machine's order.
class Serializable {
public:
    virtual void* serialize(uint32_t* size) = 0;
    virtual bool deserialize(const void* data, uint32_t size) = 0;
    virtual ~Serializable() { freeBuffer(); }

    // Owned by the object; null until the first serialize.
    uint8_t* buffer = nullptr;

protected:
    // The buffer of the given size, allocated once; snapshots have fixed sizes.
    uint8_t* ensureBuffer(uint32_t size) {
        if (!buffer) buffer = new uint8_t[size];
        return buffer;
    }
    void freeBuffer() {
        delete[] buffer;
        buffer = nullptr;
    }
    // False, with one log line naming `who`, when `size` is below `needed`.
    static bool hasSnapshot(const char* who, uint32_t size, uint32_t needed);
};
