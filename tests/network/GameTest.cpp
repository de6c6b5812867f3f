// Games over the loopback: a server and its clients in one process, as on a
// hosting machine, and each side's packets byte for byte against a bare
// socket playing the other, with what it does with packets it must not trust.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "HostedWorld.h"
#include "RawPeer.h"
#include "TestSupport.h"
#include "audio/Sound.h"
#include "gameplay/Bot.h"
#include "gameplay/ControllerDummy.h"
#include "network/Client.h"
#include "network/GamePath.h"
#include "network/Server.h"
#include "shell/Log.h"

namespace {

using namespace std::string_literals;
using Network::Client;
using TestSupport::logOf;

const float FRAME = 1.0f / 60.0f;
const char* const FIGHTER = "character/default/init.lua";
const char* const ARENA = "arena/osmiornica/init.lua";
const std::string HANDSHAKE_BYTES = "\x32\0\0\0\0\0\0\0"s;
const std::string FIRST_CONNECT = "\x34\0\0\0\x08\0\0\0\xff\xff\xff\xff\xff\xff\xff\xff"s;
const std::string FIGHTER_INFO_FROM_CLIENT =
    "\x36\0\0\0\x23\0\0\0\xff\xff\xff\xff"s + "character/default/init.lua\0\0\0\0\0"s;
const std::string ARENA_INFO_BYTES = "\x37\0\0\0\x1b\0\0\0"s + "arena/osmiornica/init.lua\0\0"s;
const std::string SOUND_A = "\x0c\0\0\0\x0e\0\0\0\0\0\x80\x3f"s + "a\0"s + std::string(8, '\0');
// Logged by both sides for a type they don't know: it marks the end of a
// batch of packets, which are parsed in order.
const std::string MARKER = "\x63\0\0\0\0\0\0\0"s;

std::string word(int32_t value) { return littleEndian(uint32_t(value)); }
std::string fighterInfo(int32_t id, const std::string& path) { return frame(CHARACTER_INFO, word(id) + path + "\0\0\0\0\0"s); }

// The scripts name their files relative to the data folder, as the game does from its own.
class GamesTest : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        std::filesystem::current_path(KORVANE_SOURCE_DIR "/data");
    }
    void TearDown() override {
        // Clients first: they leave a server that still listens. A main
        // client's sounds stay cached until Sound::clear.
        clients.clear();
        server.reset();
        Sound::clear();
        std::filesystem::current_path(previous);
        NetworkTest::TearDown();
    }

    // A deathmatch in the octopus's lair, listening on `port`.
    void host(int port) {
        HostedWorld world;
        server = std::make_unique<Network::Server>();
        ASSERT_TRUE(server->init(world.rules, world.arena, port));
        ASSERT_TRUE(world.loaded);
    }
    // A client of the default fighter that tries to connect on its first update.
    Client& join(int port, int mode, Controller* pad = nullptr) {
        Client& client = *clients.emplace_back(std::make_unique<Client>());
        client.mode = mode;
        client.init("127.0.0.1", port);
        auto* fighter = new Character();
        fighter->objectType = OBJECT_SERVER;
        fighter->path = FIGHTER;
        client.setCharacter(fighter);
        if (pad) client.setController(pad);
        return client;
    }
    // Frames of the server and every client, the clients with their own
    // frame time, until `done` holds; false if it never does.
    bool runUntil(const std::function<bool()>& done, float clientDt = FRAME) {
        return waitFor([&] {
            if (server) server->tick(FRAME);
            for (auto& client : clients) client->update(clientDt);
            return done();
        });
    }
    bool allInGame() {
        for (auto& client : clients)
            if (client->gameState != 1 || !isLoaded(*client, client->id)) return false;
        return true;
    }
    static bool isLoaded(Client& client, int slot) {
        return slot >= 0 && size_t(slot) < client.players.size() &&
               !client.players[size_t(slot)]->character->path.empty();
    }
    static std::string snapshot(Serializable& object) {
        uint32_t size = 0;
        const char* bytes = static_cast<const char*>(object.serialize(&size));
        return std::string(bytes, size);
    }
    // Every client has every client's fighter; `mirrored`: each as the
    // server has it, and the arena's noise and the rules' timers too.
    bool everyoneHasEveryone(bool mirrored) {
        for (auto& viewer : clients) {
            for (auto& seen : clients) {
                const size_t slot = size_t(seen->id);
                if (!isLoaded(*viewer, seen->id)) return false;
                if (mirrored && snapshot(*viewer->players[slot]->character) != snapshot(*server->players[slot]->character))
                    return false;
            }
            if (mirrored && (snapshot(*viewer->arena) != snapshot(*server->arena) ||
                             snapshot(*viewer->gamemode) != snapshot(*server->gamemode)))
                return false;
        }
        return true;
    }
    Network::Player& onServer(const Client& client) { return *server->players[size_t(client.id)]; }
    // Every client in the game on the server that runs now.
    bool allPlayHere() {
        for (auto& client : clients)
            if (!client->socket.isConnected() || client->id < 0 || !onServer(*client).isReady()) return false;
        return allInGame();
    }
    // The next whole frame of `type` the peer receives, those before it skipped.
    static std::string nextFrame(RawPeer& peer, int32_t type) {
        for (int skipped = 0; skipped < 100; ++skipped) {
            std::string head = peer.read(8);
            if (head.size() < 8) return "nothing";
            head += peer.read(uint8_t(head[4]) | uint8_t(head[5]) << 8);  // no frame here is longer
            if (head.substr(0, 4) == word(type)) return head;
        }
        return "none";
    }
    // Runs until the log shows `line`; what was logged meanwhile.
    std::string runUntilLogged(const std::string& line) {
        TestSupport::CapturedStdout out;
        runUntil([&] { return out.text().find(line) != std::string::npos; });
        return out.text();
    }

    std::unique_ptr<Network::Server> server;
    std::vector<std::unique_ptr<Client>> clients;

