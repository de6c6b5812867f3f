#pragma once
#include <SDL/SDL.h>
#include <SDL/SDL_net.h>

#include <cstdint>
#include <string>
#include <vector>

#include "network/FrameReader.h"
#include "network/Packet.h"
#include "network/PacketQueue.h"

// The joining side's TCP transport: one connection, polled on the main
// thread. send writes at once; reception is drained by updatePing.
class SocketClient {
public:
    SocketClient() = default;
    SocketClient(const SocketClient&) = delete;
    SocketClient& operator=(const SocketClient&) = delete;
    ~SocketClient();

    // Connects, blocking until the connection stands or fails. After a false
    // result the object is not connected and can try again.
    bool init(const std::string& host, uint16_t port);
    // Drops the connection and everything queued; harmless when not connected.
    void close();
    // Writes one packet now; nothing when not connected.
    void send(int type, uint32_t size, const void* data);
    // One step of reception; true when another call may find more.
    bool updateRecv();
    // The keep-alive, then reception until nothing is left. Once a frame.
    void updatePing();

    bool isConnected() const { return socket != nullptr; }
    // The front of the inbound queue, now the caller's; null if empty.
    Packet* pop() { return in.pop(); }

    int32_t ping = 0;
    // Bytes read from and written to the socket since the object was made.
    uint64_t bytesIn = 0;
    uint64_t bytesOut = 0;
    // The millisecond clock of the pings; tests may replace it.
    uint32_t (*now)() = SDL_GetTicks;

private:
    // What arrives is read in chunks of up to this many bytes, so that a
    // frame of a busy game costs a system call or two, not four a packet.
    static constexpr uint32_t INBOX_SIZE = 64u << 10;

    // Ends the connection, keeping the packets that arrived whole.
    void closeSocket();
    int receive(uint8_t* into, uint32_t count);
    void deliver(Packet* packet);

    TCPsocket socket = nullptr;
    int descriptor = -1;
    // Bytes read from the socket and not yet taken by the reader.
    std::vector<uint8_t> inbox;
    uint32_t inboxStart = 0;
    uint32_t inboxEnd = 0;
    // The last read took everything the system had.
    bool drained = false;
    uint32_t pingTime = 0;
    uint32_t pingsMissed = 0;
    FrameReader reader{"SocketClient.updateRecv"};
    PacketQueue in;
};
