#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

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

    void open(uint16_t port, int maxClients = 8) { ASSERT_TRUE(server.init(port, maxClients)); }
    // Connects a raw peer and waits until the server has given it `id`.
    void join(RawPeer& peer, uint16_t port, int id) {
        ASSERT_TRUE(peer.connect(port));
        ASSERT_TRUE(waitFor([&] { return server.hasClient(id); }));
    }
    std::string popped(int id) {
        Packet* packet = nullptr;
        waitFor([&] { return (packet = server.pop(id)) != nullptr; });
        if (!packet) return "nothing";
        std::string bytes = frame(packet->type, std::string(reinterpret_cast<char*>(packet->payload()), packet->size));
        Packet::destroy(packet);
        return bytes;
    }
    // A marker there and back: whatever the worker queued before it arrives first.
    void expectOnlyMarker(RawPeer& peer, int id) {
        server.send(id, 77, 2, "ok");
        EXPECT_EQ(peer.read(10), frame(77, "ok"));
    }

    SocketServer server;
};

TEST_F(SocketServerTest, DeliversFramesWholeAndWritesThemLittleEndian) {
    open(17101);
    RawPeer peer;
    join(peer, 17101, 0);
    std::string big(5000, 'x');
    std::string log = logOf([&] {
        peer.write(frame(7, big) + frame(GAME_START, ""));
        EXPECT_EQ(popped(0), frame(7, big));
        EXPECT_EQ(popped(0), frame(GAME_START, ""));
    });
    EXPECT_NE(log.find("FAIL: SocketServer.updateClientIn: Duzy pakiet (typ 7 wielkosc 5000)"), std::string::npos);

    server.send(0, 300, 3, "abc");
    EXPECT_EQ(peer.read(11), std::string("\x2c\x01\0\0\x03\0\0\0abc", 11));
    uint64_t in = 0, out = 0;
    server.getTraffic(&in, &out);
    EXPECT_EQ(in, 5008u + 8u);
    EXPECT_EQ(out, 11u);
}

TEST_F(SocketServerTest, EchoesAClientPingWithoutQueueingIt) {
    open(17102);
    RawPeer peer;
    join(peer, 17102, 0);
    peer.write(frame(PING_CLIENT, "tick"));
    EXPECT_EQ(peer.read(12), frame(PING_CLIENT, "tick"));
    EXPECT_EQ(server.pop(0), nullptr);
}

TEST_F(SocketServerTest, PingsEveryIntervalAndDropsAfterTheFourthUnanswered) {
    FakeClock::time = 1000;
    server.now = FakeClock::now;
    open(17103);
    RawPeer answering, silent;
    join(answering, 17103, 0);
    join(silent, 17103, 1);

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

TEST_F(SocketServerTest, ClosesAConnectionBeyondMaxClientsAtOnce) {
    open(17104, 2);
    RawPeer first, second, extra;
    join(first, 17104, 0);
    join(second, 17104, 1);
    std::string log = logOf([&] {
        ASSERT_TRUE(extra.connect(17104));
        EXPECT_TRUE(extra.closedByPeer());
    });
    EXPECT_NE(log.find("FAIL: SocketServer.updateJoin: Nie udalo sie dodac klienta do socket seta"),
              std::string::npos);
    EXPECT_EQ(server.slotCount(), 2);
    EXPECT_EQ(server.getClientCount(), 2);
}

TEST_F(SocketServerTest, ReusesTheLowestFreeIdAndIgnoresFreeOnes) {
    open(17105);
    RawPeer first, second, third;
    join(first, 17105, 0);
    join(second, 17105, 1);
    server.disconnect(0);
    EXPECT_FALSE(server.hasClient(0));
    EXPECT_EQ(server.getClientCount(), 1);
    EXPECT_TRUE(first.closedByPeer());

    std::string log = logOf([&] {
        for (int id : {-1, 0, 2, 1000}) {
            server.send(id, 5, 4, "abcd");
            server.disconnect(id);
            EXPECT_EQ(server.pop(id), nullptr);
        }
    });
    EXPECT_EQ(log, "");

    join(third, 17105, 0);
    EXPECT_EQ(server.slotCount(), 2);
    EXPECT_EQ(server.getClientCount(), 2);
}

TEST_F(SocketServerTest, HostileSizeDropsOnlyThatConnection) {
    const struct {
        int32_t size;
        const char* log;
    } cases[] = {
        {-1, "FAIL: SocketServer.updateClientIn: Bledna wielkosc pakietu (typ 5 wielkosc -1)"},
        {int32_t(Packet::MAX_SIZE + 1),
         "FAIL: SocketServer.updateClientIn: Bledna wielkosc pakietu (typ 5 wielkosc 1048577)"},
    };
    open(17106);
    RawPeer good;
    join(good, 17106, 0);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.size);
        RawPeer hostile;
        join(hostile, 17106, 1);
        std::string log = logOf([&] {
            hostile.write(header(5, c.size));
            EXPECT_TRUE(hostile.closedByPeer());
        });
        EXPECT_NE(log.find(c.log), std::string::npos) << log;
        EXPECT_FALSE(server.hasClient(1));
        good.write(frame(CONNECT, "still here"));
        EXPECT_EQ(popped(0), frame(CONNECT, "still here"));
        expectOnlyMarker(good, 0);
    }
}

TEST_F(SocketServerTest, DropsAClientThatStopsReadingAndServesTheOthers) {
    open(17107);
    RawPeer stalled, reading;
    join(stalled, 17107, 0);
    join(reading, 17107, 1);
    const std::string chunk(64 * 1024, 's');
    uint64_t queued = 0;
    std::string log = logOf([&] {
        // Far beyond what the bound and the system's buffers can hold together.
        while (server.hasClient(0) && queued < 256u * 1024 * 1024) {
            server.send(0, CHARACTER_STATE, uint32_t(chunk.size()), chunk.data());
            queued += chunk.size();
        }
    });
    EXPECT_FALSE(server.hasClient(0));
    EXPECT_NE(log.find("FAIL: SocketServer.send: Klient 0 nie odbiera"), std::string::npos) << log;
    expectOnlyMarker(reading, 1);
}

}  // namespace
