// The worker thread of SocketServer: accepting, reading, writing, pinging.
#include <pthread.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

#include <new>

#include "network/SocketDescriptor.h"
#include "network/SocketServer.h"
#include "network/SocketServerClient.h"
#include "resources/LittleEndian.h"
#include "shell/Log.h"

namespace {

const uint32_t PING_INTERVAL = 7500;
const uint32_t PINGS_MISSED_LIMIT = 3;
// The wait set holds the listener, the doorbell, then the clients.
const size_t FIRST_CLIENT = 2;

}  // namespace

int SocketServer::workerMain(void* self) {
    // Woken by the game's frame, the worker must not take the processor
    // from it: as a batch thread it waits for a free core or for the frame
    // to sleep. Where that is refused, it runs as it is.
    sched_param batch{};
    pthread_setschedparam(pthread_self(), SCHED_BATCH, &batch);
    SocketServer* server = static_cast<SocketServer*>(self);
    while (server->isRunning()) server->pass();
    server->flushOutput();
    return 0;
}

// What was queued before the stop, such as the server's goodbye, goes out as
// far as the sockets take it now; the sockets close with the server.
void SocketServer::flushOutput() {
    const int MAX_ROUNDS = 16;
    for (size_t id = 0; id < clients.size(); ++id) {
        MutexHold hold(mutex);
        Client* client = clients[id];
        for (int round = 0; round < MAX_ROUNDS && client && clients[id] == client && client->hasOutput(); ++round)
            updateClientOut(client);
    }
}

void SocketServer::pass() {
    waitForSockets();
    updateJoin();
    updatePing();
    // Only this thread grows the table, so its size can be read without the
    // lock here; each slot is looked at under it.
    for (size_t id = 0; id < clients.size(); ++id) {
        MutexHold hold(mutex);
        Client* client = clients[id];
        if (!client) continue;
        short events = id < readiness.size() ? readiness[id] : 0;
        if (events & (POLLIN | POLLERR | POLLHUP)) updateClientIn(client);
        if (clients[id] == client && client->hasOutput()) updateClientOut(client);
    }
}

// Sleeps until a socket has something to read, a pending frame can be
// written, the main thread rings, or waitMs has passed.
void SocketServer::waitForSockets() {
    waitSet.assign({pollfd{serverDescriptor, POLLIN, 0}, pollfd{wakeDescriptor, POLLIN, 0}});
    waitIds.clear();
    {
        MutexHold hold(mutex);
        // What is queued from here on rings again; what was queued before
        // is in the set below.
        uint64_t rings;
        if (wakeRung && read(wakeDescriptor, &rings, sizeof rings) == sizeof rings) wakeRung = false;
        for (Client* client : clients) {
            if (!client) continue;
            short events = short((client->readEnded ? 0 : POLLIN) | (client->hasOutput() ? POLLOUT : 0));
            if (!events) continue;
            waitSet.push_back(pollfd{client->descriptor, events, 0});
            waitIds.push_back(client->id);
        }
    }
    int ready = poll(waitSet.data(), waitSet.size(), waitMs);
    readiness.assign(clients.size(), 0);
    if (ready <= 0) return;
    for (size_t i = 0; i < waitIds.size(); ++i) readiness[size_t(waitIds[i])] = waitSet[i + FIRST_CLIENT].revents;
}

void SocketServer::updateJoin() {
    if (!(waitSet[0].revents & POLLIN)) return;
    TCPsocket socket = SDLNet_TCP_Accept(server);
    if (!socket) return;
    MutexHold hold(mutex);
    if (SDLNet_AddSocket(set, reinterpret_cast<SDLNet_GenericSocket>(socket)) < 1) {
        Log::fail("SocketServer.updateJoin: Nie udalo sie dodac klienta do socket seta");
        SDLNet_TCP_Close(socket);
        return;
    }
    int descriptor = socketDescriptor(socket);
    size_t id = 0;
    while (id < clients.size() && clients[id]) ++id;
    Client* client = descriptor < 0 ? nullptr : new (std::nothrow) Client(socket, descriptor, int(id), now());
    if (!client) {
        Log::fail("SocketServer.updateJoin: Nie udalo sie przyjac klienta");
        SDLNet_DelSocket(set, reinterpret_cast<SDLNet_GenericSocket>(socket));
        SDLNet_TCP_Close(socket);
        return;
    }
    if (id == clients.size())
        clients.push_back(client);
    else
        clients[id] = client;
    clientCount += 1;
    const uint8_t* address = reinterpret_cast<const uint8_t*>(&SDLNet_TCP_GetPeerAddress(socket)->host);
    Log::info("SocketServer.updateJoin: Polaczono z %d.%d.%d.%d; Klient %u", address[0], address[1], address[2],
              address[3], unsigned(id));
}

