// The framing, then both transports against bare peers that write and read
// exact bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "RawPeer.h"
#include "TestSupport.h"
#include "network/FrameReader.h"
#include "network/PacketQueue.h"
#include "network/SocketClient.h"
#include "network/SocketServer.h"

using TestSupport::logOf;

namespace {

using S = FrameReader::Step;
const int ALL = 1 << 21;

TEST(SocketFrame, ReassemblesWhatArrivesInAnyChunks) {
    const struct {
        std::string bytes;
        std::vector<int> chunks;  // one a read: its most bytes, 0 nothing there, -1 connection lost
        std::vector<S> steps;
        const char* log;  // expected in the log; "" for no line at all
    } cases[] = {
        {frame(6, ""), {3, 5}, {S::HEADER_PENDING, S::COMPLETE}, ""},  // size 0: done with its header
        {frame(3, "abcdef"), {8, 2, 0, 4}, {S::PAYLOAD_PENDING, S::PAYLOAD_PENDING, S::COMPLETE}, ""},
        {frame(9, std::string(4096, 'x')), {ALL, ALL}, {S::COMPLETE}, ""},
        {frame(9, std::string(4097, 'x')), {ALL, ALL}, {S::COMPLETE}, "FAIL: T.r: Duzy pakiet (typ 9 wielkosc 4097)"},
        {frame(9, std::string(Packet::MAX_SIZE, 'x')), {ALL, 4096, ALL}, {S::PAYLOAD_PENDING, S::COMPLETE}, "wielkosc 1048576)"},
        {header(9, int32_t(Packet::MAX_SIZE + 1)), {ALL}, {S::REFUSED},
         "FAIL: T.r: Bledna wielkosc pakietu (typ 9 wielkosc 1048577)"},
        {header(5, -1), {ALL}, {S::REFUSED}, "FAIL: T.r: Bledna wielkosc pakietu (typ 5 wielkosc -1)"},
        {frame(3, "abc"), {4, -1}, {S::HEADER_PENDING, S::LOST}, ""},
        {frame(3, "abc"), {8, 1, -1}, {S::PAYLOAD_PENDING, S::LOST}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        size_t offset = 0, chunk = 0;
        FrameReader::Read read = [&](uint8_t* into, uint32_t count) {
            int limit = chunk < c.chunks.size() ? c.chunks[chunk++] : 0;
            int given = std::min({limit, int(count), int(c.bytes.size() - offset)});
            if (given > 0) c.bytes.copy(reinterpret_cast<char*>(into), size_t(given), offset);
            offset += size_t(std::max(given, 0));
            return limit < 0 ? -1 : given;
        };
        FrameReader reader("T.r");
        Packet* packet = nullptr;
        std::vector<S> steps;
        std::string log = logOf([&] {
            while (steps.size() < c.steps.size()) steps.push_back(reader.step(read, packet));
        });
        EXPECT_EQ(steps, c.steps);
        EXPECT_TRUE(*c.log ? logged(log, c.log) : ::testing::AssertionResult(log.empty()) << log);
        EXPECT_EQ(framed(packet), c.steps.back() == S::COMPLETE ? c.bytes : "nothing");
    }
}

TEST(SocketFrame, QueueRefusesWhatWouldTakeItPastItsLimit) {
    const uint64_t limit = 3 * Packet::HEADER_SIZE + 10;
    PacketQueue queue(limit);
    Packet* oneByteOver = Packet::create(3, 7, "1234567");
    EXPECT_TRUE(queue.push(Packet::create(1, 4, "abcd")) && queue.push(Packet::create(2, 0, nullptr)));
    EXPECT_FALSE(queue.push(oneByteOver));
    Packet::destroy(oneByteOver);
    EXPECT_TRUE(queue.push(Packet::create(3, 6, "123456")));  // exactly full
    EXPECT_EQ(framed(queue.pop()), frame(1, "abcd"));
    EXPECT_EQ(queue.bytes(), limit - 12);
}

class SocketTest : public NetworkTest {
protected:
    void TearDown() override {
        server.close();
        client.close();
        if (listener) SDLNet_TCP_Close(listener);
        NetworkTest::TearDown();
    }
    void open(uint16_t listenOn, int maxClients = 8) {
        port = listenOn;
        ASSERT_TRUE(server.init(port, maxClients));
    }
    // Connects a raw peer to the server and waits until it has been given `id`.
    void join(RawPeer& peer, int id) {
        ASSERT_TRUE(peer.connect(port));
        ASSERT_TRUE(waitFor([&] { return server.hasClient(id); }));
    }
    std::string popped(int id) {
        Packet* packet = nullptr;
        waitFor([&] { return (packet = server.pop(id)) != nullptr; });
        return framed(packet);
    }
    // A marker there and back: what the worker queued before it comes first.
    void expectOnlyMarker(RawPeer& peer, int id) {
        server.send(id, 77, 2, "ok");
        EXPECT_EQ(peer.read(10), frame(77, "ok"));
    }
    // The client connected to `host`, the raw end of its connection.
    void connectClient(uint16_t listenOn) {
        IPaddress address;
        SDLNet_ResolveHost(&address, nullptr, listenOn);
        listener = SDLNet_TCP_Open(&address);
        ASSERT_TRUE(client.init("127.0.0.1", listenOn));
        ASSERT_TRUE(host.accept(listener));
    }

    uint16_t port = 0;
    SocketServer server;
    SocketClient client;
    TCPsocket listener = nullptr;
    RawPeer host;
};

TEST_F(SocketTest, ServerPingsEchoesAndDropsAPeerAfterItsFourthUnansweredPing) {
    FakeClock::time = 1000;
    server.now = FakeClock::now;
    open(17131);
    RawPeer answering, silent;
    join(answering, 0);
    join(silent, 1);
    answering.write(frame(PING_CLIENT, "tick") + frame(GAME_START, ""));
    EXPECT_EQ(answering.read(12), frame(PING_CLIENT, "tick"));
    EXPECT_EQ(popped(0), frame(GAME_START, ""));  // the ping never in the queue
    uint64_t in = 0, out = 0;
    EXPECT_TRUE(waitFor([&] { return server.getTraffic(&in, &out), in == 20 && out == 12; })) << in << " " << out;
    FakeClock::time += 7500;  // not later than the interval yet
    for (int pass = 0; pass < 3; ++pass) expectOnlyMarker(silent, 1);
    std::string log = logOf([&] {
        for (int ping = 1; ping <= 4; ++ping) {
            FakeClock::time += 1;
            std::string expected = frame(PING_SERVER, littleEndian(FakeClock::time));
            ASSERT_EQ(silent.read(12), expected) << "ping " << ping;
            ASSERT_EQ(answering.read(12), expected) << "ping " << ping;
            if (ping == 3) {
                FakeClock::time += 40;
                answering.write(expected);
                ASSERT_TRUE(waitFor([&] { return server.getPing(0) == 40; }));
            }
            FakeClock::time += 7500;
        }
        EXPECT_TRUE(silent.closedByPeer());
    });
    EXPECT_TRUE(logged(log, "FAIL: SocketServer.updatePing: Rozlaczono"));
    EXPECT_FALSE(server.hasClient(1));
    EXPECT_TRUE(server.hasClient(0));
}

TEST_F(SocketTest, ServerClosesThe65thConnectionAtOnceAndReusesTheLowestFreeId) {
    open(17132, 64);
    RawPeer peers[65];
    for (int id = 0; id < 64; ++id) join(peers[id], id);
    std::string log = logOf([&] {
        ASSERT_TRUE(peers[64].connect(port));
        EXPECT_TRUE(peers[64].closedByPeer());
    });
    EXPECT_TRUE(logged(log, "FAIL: SocketServer.updateJoin: Nie udalo sie dodac klienta do socket seta"));
    EXPECT_EQ(server.slotCount(), 64);
    server.disconnect(0);
    EXPECT_EQ(server.getClientCount(), 63);
    EXPECT_TRUE(peers[0].closedByPeer());
    EXPECT_EQ(logOf([&] {
                  for (int id : {-1, 0, 64}) {
                      server.send(id, 5, 4, "abcd");
                      server.disconnect(id);
                      EXPECT_EQ(server.pop(id), nullptr);
                  }
              }),
              "");
    join(peers[0], 0);
    EXPECT_EQ(server.slotCount(), 64);
    EXPECT_EQ(server.getClientCount(), 64);
}

// The main thread removes clients while the worker is busy with them; the
// sanitizer builds are what catch a fault here.
TEST_F(SocketTest, ServerDisconnectsClientsInTheMiddleOfTheirTraffic) {
    open(17134);
    RawPeer peers[4];
    std::string burst;
    for (int i = 0; i < 200; ++i) burst += frame(CONTROLLER_STATE, std::string(1000, char(i)));
    for (int id = 0; id < 4; ++id) {
        join(peers[id], id);
        peers[id].write(burst);
        for (int i = 0; i < 50; ++i) server.send(id, CHARACTER_STATE, 1000, burst.data());
    }
    for (int id = 0; id < 4; ++id) {
        Packet::destroy(server.pop(id));
        server.disconnect(id);
        EXPECT_TRUE(peers[id].closedByPeer());
    }
    EXPECT_EQ(server.getClientCount(), 0);
}

// What the worker refuses only costs the peer that sent it; the reader's
// own cases are the framing's.
TEST_F(SocketTest, ServerDropsAHostileSizeAndAClientThatStopsReadingAndServesTheOthers) {
    open(17135);
    RawPeer stalled, reading, hostile;
    join(stalled, 0);
    join(reading, 1);
    join(hostile, 2);
    const std::string big = frame(7, std::string(5000, 'x')), chunk(64 * 1024, 's');
    std::string log = logOf([&] {
        hostile.write(header(5, -1));
        EXPECT_TRUE(hostile.closedByPeer());
        reading.write(big);
        EXPECT_EQ(popped(1), big);
        // Far beyond what the bound and the system's buffers hold together.
        for (int sent = 0; server.hasClient(0) && sent < 4096; ++sent)
            server.send(0, CHARACTER_STATE, uint32_t(chunk.size()), chunk.data());
    });
    EXPECT_TRUE(logged(log, "FAIL: SocketServer.updateClientIn: Bledna wielkosc pakietu (typ 5 wielkosc -1)"));
    EXPECT_TRUE(logged(log, "FAIL: SocketServer.send: Klient 0 nie odbiera"));
    EXPECT_FALSE(server.hasClient(0) || server.hasClient(2));
    expectOnlyMarker(reading, 1);
}

TEST_F(SocketTest, ClientRetriesAfterAFailedInitAndSendsNothingUnconnected) {
    std::string log = logOf([&] {
        EXPECT_FALSE(client.init("127.0.0.1", 17136));
        client.send(HANDSHAKE, 0, nullptr);
        client.updatePing();
        client.close();
        connectClient(17136);
    });
    EXPECT_TRUE(logged(log, "FAIL: SocketClient.init: Nie udalo sie otworzyc socketa (adres \"127.0.0.1\" port 17136)"));
    EXPECT_TRUE(logged(log, "OK  : SocketClient.init: Polaczono z 127.0.0.1 na porcie 17136"));
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2) << log;
    client.send(SOUND, 100, nullptr);  // no data: size 0 whatever was asked
    EXPECT_EQ(host.read(8), header(SOUND, 0));
    EXPECT_EQ(client.bytesOut, 8u);
}

TEST_F(SocketTest, ClientEchoesPingsInTheSameStepAndDropsTheServerAfterSixUnanswered) {
    FakeClock::time = 1000;
    client.now = FakeClock::now;
    connectClient(17137);
    host.write(frame(PING_SERVER, "tock") + frame(GAME_START, ""));
    ASSERT_TRUE(waitFor([&] { return client.updateRecv(); }));
    EXPECT_EQ(host.read(12), frame(PING_SERVER, "tock"));
    EXPECT_EQ(client.pop(), nullptr);
    ASSERT_TRUE(client.updateRecv());  // size 0: complete with its header
    EXPECT_EQ(framed(client.pop()), frame(GAME_START, ""));
    FakeClock::time += 5000;  // not later than the interval yet
    client.updatePing();
    client.send(77, 2, "ok");  // sends are synchronous: no ping went before it
    EXPECT_EQ(host.read(10), frame(77, "ok"));
    FakeClock::time += 1;
    client.updatePing();
    std::string first = frame(PING_CLIENT, littleEndian(FakeClock::time));
    ASSERT_EQ(host.read(12), first);
    FakeClock::time += 25;
    host.write(first);
    ASSERT_TRUE(waitFor([&] { return client.updatePing(), client.ping == 25; }));
    std::string log = logOf([&] {
        for (int ping = 1; ping <= 6; ++ping) {
            FakeClock::time += 5001;
            client.updatePing();
            ASSERT_EQ(host.read(12), frame(PING_CLIENT, littleEndian(FakeClock::time))) << "ping " << ping;
            client.updatePing();
            ASSERT_EQ(client.isConnected(), ping < 6) << "ping " << ping;
        }
    });
    EXPECT_TRUE(logged(log, "FAIL: SocketClient.updatePing: Rozlaczono"));
    EXPECT_TRUE(host.closedByPeer());
}

TEST_F(SocketTest, ClientTakesALargeFrameWholeAndDropsAHostileSize) {
    connectClient(17138);
    const std::string big = frame(7, std::string(5000, 'b'));
    host.write(big + header(GAME_START, -1));
    std::string log = logOf([&] { EXPECT_TRUE(waitFor([&] { return client.updatePing(), !client.isConnected(); })); });
    EXPECT_EQ(framed(client.pop()), "nothing");  // what was queued goes with the connection
    EXPECT_TRUE(logged(log, "FAIL: SocketClient.updateRecv: Duzy pakiet (typ 7 wielkosc 5000)"));
    EXPECT_TRUE(logged(log, "FAIL: SocketClient.updateRecv: Bledna wielkosc pakietu (typ 6 wielkosc -1)"));
    EXPECT_EQ(client.bytesIn, big.size() + 8);
    EXPECT_TRUE(host.closedByPeer());
}

TEST_F(SocketTest, ClientEndsItsDrainWhenTheServerGoesInTheMiddleOfAPacket) {
    connectClient(17139);
    host.write(header(CONNECT, 8) + "abc");
    host.close();
    SDL_Delay(20);
    client.updatePing();  // returns although the socket stays readable
    EXPECT_EQ(client.pop(), nullptr);
}

}  // namespace
