#include <gtest/gtest.h>

#include <string>

#include "RawPeer.h"
#include "network/FrameWriter.h"

namespace {

// A stream that takes at most `room` bytes a write and keeps them.
struct Stream {
    long take(const iovec* parts, size_t count) {
        calls.push_back(count);
        size_t left = room;
        for (size_t i = 0; i < count && left > 0; ++i) {
            size_t part = std::min(left, parts[i].iov_len);
            bytes.append(static_cast<const char*>(parts[i].iov_base), part);
            left -= part;
        }
        return long(room - left);
    }
    size_t room;
    std::string bytes;
    std::vector<size_t> calls;
};

TEST(FrameWriter, GoesOnFromWhereverAWriteStoppedAndGathersAtMost64Frames) {
    // Writes that stop inside a header, at its end, inside a payload, and
    // one that takes everything at once.
    for (size_t room : {1u, 5u, 8u, 13u, 1u << 20}) {
        SCOPED_TRACE(room);
        PacketQueue queue;
        std::string expected;
        for (int i = 0; i < 100; ++i) {
            std::string payload(size_t(i * 37 % 300), char('a' + i % 26));
            queue.push(Packet::create(1000 + i, uint32_t(payload.size()), payload.data()));
            expected += frame(1000 + i, payload);
        }
        Stream stream{room, {}, {}};
        FrameWriter writer;
        FrameWriter::Write write = [&](const iovec* parts, size_t count) { return stream.take(parts, count); };
        while (writer.pending() || !queue.empty()) ASSERT_GT(writer.step(queue, write), 0);
        EXPECT_EQ(stream.bytes, expected);
        EXPECT_EQ(stream.calls.front(), 2 * FrameWriter::MAX_GATHER);
    }
}

TEST(FrameWriter, KeepsItsFramesWhileTheStreamTakesNothingAndReportsALoss) {
    PacketQueue queue;
    queue.push(Packet::create(7, 3, "abc"));
    FrameWriter writer;
    std::string taken;
    long answer = 0;
    FrameWriter::Write write = [&](const iovec* parts, size_t) {
        if (answer > 0) taken.assign(static_cast<const char*>(parts[0].iov_base), parts[0].iov_len);
        return answer;
    };
    EXPECT_EQ(writer.step(queue, write), 0);
    EXPECT_TRUE(writer.pending());
    answer = -1;
    EXPECT_LT(writer.step(queue, write), 0);
    answer = 4;
    EXPECT_EQ(writer.step(queue, write), 4);
    EXPECT_EQ(taken, header(7, 3));
    EXPECT_TRUE(writer.pending());  // four bytes of the header and the payload to go
}

}  // namespace
