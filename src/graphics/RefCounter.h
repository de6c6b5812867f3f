#pragma once
#include <cstdint>

// Base of every shared graphics object. release() never deletes: the holder
// looks at the count afterwards and hands the object back to its manager,
// which alone decides when it dies.
class RefCounter {
public:
    virtual void addRef() { ++count; }
    virtual void release() { --count; }
    int32_t refs() const { return count; }

protected:
    // Deleted only through the concrete type by its manager.
    ~RefCounter() = default;

private:
    int32_t count = 0;
};
