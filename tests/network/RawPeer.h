#pragma once
#include <SDL/SDL_net.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <atomic>
#include <cerrno>
#include <string>

#include "network/Packet.h"
#include "network/SocketDescriptor.h"
#include "shell/Log.h"

// Generous, for a busy machine; a passing test never waits for all of it.
template <typename Condition>
bool waitFor(Condition condition, uint32_t timeoutMs = 20000) {
    for (uint32_t start = SDL_GetTicks(); !condition(); SDL_Delay(1))
        if (SDL_GetTicks() - start > timeoutMs) return false;
    return true;
}

// Whether the log holds `line`; the whole log is shown when it doesn't.
inline ::testing::AssertionResult logged(const std::string& log, const std::string& line) {
    if (log.find(line) != std::string::npos) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "no \"" << line << "\" in:\n" << log;
}

inline std::string littleEndian(uint32_t value) { return {char(value), char(value >> 8), char(value >> 16), char(value >> 24)}; }
inline std::string header(int32_t type, int32_t size) { return littleEndian(uint32_t(type)) + littleEndian(uint32_t(size)); }
inline std::string frame(int32_t type, const std::string& payload) {
    return header(type, int32_t(payload.size())) + payload;
}
// A popped packet as its frame on the wire; the packet is freed.
inline std::string framed(Packet* packet) {
    if (!packet) return "nothing";
    std::string bytes = frame(packet->type, std::string(reinterpret_cast<char*>(packet->payload()), packet->size));
    Packet::destroy(packet);
    return bytes;
}

// A ping clock the test moves by hand.
struct FakeClock {
    static inline std::atomic<uint32_t> time{1000};
    static uint32_t now() { return time; }
};

class NetworkTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(SDLNet_Init(), 0);
        Log::createLock();  // the server's worker logs too
    }
    void TearDown() override { SDLNet_Quit(); }
};

// A bare TCP peer that writes exact bytes and reads exactly what comes;
// each read waits at most 20 s for more.
class RawPeer {
public:
    RawPeer() = default;
    RawPeer(const RawPeer&) = delete;
    RawPeer& operator=(const RawPeer&) = delete;
    ~RawPeer() { close(); }

    bool connect(uint16_t port) {
        IPaddress address;
        SDLNet_ResolveHost(&address, "127.0.0.1", port);
        return adopt(SDLNet_TCP_Open(&address));
    }
    bool accept(TCPsocket listener) {
        TCPsocket accepted = nullptr;
        waitFor([&] { return (accepted = SDLNet_TCP_Accept(listener)) != nullptr; });
        return adopt(accepted);
    }
    void write(const std::string& bytes) {
        ASSERT_EQ(SDLNet_TCP_Send(socket, bytes.data(), int(bytes.size())), int(bytes.size()));
    }
    // Exactly `count` bytes, or fewer when the connection ends or time runs out.
    std::string read(size_t count) {
        std::string bytes(count, '\0');
        size_t got = 0;
        for (int n = 0; got < count && (n = SDLNet_TCP_Recv(socket, &bytes[got], int(count - got))) > 0;) got += size_t(n);
        bytes.resize(got);
        return bytes;
    }
    // True once the other side has ended the connection; what came before is skipped.
    bool closedByPeer() {
        char chunk[65536];
        int got = 0;
        while ((got = SDLNet_TCP_Recv(socket, chunk, sizeof chunk)) > 0) {
        }
        return got == 0 || errno == ECONNRESET;
    }
    void close() {
        if (socket) SDLNet_TCP_Close(socket);
        socket = nullptr;
    }

private:
    bool adopt(TCPsocket opened) {
        close();
        socket = opened;
        const timeval patience{20, 0};
        return socket && setsockopt(socketDescriptor(socket), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience) == 0;
    }

    TCPsocket socket = nullptr;
};