private:
    const std::filesystem::path previous = std::filesystem::current_path();
};


TEST(GamePath, OnlyRelativePathsInsideTheFolderThatNeverClimbOut) {
    // A name that starts or ends with two dots climbs nowhere.
    for (const char* path : {"character/default/init.lua", "character/x", "character/..a/init.lua", "character/a../x"})
        EXPECT_TRUE(GamePath::isInside(path, "character/")) << path;
    // The folder itself names no script.
    for (const char* path : {"character/", "character", "characters/default/init.lua", "/character/default/init.lua",
                             "arena/osmiornica/init.lua", "character/../arena/osmiornica/init.lua",
                             "character/default/..", "character//../x", ""})
        EXPECT_FALSE(GamePath::isInside(path, "character/")) << path;
    // Anywhere in the game's folder, as sounds are.
    EXPECT_TRUE(GamePath::isInside("a", ""));
    for (const char* path : {"/dev/zero", "../a.ogg", ""}) EXPECT_FALSE(GamePath::isInside(path, "")) << path;
}

// A game's life: clients join it running, a bot loses its connection and
// comes back, the server restarts under everyone, and the game goes on.
TEST_F(GamesTest, ClientsJoinComeBackWithTheirPidsAfterALossOrARestartRelayControlsAndMirrorTheServer) {
    host(17231);
    ControllerDummy pad;
    Client& first = join(17231, Client::MODE_MAIN, &pad);
    // A deathmatch starts with the first ready player; the others join it running.
    ASSERT_TRUE(runUntil([&] { return allInGame(); }));
    EXPECT_TRUE(server->started);
    join(17231, Client::MODE_LOCAL);
    Client& bot = join(17231, Client::MODE_BOT);
    ASSERT_TRUE(runUntil([&] { return allInGame() && everyoneHasEveryone(false); }));
    std::set<int> ids;
    std::vector<int> pids;
    for (auto& client : clients) {
        ids.insert(client->id);
        pids.push_back(client->pid);
        EXPECT_TRUE(onServer(*client).isReady());
        EXPECT_EQ(onServer(*client).pid, client->pid);
    }
    EXPECT_EQ(ids.size(), 3u);
    EXPECT_EQ(std::set<int>(pids.begin(), pids.end()), (std::set<int>{2, 3, 4}));  // handed out from 2 upward
    const int oldId = bot.id, nextPid = server->nextPid;

    bot.socket.close();
    int frames = 0;
    std::string log = logOf([&] {
        runUntil([&] { return ++frames, bot.socket.isConnected(); });
        // Back in the game: the world described anew, its own fighter the bot's again.
        EXPECT_TRUE(runUntil([&] {
            return (bot.flags & Network::CLIENT_ARENA) && allInGame() && everyoneHasEveryone(false) &&
                   bot.bot->character == bot.players[size_t(bot.id)]->character;
        }));
    });
    // The attempt comes once 5 s of frame time have passed, not sooner.
    EXPECT_GE(frames, 300);
    EXPECT_LE(frames, 302);
    EXPECT_EQ(onServer(bot).pid, pids.back());
    EXPECT_EQ(server->nextPid, nextPid);  // no new pid was handed out
    EXPECT_TRUE(logged(log, "Client.parse: DISCONNECT; Klient " + std::to_string(oldId) + " rozlaczyl sie"));
    EXPECT_TRUE(logged(log, "Client.parse: CONNECT; my id: " + std::to_string(bot.id)));

    // The server says goodbye as it stops; its sockets close with it, and
    // the clients see that at once, not at their next ping.
    frames = 0;
    log = logOf([&] {
        server.reset();
        EXPECT_TRUE(runUntil([&] {
            ++frames;
            return std::none_of(clients.begin(), clients.end(), [](auto& client) { return client->socket.isConnected(); });
        }));
    });
    EXPECT_LE(frames, 10);
    size_t goodbyes = 0;
    for (size_t at = 0; (at = log.find("Client.parse: DISCONNECT; Serwer konczy gre", at)) != std::string::npos; ++at)
        ++goodbyes;
    EXPECT_EQ(goodbyes, clients.size()) << log;
    // Nobody is there yet: the attempts fail, and go on.
    ASSERT_TRUE(runUntil([&] { return clients.front()->reconnects > 0; }, 0.25f));
    host(17231);
    ASSERT_TRUE(runUntil([&] { return allPlayHere() && everyoneHasEveryone(false); }, 0.25f));
    for (size_t i = 0; i < clients.size(); ++i) {
        EXPECT_EQ(clients[i]->reconnects, 0);
        EXPECT_EQ(clients[i]->pid, pids[i]);
        EXPECT_EQ(onServer(*clients[i]).pid, pids[i]);
    }

    // The bot steers its fighter on the server through its own packets.
    const bool* botKeys = onServer(bot).controller->pressed;
    ASSERT_TRUE(runUntil([&] { return std::find(botKeys, botKeys + ACTION_COUNT, true) != botKeys + ACTION_COUNT; }));
    // A key goes to the server and comes back to every world, the sender's too.
    const float startX = onServer(first).character->position.x;
    pad.pressed[ACTION_RIGHT] = true;
    ASSERT_TRUE(runUntil([&] {
        for (auto& client : clients)
            if (!client->players[size_t(first.id)]->controller->pressed[ACTION_RIGHT]) return false;
        return onServer(first).controller->pressed[ACTION_RIGHT];
    }));
    EXPECT_TRUE(runUntil([&] { return onServer(first).character->position.x > startX; }));

    // One frame sends every snapshot; the clients stop simulating, so what
    // they end up with is the server's word alone.
    for (Network::Player* player : server->players) player->stateTimer = Network::Server::SNAPSHOT_PERIOD;
    server->tick(FRAME);
    for (auto& client : clients) client->gameState = 0;
    EXPECT_TRUE(waitFor([&] {
        for (auto& client : clients) client->update(FRAME);
        return everyoneHasEveryone(true);
    }));
}

