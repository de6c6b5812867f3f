// The client's view: one connection, and each frame the receive path is
// drained until it makes no more progress. Input: records of a two-byte
// length and that many bytes.
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedConnection connection("SocketClient.updateRecv");
    for (size_t at = 0, length = 0; at + 2 <= size && connection.open(); at += 2 + length) {
        length = std::min<size_t>(size_t(data[at]) | size_t(data[at + 1]) << 8, size - at - 2);
        connection.arrive(data + at + 2, length);
        while (connection.step()) {
        }
    }
    return 0;
}