void SocketServer::updatePing() {
    MutexHold hold(mutex);
    uint32_t time = now();
    for (Client* client : clients) {
        if (!client) continue;
        if (client->pingsMissed > PINGS_MISSED_LIMIT) {
            Log::fail("SocketServer.updatePing: Rozlaczono");
            removeClient(client);
            return;
        }
        if (int32_t(time - client->pingTime) <= int32_t(PING_INTERVAL)) continue;
        uint8_t stamp[4];
        LittleEndian::writeU32(stamp, time);
        Packet* ping = Packet::create(PING_SERVER, sizeof stamp, stamp);
        if (!ping) continue;
        if (!queueOut(client, ping)) {
            removeClient(client);
            return;
        }
        client->pingTime = time;
        client->pingsMissed += 1;
    }
}

void SocketServer::updateClientIn(Client* client) {
    Packet* packet = nullptr;
    FrameReader::Read read = [this, client](uint8_t* into, uint32_t count) { return receive(client, into, count); };
    switch (client->reader.step(read, packet)) {
    case FrameReader::HEADER_PENDING:
    case FrameReader::PAYLOAD_PENDING:
        return;
    case FrameReader::LOST:
        Log::fail("SocketServer.updateClientIn: Rozlaczono");
        removeClient(client);
        return;
    case FrameReader::REFUSED:
        removeClient(client);
        return;
    case FrameReader::COMPLETE:
        deliver(client, packet);
        return;
    }
}

// A read of what is there now, never a wait: 0 when nothing is.
int SocketServer::receive(Client* client, uint8_t* into, uint32_t count) {
    ssize_t got = recv(client->descriptor, into, count, MSG_DONTWAIT);
    if (got > 0) {
        bytesIn += uint64_t(got);
        return int(got);
    }
    if (got == 0) {
        // An orderly close stays in the table until a write or the pings
        // find it out, but it is not waited on any more: it is always readable.
        client->readEnded = true;
        return 0;
    }
    return wouldBlock() ? 0 : -1;
}

void SocketServer::deliver(Client* client, Packet* packet) {
    if (packet->type > PING_SERVER) {
        client->in.push(packet);
        return;
    }
    if (packet->type == PING_SERVER) {
        client->pingsMissed = 0;
        if (packet->size >= 4) client->ping = int32_t(now() - LittleEndian::readU32(packet->payload()));
        Packet::destroy(packet);
        return;
    }
    // A ping of the client goes back just as it came.
    if (!queueOut(client, packet)) removeClient(client);
}

// Writes what the socket takes now of the frames waiting, many in one
// system call; the rest goes on a later pass, so a client that reads slowly
// holds up nobody, and a busy one costs a call a pass, not one a frame.
void SocketServer::updateClientOut(Client* client) {
    long written = client->writer.step(client->out, [client](const iovec* parts, size_t count) {
        msghdr message{};
        message.msg_iov = const_cast<iovec*>(parts);
        message.msg_iovlen = count;
        ssize_t taken = sendmsg(client->descriptor, &message, MSG_DONTWAIT | MSG_NOSIGNAL);
        return taken >= 0 ? long(taken) : wouldBlock() ? 0L : -1L;
    });
    if (written < 0) {
        Log::info("SocketServer.updateClientOut: Rozlaczono");
        removeClient(client);
        return;
    }
    bytesOut += uint64_t(written);
}
