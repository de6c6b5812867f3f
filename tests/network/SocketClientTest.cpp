#include <gtest/gtest.h>

#include <string>

#include "LogCapture.h"
#include "RawPeer.h"
#include "network/SocketClient.h"
#include "network/SocketServer.h"

namespace {

class SocketClientTest : public NetworkTest {
protected:
    void TearDown() override {
        if (listener) SDLNet_TCP_Close(listener);
        NetworkTest::TearDown();
    }
    void listen(uint16_t listenOn) {
        port = listenOn;
        IPaddress address;
        SDLNet_ResolveHost(&address, nullptr, port);
        listener = SDLNet_TCP_Open(&address);
    }
    // The client connected, with the raw server end of its connection.
    void connect() {
        ASSERT_TRUE(client.init("127.0.0.1", port));
        ASSERT_TRUE(server.accept(listener));
    }
    std::string received() {
        Packet* packet = nullptr;
        waitFor([&] {
            client.updatePing();
            return (packet = client.pop()) != nullptr;
        });
        return framed(packet);
    }

    uint16_t port = 0;
    TCPsocket listener = nullptr;
    SocketClient client;
    RawPeer server;
};

TEST_F(SocketClientTest, RetriesAfterAFailedInitAndSendsLittleEndianFrames) {
    std::string log = logOf([&] { EXPECT_FALSE(client.init("127.0.0.1", 17121)); });
    EXPECT_NE(log.find("FAIL: SocketClient.init: Nie udalo sie otworzyc socketa (adres \"127.0.0.1\" port 17121)"),
              std::string::npos);
    EXPECT_FALSE(client.isConnected());
    EXPECT_EQ(logOf([&] {
                  client.send(HANDSHAKE, 0, nullptr);
                  client.updatePing();
                  client.close();
                  client.close();
              }),
              "");

    listen(17121);
    log = logOf([&] { connect(); });
    EXPECT_NE(log.find("OK  : SocketClient.init: Polaczono z 127.0.0.1 na porcie 17121"), std::string::npos);
    const int32_t unknown[2] = {-1, -1};
    client.send(CONNECT, 8, unknown);
    client.send(HANDSHAKE, 0, nullptr);
    client.send(SOUND, 100, nullptr);  // no data: size 0 whatever was asked
    EXPECT_EQ(server.read(32), std::string("\x34\0\0\0\x08\0\0\0\xff\xff\xff\xff\xff\xff\xff\xff"
                                           "\x32\0\0\0\0\0\0\0\x0c\0\0\0\0\0\0\0",
                                           32));
    EXPECT_EQ(client.bytesOut, 32u);
}

TEST_F(SocketClientTest, EchoesAServerPingInTheSameStepAndDeliversTheRestWhole) {
    listen(17122);
    connect();
    std::string big(5000, 'b');
    server.write(frame(PING_SERVER, "tock") + frame(GAME_START, "") + frame(7, big));
    ASSERT_TRUE(waitFor([&] { return client.updateRecv(); }));
    EXPECT_EQ(server.read(12), frame(PING_SERVER, "tock"));
    EXPECT_EQ(client.pop(), nullptr);
    ASSERT_TRUE(client.updateRecv());  // size 0: complete with its header
    EXPECT_EQ(framed(client.pop()), frame(GAME_START, ""));
    std::string log = logOf([&] { EXPECT_EQ(received(), frame(7, big)); });
    EXPECT_NE(log.find("FAIL: SocketClient.updateRecv: Duzy pakiet (typ 7 wielkosc 5000)"), std::string::npos);
    EXPECT_EQ(client.bytesIn, 12u + 8u + 5008u);
}

TEST_F(SocketClientTest, PingsEveryIntervalAndDropsAfterTheSixthUnanswered) {
    FakeClock::time = 1000;
    client.now = FakeClock::now;
    listen(17123);
    connect();
    FakeClock::time += 5000;  // not later than the interval yet
    client.updatePing();
    client.send(77, 2, "ok");  // sends are synchronous: no ping went before it
    EXPECT_EQ(server.read(10), frame(77, "ok"));

    FakeClock::time += 1;
    client.updatePing();
    std::string first = frame(PING_CLIENT, littleEndian(FakeClock::time));
    ASSERT_EQ(server.read(12), first);
    FakeClock::time += 25;
    server.write(first);
    ASSERT_TRUE(waitFor([&] {
        client.updatePing();
        return client.ping == 25;
    }));
    std::string log = logOf([&] {
        for (int ping = 1; ping <= 6; ++ping) {
            FakeClock::time += 5001;
            client.updatePing();
            ASSERT_EQ(server.read(12), frame(PING_CLIENT, littleEndian(FakeClock::time))) << "ping " << ping;
            client.updatePing();
            ASSERT_EQ(client.isConnected(), ping < 6) << "ping " << ping;
        }
    });
    EXPECT_NE(log.find("FAIL: SocketClient.updatePing: Rozlaczono"), std::string::npos);
    EXPECT_TRUE(server.closedByPeer());
}

TEST_F(SocketClientTest, HostileSizeDropsTheConnection) {
    listen(17124);
    for (int32_t size : {-1, int32_t(Packet::MAX_SIZE + 1)}) {
        SCOPED_TRACE(size);
        connect();
        server.write(header(GAME_START, size));
        std::string log = logOf([&] {
            EXPECT_TRUE(waitFor([&] {
                client.updatePing();
                return !client.isConnected();
            }));
        });
        EXPECT_NE(log.find("FAIL: SocketClient.updateRecv: Bledna wielkosc pakietu (typ 6 wielkosc " +
                           std::to_string(size) + ")"),
                  std::string::npos);
        EXPECT_TRUE(server.closedByPeer());
    }
}

TEST_F(SocketClientTest, AServerGoneInTheMiddleOfAPacketEndsTheDrain) {
    listen(17125);
    connect();
    server.write(header(CONNECT, 8) + "abc");
    server.close();
    SDL_Delay(20);
    client.updatePing();  // returns although the socket stays readable
    EXPECT_EQ(client.pop(), nullptr);
}

TEST_F(SocketClientTest, TalksToTheServerTransport) {
    SocketServer host;
    ASSERT_TRUE(host.init(17126, 4));
    ASSERT_TRUE(client.init("127.0.0.1", 17126));
    ASSERT_TRUE(waitFor([&] { return host.hasClient(0); }));
    client.send(HANDSHAKE, 0, nullptr);
    Packet* handshake = nullptr;
    ASSERT_TRUE(waitFor([&] { return (handshake = host.pop(0)) != nullptr; }));
    EXPECT_EQ(framed(handshake), frame(HANDSHAKE, ""));
    const int32_t identity[2] = {0, 2};
    host.send(0, CONNECT, sizeof identity, identity);
    EXPECT_EQ(received(), frame(CONNECT, std::string("\0\0\0\0\2\0\0\0", 8)));
    uint64_t in = 0, out = 0;
    host.getTraffic(&in, &out);
    EXPECT_EQ(in, client.bytesOut);
    EXPECT_EQ(out, client.bytesIn);
}

}  // namespace
