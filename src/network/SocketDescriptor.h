#pragma once
#include <SDL/SDL_net.h>

// The system descriptor behind an SDL_net TCP socket, or -1 when it cannot
// be found. SDL_net 1.2 offers no non-blocking writes, and a host must not
// hang on a client that stops reading, so the worker reaches past it.
int socketDescriptor(TCPsocket socket);

// Whether a failed call on such a descriptor, left non-blocking, only has to
// wait for another turn (errno) rather than having lost the connection.
bool wouldBlock();
