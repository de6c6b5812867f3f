#include "LoadClient.h"

#include "gameplay/DefaultContent.h"
#include "network/NewClient.h"
#include "network/Payload.h"

LoadClient::LoadClient(const std::string& host, int port)
    : client(Network::newClient(Network::Client::MODE_BOT, host, port, DefaultContent::FIGHTER)) {
    client->onPacket = [this](const Packet& packet) { count(packet); };
}

void LoadClient::update(float dt, double now) {
    frameTime = now;
    client->update(dt);
    bool isConnected = client->socket.isConnected();
    if (isConnected && !connected) ++connections;
    connected = isConnected;
    if (joined()) hasJoined = true;
}

bool LoadClient::joined() const {
    if (client->gameState != 1 || client->id < 0 || size_t(client->id) >= client->players.size()) return false;
    return !client->players[size_t(client->id)]->character->path.empty();
}

void LoadClient::openTally() {
    counting = true;
    openedAt = frameTime;
    allBytes = 0;
}

LoadClient::Tally LoadClient::closeTally() {
    counting = false;
    Tally tally;
    if (frameTime > openedAt) tally.allBytesPerSecond = double(allBytes) / (frameTime - openedAt);
    int fighterPackets = 0;
    double fighterSeconds = 0.0;
    for (const auto& entry : streams) {
        const Stream& stream = entry.second;
        if (entry.first.first == CHARACTER_STATE) ++tally.players;
        if (stream.packets < 2 || stream.last <= stream.first) continue;
        double seconds = stream.last - stream.first;
        double hz = (stream.packets - 1) / seconds;
        tally.bytesPerSecond += hz * double(stream.bytes) / stream.packets;
        if (entry.first.first != CHARACTER_STATE) continue;
        fighterPackets += stream.packets - 1;
        fighterSeconds += seconds;
    }
    tally.fighterHz = fighterSeconds > 0 ? fighterPackets / fighterSeconds : 0.0;
    streams.clear();
    return tally;
}

void LoadClient::count(const Packet& packet) {
    if (!counting) return;
    const uint64_t frame = packet.frameBytes();
    allBytes += frame;
    std::pair<int32_t, int32_t> key{packet.type, 0};
    if (packet.type == CHARACTER_STATE) {
        Payload::Reader in(&packet);
        if (!in.readI32(&key.second)) return;
    } else if (packet.type != ARENA_STATE && packet.type != GAMEMODE_STATE) {
        return;
    }
    Stream& stream = streams[key];
    if (stream.packets++ == 0) stream.first = frameTime;
    stream.last = frameTime;
    stream.bytes += frame;
}