TEST_F(GamesTest, ServerAnswersTheSequenceByteForByte) {
    host(17241);
    RawPeer peer;
    ASSERT_TRUE(peer.connect(17241));
    peer.write(HANDSHAKE_BYTES + FIRST_CONNECT);
    ASSERT_TRUE(runUntil([&] { return server->players[0]->flags & Network::PLAYER_CONNECT; }));
    EXPECT_EQ(peer.read(8), HANDSHAKE_BYTES);
    EXPECT_EQ(peer.read(16), "\x34\0\0\0\x08\0\0\0\xff\xff\xff\xff\x02\0\0\0"s);  // the first pid is 2
    EXPECT_EQ(peer.read(16), "\x34\0\0\0\x08\0\0\0\0\0\0\0\x02\0\0\0"s);
    EXPECT_EQ(peer.read(16), "\x35\0\0\0\x08\0\0\0\x40\0\0\0\0\0\0\0"s);
    EXPECT_EQ(peer.read(35), ARENA_INFO_BYTES);

    peer.write(FIGHTER_INFO_FROM_CLIENT);
    ASSERT_TRUE(runUntil([&] { return server->players[0]->isReady() && server->started; }));
    // However the start fell, a snapshot period later one has gone out.
    for (int frame = 0; frame <= 15; ++frame) server->tick(FRAME);
    EXPECT_EQ(nextFrame(peer, CHARACTER_INFO), "\x36\0\0\0\x23\0\0\0\0\0\0\0"s + FIGHTER + "\0\0\0\0\0"s);
    const std::string state = nextFrame(peer, CHARACTER_STATE);
    EXPECT_EQ(state.substr(0, 12), "\x03\0\0\0\x38\0\0\0\0\0\0\0"s);
    EXPECT_EQ(state.substr(60), "\0\0\0\0"s);
    EXPECT_EQ(nextFrame(peer, ARENA_STATE).substr(0, 8), header(ARENA_STATE, 4));
    EXPECT_EQ(nextFrame(peer, GAMEMODE_STATE).substr(0, 8), header(GAMEMODE_STATE, 8));

    // A control claims another slot, carries junk above the six bits and
    // behind the two words: the relay names the sender and carries two words.
    peer.write(frame(CONTROLLER_STATE, word(50) + word(0x7f10) + "junk"));
    ASSERT_TRUE(runUntil([&] { return server->players[0]->controller->pressed[ACTION_A]; }));
    EXPECT_EQ(nextFrame(peer, CONTROLLER_RELAY), "\x02\0\0\0\x08\0\0\0\0\0\0\0\x10\0\0\0"s);
    server->onEvent(Event::sound(1.0f, new char[2]{'a', 0}));
    server->tick(FRAME);
    EXPECT_EQ(nextFrame(peer, SOUND), SOUND_A);
}

