#include "network/SocketClient.h"

#include <sys/socket.h>

#include <algorithm>
#include <cstring>

#include "network/SocketDescriptor.h"
#include "resources/LittleEndian.h"
#include "shell/Log.h"

namespace {

const uint32_t PING_INTERVAL = 5000;
const uint32_t PINGS_MISSED_LIMIT = 5;

}  // namespace

SocketClient::~SocketClient() { close(); }

bool SocketClient::init(const std::string& host, uint16_t port) {
    close();
    IPaddress address;
    SDLNet_ResolveHost(&address, host.c_str(), port);
    if (address.host == INADDR_NONE) {
        Log::fail("SocketClient.init: Nie udalo sie znalezc adresu \"%s\"", host.c_str());
        return false;
    }
    socket = SDLNet_TCP_Open(&address);
    if (!socket) {
        Log::fail("SocketClient.init: Nie udalo sie otworzyc socketa (adres \"%s\" port %d)", host.c_str(), port);
        return false;
    }
    // SDL_net 1.2 reads only by blocking or by asking first; the frame may
    // neither wait nor pay a system call to ask, so reads go past it.
    descriptor = socketDescriptor(socket);
    if (descriptor < 0) {
        Log::fail("SocketClient.init: Nie udalo sie odczytac deskryptora socketa");
        close();
        return false;
    }
    ping = 0;
    pingTime = now();
    pingsMissed = 0;
    Log::ok("SocketClient.init: Polaczono z %s na porcie %d", host.c_str(), port);
    return true;
}

void SocketClient::close() {
    closeSocket();
    in.clear();
}

void SocketClient::closeSocket() {
    if (socket) SDLNet_TCP_Close(socket);
    socket = nullptr;
    descriptor = -1;
    reader.reset();
    inboxStart = inboxEnd = 0;
}

void SocketClient::send(int type, uint32_t size, const void* data) {
    if (!socket) return;
    if (!data) size = 0;
    uint8_t typeBytes[4];
    uint8_t sizeBytes[4];
    LittleEndian::writeI32(typeBytes, type);
    LittleEndian::writeU32(sizeBytes, size);
    int64_t sent = SDLNet_TCP_Send(socket, typeBytes, sizeof typeBytes);
    sent += SDLNet_TCP_Send(socket, sizeBytes, sizeof sizeBytes);
    if (size > 0) sent += SDLNet_TCP_Send(socket, data, int(size));
    if (sent > 0) bytesOut += uint64_t(sent);
    if (sent < int64_t(size) + int64_t(Packet::HEADER_SIZE)) {
        Log::fail("SocketClient.send: Rozlaczono");
        close();
    }
}

bool SocketClient::updateRecv() {
    if (!socket) return false;
    Packet* packet = nullptr;
    FrameReader::Read read = [this](uint8_t* into, uint32_t count) { return receive(into, count); };
    switch (reader.step(read, packet)) {
    case FrameReader::HEADER_PENDING:
    case FrameReader::PAYLOAD_PENDING:
        // The inbox is empty; the system may hold more only if the last
        // read filled it.
        return !drained;
    case FrameReader::LOST:
        Log::fail("SocketClient.updateRecv: Rozlaczono");
        // What arrived whole before the end, such as a server's goodbye,
        // is still there to be parsed.
        closeSocket();
        return false;
    case FrameReader::REFUSED:
        close();
        return false;
    case FrameReader::COMPLETE:
        deliver(packet);
        return true;
    }
    return false;
}

// Takes from the inbox, which is filled by one read of whatever is there
// once it is empty; never waits. 0 when nothing is there now.
int SocketClient::receive(uint8_t* into, uint32_t count) {
    if (inboxStart == inboxEnd) {
        inbox.resize(INBOX_SIZE);
        ssize_t got = recv(descriptor, inbox.data(), INBOX_SIZE, MSG_DONTWAIT);
        if (got < 0) {
            drained = true;
            return wouldBlock() ? 0 : -1;
        }
        // The server has closed its side: nothing will ever come again.
        if (got == 0) return -1;
        bytesIn += uint64_t(got);
        inboxStart = 0;
        inboxEnd = uint32_t(got);
        drained = inboxEnd < INBOX_SIZE;
    }
    uint32_t taken = std::min(count, inboxEnd - inboxStart);
    memcpy(into, inbox.data() + inboxStart, taken);
    inboxStart += taken;
    return int(taken);
}

void SocketClient::deliver(Packet* packet) {
    if (packet->type > PING_SERVER) {
        in.push(packet);
        return;
    }
    if (packet->type == PING_SERVER) {
        send(PING_SERVER, packet->size, packet->payload());
    } else {
        pingsMissed = 0;
        if (packet->size >= 4) ping = int32_t(now() - LittleEndian::readU32(packet->payload()));
    }
    Packet::destroy(packet);
}

void SocketClient::updatePing() {
    if (!socket) return;
    uint32_t time = now();
    if (pingsMissed > PINGS_MISSED_LIMIT) {
        Log::fail("SocketClient.updatePing: Rozlaczono");
        close();
    } else if (int32_t(time - pingTime) > int32_t(PING_INTERVAL)) {
        uint8_t stamp[4];
        LittleEndian::writeU32(stamp, time);
        send(PING_CLIENT, sizeof stamp, stamp);
        pingTime = time;
        pingsMissed += 1;
    }
    while (socket && updateRecv()) {
    }
}
