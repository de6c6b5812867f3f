#pragma once
#include <cstdint>
#include <map>
#include <string>

#include "network/Client.h"

// One bot of a load: a game client in bot mode, as a hosting machine makes
// them, and a tally of what the server sent it while the tally is open.
class LoadClient {
public:
    // What the snapshots of one client came to over the window.
    struct Tally {
        double seconds = 0.0;
        int players = 0;              // fighters whose snapshots arrived
        uint64_t fighterSnapshots = 0;  // CHARACTER_STATE packets
        uint64_t snapshotBytes = 0;     // frames of the three snapshot types, headers included
        int smallestShare = 0;          // fewest snapshots of one player

        double rateHz() const { return players > 0 && seconds > 0 ? fighterSnapshots / (players * seconds) : 0.0; }
        double bytesPerQuarter() const { return seconds > 0 ? snapshotBytes / (4.0 * seconds) : 0.0; }
        // What the protocol sends per quarter second: a snapshot of every
        // fighter, 64 bytes each, and this player's arena and rules, 12 and 16.
        double expectedBytesPerQuarter() const { return 64.0 * players + 28.0; }
    };

    LoadClient(const std::string& host, int port);
    LoadClient(const LoadClient&) = delete;
    LoadClient& operator=(const LoadClient&) = delete;

    void update(float dt);
    // In the game with its own fighter loaded.
    bool joined() const;
    void openTally(double now);
    Tally closeTally(double now);

    int id() const { return client.id; }
    int ping() const { return client.socket.ping; }
    // Connections made again after the first.
    int reconnects() const { return connections > 0 ? connections - 1 : 0; }
    bool everJoined() const { return hasJoined; }

private:
    void count(const Packet& packet);

    Network::Client client;
    bool counting = false;
    double openedAt = 0.0;
    std::map<int32_t, int> fighterSnapshots;  // by player id
    uint64_t snapshotBytes = 0;
    int connections = 0;
    bool connected = false;
    bool hasJoined = false;
};