TEST_F(GamesTest, ServerDropsWhatItCannotUseAndRefusesFightersFromOutsideOrThatItLacks) {
    host(17242);
    const struct {
        int id;
        int32_t type;
        std::string payload;
        std::string logged;
    } cases[] = {
        {64, HANDSHAKE, "", "Server.parse: Nieznany klient 64 (graczy 64)"},
        {-1, HANDSHAKE, "", "Server.parse: Nieznany klient -1 (graczy 64)"},
        {0, CONNECT, std::string(7, '\xff'), "Server.parse[00]: Za krotki pakiet (type 52, size 7)"},
        {0, CONTROLLER_STATE, word(-1), "Server.parse[00]: Za krotki pakiet (type 1, size 4)"},
        {0, CHARACTER_INFO, word(-1) + FIGHTER, "Za krotki pakiet (type 54, size 30)"},
        {0, 99, "", "Client.parse: Nieobslugiwany typ pakietu (type 99, size 0)"},
    };
    for (const auto& c : cases) {
        Packet* packet = Packet::create(c.type, uint32_t(c.payload.size()), c.payload.data());
        EXPECT_TRUE(logged(logOf([&] { server->parse(c.id, packet); }), c.logged));
    }
    for (const Network::Player* player : server->players) EXPECT_EQ(player->flags, 0u);
    EXPECT_EQ(server->nextPid, 1);

    // Path, and whether it is refused unread: what lies outside the fighters' folder is.
    const std::pair<std::string, bool> farewells[] = {
        {"/tmp/character/init.lua", true}, {"character/none/init.lua", false}};
    for (const auto& [path, unread] : farewells) {
        RawPeer peer;
        ASSERT_TRUE(peer.connect(17242));
        peer.write(HANDSHAKE_BYTES + FIRST_CONNECT + fighterInfo(-1, path));
        std::string log = runUntilLogged("A poki co... Zegnaj, kliencie~");
        EXPECT_EQ(bool(logged(log, "Niedozwolona sciezka")), unread) << path;
        EXPECT_EQ(bool(logged(log, "Nie udalo sie wczytac postaci")), !unread) << path;
        EXPECT_TRUE(logged(log, "Server.parse[00]: CHARACTER_INFO: Nie znaleziono postaci \"" + path + "\""));
        EXPECT_TRUE(peer.closedByPeer());
        EXPECT_EQ(server->players[0]->flags, 0u);
    }
    // A script that exists and fails to load keeps the client, never ready.
    RawPeer peer;
    ASSERT_TRUE(peer.connect(17242));
    peer.write(HANDSHAKE_BYTES + FIRST_CONNECT + fighterInfo(-1, "character/list.txt"));
    EXPECT_FALSE(logged(runUntilLogged("Nie udalo sie wczytac postaci"), "Zegnaj"));
    EXPECT_TRUE(server->socket.hasClient(0));
    EXPECT_EQ(server->players[0]->flags, uint32_t(Network::PLAYER_HANDSHAKE | Network::PLAYER_CONNECT));
}

