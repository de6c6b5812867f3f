#include <gtest/gtest.h>

#include <string>

#include "LogCapture.h"
#include "RawPeer.h"
#include "network/SocketServer.h"

namespace {

class SocketServerTest : public NetworkTest {
protected:
    void TearDown() override {
        server.close();
        NetworkTest::TearDown();
    }
    void open(uint16_t listenOn, int maxClients = 8) {
        port = listenOn;
        ASSERT_TRUE(server.init(port, maxClients));
    }
    // Connects a raw peer and waits until the server has given it `id`.
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

    uint16_t port = 0;
    SocketServer server;
};

TEST_F(SocketServerTest, DeliversFramesWholeEchoesPingsAndWritesLittleEndian) {
    open(17101);
    RawPeer peer;
    join(peer, 0);
    std::string big(5000, 'x');
    std::string log = logOf([&] {
        peer.write(frame(7, big) + frame(PING_CLIENT, "tick") + frame(GAME_START, ""));
        EXPECT_EQ(popped(0), frame(7, big));
        EXPECT_EQ(popped(0), frame(GAME_START, ""));  // the ping never in the queue
        EXPECT_EQ(peer.read(12), frame(PING_CLIENT, "tick"));
    });
    EXPECT_NE(log.find("FAIL: SocketServer.updateClientIn: Duzy pakiet (typ 7 wielkosc 5000)"), std::string::npos);

    server.send(0, 300, 3, "abc");
    EXPECT_EQ(peer.read(11), std::string("\x2c\x01\0\0\x03\0\0\0abc", 11));
    uint64_t in = 0, out = 0;
    server.getTraffic(&in, &out);
    EXPECT_EQ(in, 5008u + 12u + 8u);
    EXPECT_EQ(out, 12u + 11u);
}

TEST_F(SocketServerTest, PingsEveryIntervalAndDropsAfterTheFourthUnanswered) {
    FakeClock::time = 1000;
    server.now = FakeClock::now;
    open(17102);
    RawPeer answering, silent;
    join(answering, 0);
    join(silent, 1);
    FakeClock::time += 7500;  // not later than the interval yet
    for (int i = 0; i < 3; ++i) {
        expectOnlyMarker(answering, 0);
        expectOnlyMarker(silent, 1);
    }
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
    EXPECT_NE(log.find("FAIL: SocketServer.updatePing: Rozlaczono"), std::string::npos);
    EXPECT_FALSE(server.hasClient(1));
    EXPECT_TRUE(server.hasClient(0));
}

TEST_F(SocketServerTest, RefusesBeyondMaxClientsAndReusesTheLowestFreeId) {
    open(17103, 2);
    RawPeer first, second, extra, third;
    join(first, 0);
    join(second, 1);
    std::string log = logOf([&] {
        ASSERT_TRUE(extra.connect(port));
        EXPECT_TRUE(extra.closedByPeer());
    });
    EXPECT_NE(log.find("FAIL: SocketServer.updateJoin: Nie udalo sie dodac klienta do socket seta"), std::string::npos);
    EXPECT_EQ(server.slotCount(), 2);

    server.disconnect(0);
    EXPECT_FALSE(server.hasClient(0));
    EXPECT_EQ(server.getClientCount(), 1);
    EXPECT_TRUE(first.closedByPeer());
    EXPECT_EQ(logOf([&] {
                  for (int id : {-1, 0, 2, 1000}) {
                      server.send(id, 5, 4, "abcd");
                      server.disconnect(id);
                      EXPECT_EQ(server.pop(id), nullptr);
                  }
              }),
              "");
    join(third, 0);
    EXPECT_EQ(server.slotCount(), 2);
    EXPECT_EQ(server.getClientCount(), 2);
}

TEST_F(SocketServerTest, HostileSizeDropsOnlyThatConnection) {
    open(17104);
    RawPeer good;
    join(good, 0);
    for (int32_t size : {-1, int32_t(Packet::MAX_SIZE + 1)}) {
        SCOPED_TRACE(size);
        RawPeer hostile;
        join(hostile, 1);
        std::string log = logOf([&] {
            hostile.write(header(5, size));
            EXPECT_TRUE(hostile.closedByPeer());
        });
        EXPECT_NE(log.find("FAIL: SocketServer.updateClientIn: Bledna wielkosc pakietu (typ 5 wielkosc " +
                           std::to_string(size) + ")"),
                  std::string::npos);
        EXPECT_FALSE(server.hasClient(1));
        good.write(frame(CONNECT, "still here"));
        EXPECT_EQ(popped(0), frame(CONNECT, "still here"));
        expectOnlyMarker(good, 0);
    }
}

TEST_F(SocketServerTest, FindsAClosedPeerByAFailedWrite) {
    open(17105);
    RawPeer peer;
    join(peer, 0);
    peer.close();
    std::string log = logOf([&] {
        EXPECT_TRUE(waitFor([&] {
            server.send(0, GAME_PAUSE, 0, nullptr);
            return !server.hasClient(0);
        }));
    });
    EXPECT_NE(log.find("INFO: SocketServer.updateClientOut: Rozlaczono"), std::string::npos) << log;
}

// The main thread removes clients while the worker is busy with them; the
// sanitizer builds are what catch a fault here.
TEST_F(SocketServerTest, DisconnectsClientsInTheMiddleOfTheirTraffic) {
    open(17106);
    RawPeer peers[4];
    std::string burst;
    for (int i = 0; i < 200; ++i) burst += frame(CONTROLLER_STATE, std::string(1000, char(i)));
    for (int id = 0; id < 4; ++id) join(peers[id], id);
    for (int id = 0; id < 4; ++id) {
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

TEST_F(SocketServerTest, DropsAClientThatStopsReadingAndServesTheOthers) {
    open(17107);
    RawPeer stalled, reading;
    join(stalled, 0);
    join(reading, 1);
    const std::string chunk(64 * 1024, 's');
    std::string log = logOf([&] {
        // Far beyond what the bound and the system's buffers hold together.
        for (int sent = 0; server.hasClient(0) && sent < 4096; ++sent)
            server.send(0, CHARACTER_STATE, uint32_t(chunk.size()), chunk.data());
    });
    EXPECT_FALSE(server.hasClient(0));
    EXPECT_NE(log.find("FAIL: SocketServer.send: Klient 0 nie odbiera"), std::string::npos) << log;
    expectOnlyMarker(reading, 1);
}

}  // namespace
