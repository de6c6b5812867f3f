#include "network/SocketDescriptor.h"

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>

namespace {

// How SDL_net 1.2 lays out its TCP socket; it has not changed since 1.2.0.
// What is read through it is checked against the system before it is used.
struct SdlNetTcpSocket {
    int ready;
    int channel;
    IPaddress remoteAddress;
    IPaddress localAddress;
    int sflag;
};

bool socketOption(int descriptor, int option, int expected) {
    int value = 0;
    socklen_t length = sizeof value;
    return getsockopt(descriptor, SOL_SOCKET, option, &value, &length) == 0 && value == expected;
}

bool samePeer(int descriptor, const IPaddress* peer) {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) return false;
    return address.sin_family == AF_INET && address.sin_addr.s_addr == peer->host &&
           address.sin_port == peer->port;
}

}  // namespace

int socketDescriptor(TCPsocket socket) {
    if (!socket) return -1;
    const SdlNetTcpSocket* layout = reinterpret_cast<const SdlNetTcpSocket*>(socket);
    int descriptor = layout->channel;
    if (descriptor < 0 || !socketOption(descriptor, SO_TYPE, SOCK_STREAM)) return -1;
    // SDL_net hands out a pointer into its own record: where it points
    // confirms the layout, and the system confirms the descriptor.
    const IPaddress* peer = SDLNet_TCP_GetPeerAddress(socket);
    if (!peer) return socketOption(descriptor, SO_ACCEPTCONN, 1) ? descriptor : -1;
    if (peer != &layout->remoteAddress || !samePeer(descriptor, peer)) return -1;
    return descriptor;
}

bool wouldBlock() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }
