#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "network/Client.h"

// One bot of a load: a game client in bot mode, as a hosting machine makes
// them, and a tally of the snapshots the server sent it while the tally is
// open.
class LoadClient {
public:
    // Rates come from the spacing of arrivals within each stream of
    // snapshots (one per fighter, the arena's, the rules'), not from a count
    // over the window, whose edges would cut off a snapshot of some players
    // and not of others.
    struct Tally {
        int players = 0;         // fighters whose snapshots arrived
        double fighterHz = 0.0;  // snapshots of one fighter per second, over all fighters
        double bytesPerSecond = 0.0;  // of the snapshots
        // Of every packet the game saw, pings aside: snapshots, relayed
        // controls, the scripts' sounds.
        double allBytesPerSecond = 0.0;

        double bytesPerQuarter() const { return bytesPerSecond / 4.0; }
        // What the protocol sends per quarter second: a snapshot of every
        // fighter, 64 bytes each, and this player's arena and rules, 12 and 16.
        double expectedBytesPerQuarter() const { return 64.0 * players + 28.0; }
    };

    LoadClient(const std::string& host, int port);
    LoadClient(const LoadClient&) = delete;
    LoadClient& operator=(const LoadClient&) = delete;

    // One frame; `now` is the run's clock in seconds.
    void update(float dt, double now);
    // In the game with its own fighter loaded.
    bool joined() const;
    void openTally();
    Tally closeTally();

    int id() const { return client->id; }
    int ping() const { return client->socket.ping; }
    // Connections made again after the first.
    int reconnects() const { return connections > 0 ? connections - 1 : 0; }
    bool everJoined() const { return hasJoined; }

private:
    struct Stream {
        int packets = 0;
        uint64_t bytes = 0;
        double first = 0.0;
        double last = 0.0;
    };
    void count(const Packet& packet);

    std::unique_ptr<Network::Client> client;
    bool counting = false;
    double frameTime = 0.0;
    double openedAt = 0.0;
    uint64_t allBytes = 0;
    // Keyed by packet type, and for fighters by type and id.
    std::map<std::pair<int32_t, int32_t>, Stream> streams;
    int connections = 0;
    bool connected = false;
    bool hasJoined = false;
};
