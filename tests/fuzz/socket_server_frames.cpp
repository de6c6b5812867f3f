#include <cstddef>
#include <cstdint>

#include "FrameFuzz.h"

// The worker's view: several connections whose bytes come interleaved in
// arbitrary chunks, and one reader step per connection each time some of
// its bytes arrive. Input: records of a connection byte, a length byte and
// that many bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* const PREFIX = "SocketServer.updateClientIn";
    const size_t CONNECTIONS = 4;
    FuzzedConnection connections[CONNECTIONS] = {FuzzedConnection(PREFIX), FuzzedConnection(PREFIX),
                                                 FuzzedConnection(PREFIX), FuzzedConnection(PREFIX)};
    size_t at = 0;
    while (at + 2 <= size) {
        FuzzedConnection& connection = connections[data[at] % CONNECTIONS];
        size_t length = std::min<size_t>(data[at + 1], size - at - 2);
        connection.arrive(data + at + 2, length);
        connection.step();
        at += 2 + length;
    }
    return 0;
}