TEST_F(GamesTest, ClientSpeaksTheSequenceAndTrustsNothingItHears) {
    IPaddress address;
    SDLNet_ResolveHost(&address, nullptr, 17244);
    TCPsocket listener = SDLNet_TCP_Open(&address);
    ASSERT_NE(listener, nullptr);
    ControllerDummy pad;
    Client& client = join(17244, Client::MODE_MAIN, &pad);
    client.update(FRAME);
    RawPeer peer;
    ASSERT_TRUE(peer.accept(listener));
    SDLNet_TCP_Close(listener);
    EXPECT_EQ(peer.read(8), HANDSHAKE_BYTES);
    peer.write(HANDSHAKE_BYTES + frame(CONNECT, word(-1) + word(7)) + frame(CONNECT, word(3) + word(7)) +
               frame(SERVER_INFO, word(4) + word(0)));
    ASSERT_TRUE(runUntil([&] { return client.flags & Network::CLIENT_CHARACTER; }));
    EXPECT_EQ(peer.read(16 + 43), FIRST_CONNECT + FIGHTER_INFO_FROM_CLIENT);
    EXPECT_EQ(client.pid, 7);
    EXPECT_EQ(client.id, 3);

    const uint32_t logFlags = Log::getFlags();
    Log::setFlags(logFlags | Log::LOG_DEBUG);
    const std::string state = word(3) + "\0\0\xc9\x42"s + std::string(44, '\0');  // x = 100.5
    const struct {
        std::string frame;
        std::string logged;
    } cases[] = {
        {frame(ARENA_INFO, "/etc/passwd\0\0"s), "ARENA_INFO; Niedozwolona sciezka \"/etc/passwd\""},
        {frame(ARENA_INFO, "arena/osmiornica/init.lua"), "Za krotki pakiet (type 55, size 25)"},
        {ARENA_INFO_BYTES, "Client.parse: ARENA_INFO; path: \"arena/osmiornica/init.lua\""},
        {fighterInfo(4, FIGHTER), "Client.parse: Nieznany gracz 4 (type 54, max 4)"},
        {fighterInfo(-1, FIGHTER), "Client.parse: Nieznany gracz -1 (type 54, max 4)"},
        {fighterInfo(1, "character/../../x.lua"), "CHARACTER_INFO; Niedozwolona sciezka \"character/../../x.lua\""},
        {fighterInfo(3, FIGHTER), "Client.parse: CHARACTER_INFO; id: 3;"},
        {frame(CHARACTER_STATE, word(4) + std::string(52, '\0')), "Nieznany gracz 4 (type 3, max 4)"},
        {frame(CHARACTER_STATE, state.substr(0, 51)), "Character.deserialize: Za malo danych (47 bajtow, potrzeba 48)"},
        {frame(CHARACTER_STATE, state.substr(0, 52)), ""},
        {frame(CONTROLLER_RELAY, word(4) + word(1)), "Client.parseControllerState: id 4; players 4"},
        {frame(CONTROLLER_RELAY, word(-1) + word(1)), "Client.parseControllerState: id -1; players 4"},
        {frame(CONTROLLER_RELAY, word(3) + word(0x21)), ""},
        {frame(SERVER_INFO, word(65) + word(0)), "Client.parse: SERVER_INFO; Zla liczba graczy 65"},
        {SOUND_A, "Sound.play: Nie udalo sie wczytac dzwieku \"a\""},
        {frame(SOUND, "\0\0\x80\x3f/dev/zero\0"s), "Client.parse: SOUND; Niedozwolona nazwa \"/dev/zero\""},
        {frame(DISCONNECT, ""), "Client.parse: DISCONNECT; Serwer konczy gre"},
        {frame(CONNECT, word(5) + word(8)), "Client.parse: CONNECT; id: 5 (max 4); pid: 8"},
    };
    for (const auto& c : cases) {
        peer.write(c.frame + MARKER);
        EXPECT_TRUE(logged(runUntilLogged("Client.parse: Nieznany typ pakietu (type 99, size 0)"), c.logged));
    }
    Log::setFlags(logFlags);
    EXPECT_TRUE(client.flags & Network::CLIENT_ARENA);
    EXPECT_EQ(client.arena->path, ARENA);
    ASSERT_TRUE(isLoaded(client, 3));
    EXPECT_FALSE(isLoaded(client, 1));
    EXPECT_EQ(client.players[3]->character->position.x, 100.5f);
    const bool* pressed = client.players[3]->controller->pressed;
    EXPECT_EQ(std::vector<bool>(pressed, pressed + ACTION_COUNT), (std::vector<bool>{1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(client.players.size(), 4u);
    EXPECT_EQ(client.id, 3);  // another client's arrival

    // Only the machine's main client plays sounds.
    client.mode = Client::MODE_LOCAL;
    peer.write(SOUND_A + MARKER);
    EXPECT_FALSE(logged(runUntilLogged("Nieznany typ pakietu (type 99"), "Sound.play"));

    // In the game, a change of the controls goes out at once.
    peer.write(frame(GAME_START, ""));
    pad.pressed[ACTION_A] = true;
    runUntilLogged("Client.parse: GAME_START");
    EXPECT_EQ(peer.read(16), "\x01\0\0\0\x08\0\0\0\xff\xff\xff\xff\x10\0\0\0"s);
}

}  // namespace
