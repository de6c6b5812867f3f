// Whatever a server sends, a client parses it without reading past a payload,
// indexing outside its table or loading a script or sound from outside the
// game's folders, and its world, with its bot, runs a frame after every
// packet. The first byte picks the client's mode.
#include "FuzzSupport.h"
#include "network/Client.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = prepareGameContent();
    if (!ready || size < 1) return 0;
    Network::Client client;
    client.mode = data[0] % 3;
    client.init("127.0.0.1", 1);
    forEachPacket(data + 1, size - 1, 0, [&](const uint8_t*, Packet* packet) {
        if (packet) client.parse(packet);
        client.simulate(1.0f / 60.0f);
    });
    return 0;
}
