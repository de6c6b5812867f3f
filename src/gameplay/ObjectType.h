#pragma once
#include <cstdint>

// The side of the game an object lives on. Scripts see the same number as
// their rank.
enum ObjectTypeValue : int32_t {
    OBJECT_LOCAL = 0,   // a game without network: scripts run, things are drawn
    OBJECT_CLIENT = 1,  // a client's copy of the world: drawn, scripts' update not run
    OBJECT_SERVER = 2,  // the authoritative world: scripts run, nothing is drawn
};

// Set by the creator right after construction, before init, and never changed.
class ObjectType {
public:
    int32_t objectType = OBJECT_LOCAL;
};
