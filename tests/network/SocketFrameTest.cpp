#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LogCapture.h"
#include "RawPeer.h"
#include "network/FrameReader.h"
#include "network/PacketQueue.h"

namespace {

// Serves a byte stream in the chunk sizes a case gives, one chunk a read;
// a chunk of -1 is a lost connection, and past the list nothing is there.
struct ChunkedStream {
    std::string bytes;
    std::vector<int> chunks;
    size_t offset = 0;
    size_t nextChunk = 0;

    int read(uint8_t* into, uint32_t count) {
        if (nextChunk == chunks.size()) return 0;
        int chunk = chunks[nextChunk++];
        if (chunk < 0) return -1;
        int given = std::min({chunk, int(count), int(bytes.size() - offset)});
        std::copy_n(bytes.begin() + long(offset), given, into);
        offset += size_t(given);
        return given;
    }
};

std::string payloadOf(size_t size) {
    std::string payload(size, '\0');
    for (size_t i = 0; i < size; ++i) payload[i] = char(i * 7 + 3);
    return payload;
}

struct FrameCase {
    const char* name;
    std::string bytes;
    std::vector<int> chunks;
    std::vector<FrameReader::Step> steps;  // of the successive step calls
    const char* log;                       // a line expected in the log, or "" for none
};

using S = FrameReader::Step;
const int WHOLE = 1 << 21;

const std::vector<FrameCase> frameCases = {
    {"header in pieces of 3 and 5, size 0 completes with its header", frame(6, ""), {3, 5},
     {S::HEADER_PENDING, S::COMPLETE}, ""},
    {"payload across chunks", frame(3, "abcdef"), {8, 2, 4}, {S::PAYLOAD_PENDING, S::COMPLETE}, ""},
    {"header and payload in one step", frame(3, "abcdef"), {8, 6}, {S::COMPLETE}, ""},
    {"nothing there yet", frame(3, "abc"), {0, 8, 0, 3}, {S::HEADER_PENDING, S::PAYLOAD_PENDING, S::COMPLETE}, ""},
    {"4096 bytes pass without a word", frame(9, payloadOf(4096)), {WHOLE, WHOLE}, {S::COMPLETE}, ""},
    {"4097 bytes warn and arrive", frame(9, payloadOf(4097)), {WHOLE, WHOLE}, {S::COMPLETE},
     "FAIL: T.recv: Duzy pakiet (typ 9 wielkosc 4097)"},
    {"5000 bytes warn and arrive whole", frame(7, payloadOf(5000)), {WHOLE, 4096, WHOLE},
     {S::PAYLOAD_PENDING, S::COMPLETE}, "FAIL: T.recv: Duzy pakiet (typ 7 wielkosc 5000)"},
    {"1 MiB is the largest accepted", frame(9, payloadOf(Packet::MAX_SIZE)), {WHOLE, WHOLE}, {S::COMPLETE},
     "Duzy pakiet (typ 9 wielkosc 1048576)"},
    {"1 MiB and a byte is refused", header(9, int32_t(Packet::MAX_SIZE + 1)), {WHOLE}, {S::REFUSED},
     "FAIL: T.recv: Bledna wielkosc pakietu (typ 9 wielkosc 1048577)"},
    {"size -1 is refused", header(5, -1), {WHOLE}, {S::REFUSED},
     "FAIL: T.recv: Bledna wielkosc pakietu (typ 5 wielkosc -1)"},
    {"the lowest size is refused", header(5, INT32_MIN), {WHOLE}, {S::REFUSED},
     "Bledna wielkosc pakietu (typ 5 wielkosc -2147483648)"},
    {"lost in the header", frame(3, "abc"), {4, -1}, {S::HEADER_PENDING, S::LOST}, ""},
    {"lost in the payload", frame(3, "abc"), {8, 1, -1}, {S::PAYLOAD_PENDING, S::LOST}, ""},
};

TEST(SocketFrame, ReassemblesWhatArrivesInAnyChunks) {
    for (const FrameCase& c : frameCases) {
        SCOPED_TRACE(c.name);
        ChunkedStream stream{c.bytes, c.chunks};
        FrameReader reader("T.recv");
        FrameReader::Read read = [&](uint8_t* into, uint32_t count) { return stream.read(into, count); };
        Packet* packet = nullptr;
        std::vector<S> steps;
        std::string log = logOf([&] {
            for (size_t i = 0; i < c.steps.size(); ++i) steps.push_back(reader.step(read, packet));
        });
        EXPECT_EQ(steps, c.steps);
        if (*c.log)
            EXPECT_NE(log.find(c.log), std::string::npos) << log;
        else
            EXPECT_EQ(log, "");
        if (c.steps.back() != S::COMPLETE) continue;
        ASSERT_NE(packet, nullptr);
        EXPECT_EQ(frame(packet->type, std::string(reinterpret_cast<char*>(packet->payload()), packet->size)), c.bytes);
        Packet::destroy(packet);
    }
}

TEST(SocketFrame, ReadsTheFrameAfterACompleteOne) {
    ChunkedStream stream{frame(1, "ab") + frame(2, ""), {WHOLE, WHOLE, WHOLE}};
    FrameReader reader("T.recv");
    FrameReader::Read read = [&](uint8_t* into, uint32_t count) { return stream.read(into, count); };
    Packet* first = nullptr;
    Packet* second = nullptr;
    ASSERT_EQ(reader.step(read, first), S::COMPLETE);
    ASSERT_EQ(reader.step(read, second), S::COMPLETE);
    EXPECT_EQ(first->size, 2u);
    EXPECT_EQ(second->type, 2);
    Packet::destroy(first);
    Packet::destroy(second);
}

TEST(SocketFrame, QueueRefusesWhatWouldTakeItPastItsLimit) {
    const uint64_t limit = 3 * Packet::HEADER_SIZE + 10;
    PacketQueue queue(limit);
    EXPECT_TRUE(queue.push(Packet::create(1, 4, "abcd")));
    EXPECT_TRUE(queue.push(Packet::create(2, 0, nullptr)));
    Packet* tooBig = Packet::create(3, 7, "1234567");
    EXPECT_FALSE(queue.push(tooBig));  // one byte past the limit
    Packet::destroy(tooBig);
    EXPECT_TRUE(queue.push(Packet::create(3, 6, "123456")));  // exactly the limit
    EXPECT_EQ(queue.bytes(), limit);
    Packet* first = queue.pop();
    EXPECT_EQ(first->type, 1);
    Packet::destroy(first);
    EXPECT_EQ(queue.bytes(), limit - Packet::HEADER_SIZE - 4);
}

}  // namespace
