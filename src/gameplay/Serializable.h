#pragma once
#include <cstdint>

// An object whose state travels in snapshots. serialize writes into the
// object's own buffer, made on the first call and reused after, and returns it.
class Serializable {
public:
    virtual void* serialize(uint32_t* size) = 0;
    virtual void deserialize(const void* data) = 0;
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
};
