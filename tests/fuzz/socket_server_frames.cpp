// The worker's view: several connections whose bytes come interleaved in
// arbitrary chunks, and one reader step per connection each time some of
// its bytes arrive. Input: records of a connection byte, a length byte and
// that many bytes.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* const PREFIX = "SocketServer.updateClientIn";
    FuzzedConnection connections[] = {FuzzedConnection(PREFIX), FuzzedConnection(PREFIX), FuzzedConnection(PREFIX),
                                      FuzzedConnection(PREFIX)};
    for (size_t at = 0, length = 0; at + 2 <= size; at += 2 + length) {
        FuzzedConnection& connection = connections[data[at] % 4];
        length = std::min<size_t>(data[at + 1], size - at - 2);
        connection.arrive(data + at + 2, length);
        connection.step();
    }
    return 0;
}
