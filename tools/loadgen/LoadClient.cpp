#include "LoadClient.h"

#include <algorithm>

#include "gameplay/Character.h"
#include "network/Payload.h"

LoadClient::LoadClient(const std::string& host, int port) {
    client.mode = Network::Client::MODE_BOT;
    client.init(host, port);
    // Only the path travels; the server and every world load the script.
    auto* fighter = new Character();
    fighter->objectType = OBJECT_SERVER;
    fighter->path = "character/default/init.lua";
    client.setCharacter(fighter);
    client.onPacket = [this](const Packet& packet) { count(packet); };
}

void LoadClient::update(float dt) {
    client.update(dt);
    bool now = client.socket.isConnected();
    if (now && !connected) ++connections;
    connected = now;
    if (joined()) hasJoined = true;
}

bool LoadClient::joined() const {
    if (client.gameState != 1 || client.id < 0 || size_t(client.id) >= client.players.size()) return false;
    return !client.players[size_t(client.id)]->character->path.empty();
}

void LoadClient::openTally(double now) {
    counting = true;
    openedAt = now;
    fighterSnapshots.clear();
    snapshotBytes = 0;
}

LoadClient::Tally LoadClient::closeTally(double now) {
    counting = false;
    Tally tally;
    tally.seconds = now - openedAt;
    tally.players = int(fighterSnapshots.size());
    tally.snapshotBytes = snapshotBytes;
    tally.smallestShare = fighterSnapshots.empty() ? 0 : INT32_MAX;
    for (const auto& player : fighterSnapshots) {
        tally.fighterSnapshots += uint64_t(player.second);
        tally.smallestShare = std::min(tally.smallestShare, player.second);
    }
    return tally;
}

void LoadClient::count(const Packet& packet) {
    if (!counting) return;
    const uint64_t frame = Packet::HEADER_SIZE + uint64_t(packet.size);
    if (packet.type == ARENA_STATE || packet.type == GAMEMODE_STATE) snapshotBytes += frame;
    if (packet.type != CHARACTER_STATE) return;
    snapshotBytes += frame;
    int32_t slot = 0;
    Payload::Reader in(&packet);
    if (in.readI32(&slot)) ++fighterSnapshots[slot];
}
