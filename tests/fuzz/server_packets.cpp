// Whatever clients send, the server parses it without reading past a payload,
// indexing outside its table or loading a script from outside its fighters'
// folder, and its world still runs afterwards. Each frame of the input comes
// from the client slot named by the byte before it (-1 to 65, both ends
// outside the table of 64).
#include "../support/HostedWorld.h"
#include "FuzzSupport.h"
#include "network/Server.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = prepareGameContent();
    if (!ready) return 0;
    HostedWorld world;
    Network::Server server;
    server.initWithoutSocket(world.rules, world.arena);
    forEachPacket(data, size, 1, [&](const uint8_t* head, Packet* packet) {
        if (packet) server.parse(int(head[0] % 67) - 1, packet);
    });
    world.rules->start();
    for (int frame = 0; frame < 3; ++frame) world.rules->update(1.0f / 60.0f);
    return 0;
}
