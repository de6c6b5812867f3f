#pragma once
#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <poll.h>

#include <cstdint>
#include <vector>

#include "network/Packet.h"

// The hosting side's TCP transport: a listening socket, a table of clients
// and one worker thread that accepts, reads, writes and pings. The game on
// the main thread sees only per-client packet queues, through the calls
// below, each of which holds the mutex for its own read alone.
class SocketServer {
public:
    struct Client;

    SocketServer() = default;
    SocketServer(const SocketServer&) = delete;
    SocketServer& operator=(const SocketServer&) = delete;
    ~SocketServer();

    // Opens the listener on `port` for at most `maxClients` connections and
    // starts the worker. Main thread.
    bool init(uint16_t port, int maxClients);
    // Queues a copy of the payload for client `id`; a free or unknown id
    // does nothing, and a client whose queue would pass MAX_QUEUED is
    // dropped instead. Either thread.
    void send(int id, int type, uint32_t size, const void* data);
    // The same for each of `count` ids, with one packet that all of them
    // share and one hold of the mutex.
    void send(const int* ids, size_t count, int type, uint32_t size, const void* data);
    // Removes a client; a free or unknown id is ignored. Main thread.
    void disconnect(int id);
    // Stops the worker and releases everything; also what destruction does.
    void close();

    // The game's reads of the table.
    int slotCount();
    bool hasClient(int id);
    int getClientCount();
    // The front of client `id`'s inbound queue, now the caller's; null if
    // there is none.
    Packet* pop(int id);
    int getPing(int id);
    bool isRunning();
    // Lets the worker end on its next pass; the sockets stay for close().
    void stopRunning();
    // While one is held, sends queue their packets without waking the
    // worker; the last release wakes it once for all of them. A frame of
    // the game sends in bursts, and each wake costs a system call and may
    // take the processor from the frame. Main thread.
    void holdWakes();
    void releaseWakes();
    // Bytes read from and written to all clients since init.
    void getTraffic(uint64_t* bytesIn, uint64_t* bytesOut);

    // The millisecond clock of the pings; tests replace it before init.
    uint32_t (*now)() = SDL_GetTicks;
    // The longest the worker sleeps when nothing happens, in milliseconds;
    // it only paces the pings, since sockets and queued packets wake it at
    // once. 0 spins without sleeping. Set before init.
    int waitMs = 100;
    // Frame bytes a client's outbound queue may hold; a client that lets
    // more pile up has stopped reading and is dropped.
    static constexpr uint32_t MAX_QUEUED = 4u << 20;

private:
    static int workerMain(void* self);
    void pass();
    void flushOutput();
    void wakeWorker();
    void ring();
    void waitForSockets();
    void updateJoin();
    void updatePing();
    void updateClientIn(Client* client);
    int receive(Client* client, uint8_t* into, uint32_t count);
    void deliver(Client* client, Packet* packet);
    void updateClientOut(Client* client);
    bool queueOut(Client* client, Packet* packet);
    void removeClient(Client* client);
    // Null for a free or unknown id; under the mutex.
    Client* clientAt(int id);

    TCPsocket server = nullptr;
    SDLNet_SocketSet set = nullptr;
    std::vector<Client*> clients;  // index = id; null = free
    int32_t clientCount = 0;
    bool running = false;
    SDL_Thread* thread = nullptr;
    SDL_mutex* mutex = nullptr;
    int serverDescriptor = -1;
    // The main thread's doorbell for the sleeping worker, and whether it has
    // rung since the worker last looked.
    int wakeDescriptor = -1;
    bool wakeRung = false;
    int wakeHolds = 0;
    bool wakeWanted = false;
    uint64_t bytesIn = 0;
    uint64_t bytesOut = 0;
    // The worker's own: what it waits on and what the wait found, per id.
    std::vector<pollfd> waitSet;
    std::vector<int> waitIds;
    std::vector<short> readiness;
};
