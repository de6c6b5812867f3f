#include "network/SocketServer.h"

#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include "network/SocketDescriptor.h"
#include "network/SocketServerClient.h"
#include "shell/Log.h"

SocketServer::~SocketServer() { close(); }

bool SocketServer::init(uint16_t port, int maxClients) {
    // A server opened again gives up its old port and clients first.
    close();
    bytesIn = 0;
    bytesOut = 0;
    IPaddress address;
    SDLNet_ResolveHost(&address, nullptr, port);
    if (address.host == INADDR_NONE) {
        Log::fail("SocketServer.init: Nie udalo sie znalezc hosta lokalnego, lol");
        return false;
    }
    server = SDLNet_TCP_Open(&address);
    if (!server) {
        Log::fail("SocketServer.init: Nie udalo sie otworzyc socketa (port %d)", port);
        return false;
    }
    serverDescriptor = socketDescriptor(server);
    if (serverDescriptor < 0) {
        Log::fail("SocketServer.init: Nie udalo sie odczytac deskryptora socketa");
        return false;
    }
    set = SDLNet_AllocSocketSet(maxClients + 1);
    if (!set) {
        Log::fail("SocketServer.init: Nie udalo sie stworzyc socket seta");
        return false;
    }
    if (SDLNet_AddSocket(set, reinterpret_cast<SDLNet_GenericSocket>(server)) < 1) {
        Log::fail("SocketServer.init: Nie udalo sie dodac serwera do socket seta");
        return false;
    }
    clientCount = 0;
    running = true;
    mutex = SDL_CreateMutex();
    if (!mutex) {
        Log::fail("SocketServer.init: Nie udalo sie stworzyc mutexa");
        return false;
    }
    wakeDescriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (wakeDescriptor < 0) {
        Log::fail("SocketServer.init: Nie udalo sie stworzyc budzika watku");
        return false;
    }
    thread = SDL_CreateThread(workerMain, this);
    if (!thread) {
        Log::fail("SocketServer.init: Nie udalo sie wystartowac watku");
        return false;
    }
    Log::ok("SocketServer.init: Serwer wlaczony na porcie %d", port);
    return true;
}

void SocketServer::send(int id, int type, uint32_t size, const void* data) { send(&id, 1, type, size, data); }

void SocketServer::send(const int* ids, size_t count, int type, uint32_t size, const void* data) {
    if (count == 0) return;
    // Made outside the lock, once for everybody.
    Packet* packet = Packet::create(type, size, data);
    if (!packet) return;
    MutexHold hold(mutex);
    bool queued = false;
    for (size_t i = 0; i < count; ++i) {
        Client* client = clientAt(ids[i]);
        if (!client) continue;
        if (queueOut(client, Packet::share(packet)))
            queued = true;
        else
            removeClient(client);
    }
    Packet::destroy(packet);
    if (queued) wakeWorker();
}

// The worker takes the mutex for each client's whole step and never waits
// on the network while it holds it, so the main thread can remove a client
// at once: the worker is never inside one without the lock.
void SocketServer::disconnect(int id) {
    MutexHold hold(mutex);
    if (Client* client = clientAt(id)) removeClient(client);
}

void SocketServer::close() {
    stopRunning();
    if (thread) SDL_WaitThread(thread, nullptr);
    thread = nullptr;
    if (mutex) SDL_DestroyMutex(mutex);
    mutex = nullptr;
    if (wakeDescriptor >= 0) ::close(wakeDescriptor);
    wakeDescriptor = -1;
    wakeRung = false;
    wakeHolds = 0;
    wakeWanted = false;
    for (Client* client : clients)
        if (client) removeClient(client);
    clients.clear();
    if (server) SDLNet_TCP_Close(server);
    if (set) SDLNet_FreeSocketSet(set);
    server = nullptr;
    set = nullptr;
    serverDescriptor = -1;
    clientCount = 0;
}

int SocketServer::slotCount() {
    MutexHold hold(mutex);
    return int(clients.size());
}

bool SocketServer::hasClient(int id) {
    MutexHold hold(mutex);
    return clientAt(id) != nullptr;
}

int SocketServer::getClientCount() {
    MutexHold hold(mutex);
    return clientCount;
}

Packet* SocketServer::pop(int id) {
    MutexHold hold(mutex);
    Client* client = clientAt(id);
    return client ? client->in.pop() : nullptr;
}

int SocketServer::getPing(int id) {
    MutexHold hold(mutex);
    Client* client = clientAt(id);
    return client ? client->ping : 0;
}

bool SocketServer::isRunning() {
    MutexHold hold(mutex);
    return running;
}

void SocketServer::stopRunning() {
    MutexHold hold(mutex);
    running = false;
    ring();
}

void SocketServer::holdWakes() {
    MutexHold hold(mutex);
    ++wakeHolds;
}

void SocketServer::releaseWakes() {
    MutexHold hold(mutex);
    if (wakeHolds > 0 && --wakeHolds == 0 && wakeWanted) ring();
}

// Under the mutex: there is something for the worker to write.
void SocketServer::wakeWorker() {
    if (wakeHolds > 0)
        wakeWanted = true;
    else
        ring();
}

// Under the mutex. One ring is enough until the worker has heard it.
void SocketServer::ring() {
    wakeWanted = false;
    if (wakeRung || wakeDescriptor < 0) return;
    uint64_t one = 1;
    wakeRung = write(wakeDescriptor, &one, sizeof one) == sizeof one;
}

void SocketServer::getTraffic(uint64_t* in, uint64_t* out) {
    MutexHold hold(mutex);
    if (in) *in = bytesIn;
    if (out) *out = bytesOut;
}

SocketServer::Client* SocketServer::clientAt(int id) {
    return id >= 0 && size_t(id) < clients.size() ? clients[size_t(id)] : nullptr;
}

bool SocketServer::queueOut(Client* client, Packet* packet) {
    if (client->out.push(packet)) return true;
    Log::fail("SocketServer.send: Klient %d nie odbiera (kolejka %llu bajtow); Rozlaczono", client->id,
              static_cast<unsigned long long>(client->out.bytes()));
    Packet::destroy(packet);
    return false;
}

void SocketServer::removeClient(Client* client) {
    MutexHold hold(mutex);
    if (set) SDLNet_DelSocket(set, reinterpret_cast<SDLNet_GenericSocket>(client->socket));
    // The worker may be asleep on this socket, which would keep it open past
    // the close; the shutdown ends the connection at once either way.
    shutdown(client->descriptor, SHUT_RDWR);
    SDLNet_TCP_Close(client->socket);
    clientCount -= 1;
    clients[size_t(client->id)] = nullptr;
    delete client;
}
