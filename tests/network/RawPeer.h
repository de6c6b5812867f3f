#pragma once
#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <string>

#include "resources/LittleEndian.h"
#include "shell/Log.h"

// Patience for anything that crosses the loopback: generous, because the
// machine may be busy; a passing test never waits for all of it.
const uint32_t PATIENCE_MS = 20000;

// Polls `condition` every millisecond until it holds or time runs out.
template <typename Condition>
bool waitFor(Condition condition, uint32_t timeoutMs = PATIENCE_MS) {
    uint32_t start = SDL_GetTicks();
    while (!condition()) {
        if (SDL_GetTicks() - start > timeoutMs) return false;
        SDL_Delay(1);
    }
    return true;
}

inline std::string littleEndian(uint32_t value) {
    uint8_t bytes[4];
    LittleEndian::writeU32(bytes, value);
    return std::string(reinterpret_cast<char*>(bytes), 4);
}

inline std::string header(int32_t type, int32_t size) { return littleEndian(uint32_t(type)) + littleEndian(uint32_t(size)); }

inline std::string frame(int32_t type, const std::string& payload) {
    return header(type, int32_t(payload.size())) + payload;
}

// A ping clock the test moves by hand; the transports read it from their
// own thread.
struct FakeClock {
    static inline std::atomic<uint32_t> time{1000};
    static uint32_t now() { return time; }
};

// Network and log lock for every transport test.
class NetworkTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(SDLNet_Init(), 0);
        Log::createLock();
    }
    void TearDown() override { SDLNet_Quit(); }
};

// A bare TCP peer that writes exact bytes and reads exactly what comes.
class RawPeer {
public:
    RawPeer() : set(SDLNet_AllocSocketSet(1)) {}
    ~RawPeer() {
        close();
        SDLNet_FreeSocketSet(set);
    }
    RawPeer(const RawPeer&) = delete;
    RawPeer& operator=(const RawPeer&) = delete;

    bool connect(uint16_t port) {
        IPaddress address;
        if (SDLNet_ResolveHost(&address, "127.0.0.1", port) != 0) return false;
        return adopt(SDLNet_TCP_Open(&address));
    }
    // Takes the next connection made to `listener`.
    bool accept(TCPsocket listener) {
        TCPsocket accepted = nullptr;
        waitFor([&] { return (accepted = SDLNet_TCP_Accept(listener)) != nullptr; });
        return adopt(accepted);
    }
    void write(const std::string& bytes) {
        ASSERT_EQ(SDLNet_TCP_Send(socket, bytes.data(), int(bytes.size())), int(bytes.size()));
    }
    // Exactly `count` bytes, or fewer when the connection ends or time runs out.
    std::string read(size_t count, uint32_t timeoutMs = PATIENCE_MS) {
        std::string bytes;
        uint32_t start = SDL_GetTicks();
        while (bytes.size() < count && SDL_GetTicks() - start <= timeoutMs) {
            if (SDLNet_CheckSockets(set, 10) < 1) continue;
            char chunk[65536];
            int got = SDLNet_TCP_Recv(socket, chunk, int(std::min(count - bytes.size(), sizeof chunk)));
            if (got <= 0) break;
            bytes.append(chunk, size_t(got));
        }
        return bytes;
    }
    // True once the other side has ended the connection.
    bool closedByPeer() {
        return waitFor([&] {
            if (SDLNet_CheckSockets(set, 0) < 1) return false;
            char byte;
            return SDLNet_TCP_Recv(socket, &byte, 1) <= 0;
        });
    }
    void close() {
        if (!socket) return;
        SDLNet_TCP_DelSocket(set, socket);
        SDLNet_TCP_Close(socket);
        socket = nullptr;
    }

private:
    bool adopt(TCPsocket opened) {
        close();
        socket = opened;
        return socket && SDLNet_TCP_AddSocket(set, socket) == 1;
    }

    SDLNet_SocketSet set;
    TCPsocket socket = nullptr;
};

// A listening socket for tests that play the server.
class RawListener {
public:
    explicit RawListener(uint16_t port) {
        IPaddress address;
        SDLNet_ResolveHost(&address, nullptr, port);
        socket = SDLNet_TCP_Open(&address);
    }
    ~RawListener() {
        if (socket) SDLNet_TCP_Close(socket);
    }
    RawListener(const RawListener&) = delete;
    RawListener& operator=(const RawListener&) = delete;
    TCPsocket socket;
};
