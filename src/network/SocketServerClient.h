#pragma once
#include "network/FrameReader.h"
#include "network/FrameWriter.h"
#include "network/PacketQueue.h"
#include "network/SocketServer.h"

// One connection of a SocketServer, owned by its slot table. The queues and
// `ping` are shared with the main thread under the server's mutex; the rest
// is the worker's.
struct SocketServer::Client {
    Client(TCPsocket socket, int descriptor, int id, uint32_t now)
        : socket(socket), descriptor(descriptor), id(id), pingTime(now) {}
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    bool hasOutput() const { return writer.pending() || !out.empty(); }

    TCPsocket socket;
    int descriptor;
    int32_t id;
    int32_t ping = 0;
    uint32_t pingTime;
    uint32_t pingsMissed = 0;
    FrameReader reader{"SocketServer.updateClientIn"};
    // The peer has closed its side: nothing more will arrive, so its socket
    // is no longer waited on for reading.
    bool readEnded = false;
    PacketQueue in;
    PacketQueue out{SocketServer::MAX_QUEUED};
    // What it has taken from `out` for the socket.
    FrameWriter writer;
};

// Holds an SDL mutex for a scope; a null mutex (a server never opened, or one
// already closed) is not taken.
class MutexHold {
public:
    explicit MutexHold(SDL_mutex* mutex) : mutex(mutex) {
        if (mutex) SDL_mutexP(mutex);
    }
    ~MutexHold() {
        if (mutex) SDL_mutexV(mutex);
    }
    MutexHold(const MutexHold&) = delete;
    MutexHold& operator=(const MutexHold&) = delete;

private:
    SDL_mutex* mutex;
};
