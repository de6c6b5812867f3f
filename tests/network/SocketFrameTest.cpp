#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LogCapture.h"
#include "RawPeer.h"
#include "network/FrameReader.h"
#include "network/PacketQueue.h"

namespace {

using S = FrameReader::Step;
const int ALL = 1 << 21;

std::string payloadOf(size_t size) {
    std::string payload(size, '\0');
    for (size_t i = 0; i < size; ++i) payload[i] = char(i * 7 + 3);
    return payload;
}

const struct FrameCase {
    const char* name;
    std::string bytes;
    std::vector<int> chunks;  // one a read: its most bytes, 0 nothing there, -1 connection lost
    std::vector<S> steps;
    const char* log;  // expected in the log; "" for no line at all
} frameCases[] = {
    {"header in 3 and 5, size 0 done with it", frame(6, ""), {3, 5}, {S::HEADER_PENDING, S::COMPLETE}, ""},
    {"payload in pieces", frame(3, "abcdef"), {8, 2, 0, 4}, {S::PAYLOAD_PENDING, S::PAYLOAD_PENDING, S::COMPLETE}, ""},
    {"header and payload in one step", frame(3, "abc"), {8, 3}, {S::COMPLETE}, ""},
    {"4096 bytes without a word", frame(9, payloadOf(4096)), {ALL, ALL}, {S::COMPLETE}, ""},
    {"4097 bytes warn", frame(9, payloadOf(4097)), {ALL, ALL}, {S::COMPLETE}, "FAIL: T.r: Duzy pakiet (typ 9 wielkosc 4097)"},
    {"5000 bytes whole", frame(7, payloadOf(5000)), {ALL, 4096, ALL}, {S::PAYLOAD_PENDING, S::COMPLETE},
     "FAIL: T.r: Duzy pakiet (typ 7 wielkosc 5000)"},
    {"1 MiB still taken", frame(9, payloadOf(Packet::MAX_SIZE)), {ALL, ALL}, {S::COMPLETE}, "wielkosc 1048576)"},
    {"1 MiB and 1 refused", header(9, int32_t(Packet::MAX_SIZE + 1)), {ALL}, {S::REFUSED},
     "FAIL: T.r: Bledna wielkosc pakietu (typ 9 wielkosc 1048577)"},
    {"-1 refused", header(5, -1), {ALL}, {S::REFUSED}, "FAIL: T.r: Bledna wielkosc pakietu (typ 5 wielkosc -1)"},
    {"lowest refused", header(5, INT32_MIN), {ALL}, {S::REFUSED}, "(typ 5 wielkosc -2147483648)"},
    {"lost in the header", frame(3, "abc"), {4, -1}, {S::HEADER_PENDING, S::LOST}, ""},
    {"lost in the payload", frame(3, "abc"), {8, 1, -1}, {S::PAYLOAD_PENDING, S::LOST}, ""},
};

TEST(SocketFrame, ReassemblesWhatArrivesInAnyChunks) {
    for (const FrameCase& c : frameCases) {
        SCOPED_TRACE(c.name);
        size_t offset = 0, chunk = 0;
        FrameReader::Read read = [&](uint8_t* into, uint32_t count) {
            int limit = chunk < c.chunks.size() ? c.chunks[chunk++] : 0;
            int given = std::min({limit, int(count), int(c.bytes.size() - offset)});
            if (given > 0) c.bytes.copy(reinterpret_cast<char*>(into), size_t(given), offset);
            offset += size_t(std::max(given, 0));
            return limit < 0 ? -1 : given;
        };
        FrameReader reader("T.r");
        Packet* packet = nullptr;
        std::vector<S> steps;
        std::string log = logOf([&] {
            while (steps.size() < c.steps.size()) steps.push_back(reader.step(read, packet));
        });
        EXPECT_EQ(steps, c.steps);
        if (*c.log) {
            EXPECT_NE(log.find(c.log), std::string::npos) << log;
        } else {
            EXPECT_EQ(log, "");
        }
        EXPECT_EQ(framed(packet), c.steps.back() == S::COMPLETE ? c.bytes : "nothing");
    }
}

TEST(SocketFrame, QueueRefusesWhatWouldTakeItPastItsLimit) {
    const uint64_t limit = 3 * Packet::HEADER_SIZE + 10;
    PacketQueue queue(limit);
    EXPECT_TRUE(queue.push(Packet::create(1, 4, "abcd")));
    EXPECT_TRUE(queue.push(Packet::create(2, 0, nullptr)));
    Packet* oneByteOver = Packet::create(3, 7, "1234567");
    EXPECT_FALSE(queue.push(oneByteOver));
    Packet::destroy(oneByteOver);
    EXPECT_TRUE(queue.push(Packet::create(3, 6, "123456")));
    EXPECT_EQ(queue.bytes(), limit);
    EXPECT_EQ(framed(queue.pop()), frame(1, "abcd"));
    EXPECT_EQ(queue.bytes(), limit - 12);
}

}  // namespace
