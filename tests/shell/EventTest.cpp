#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "shell/Event.h"
#include "shell/EventClock.h"

namespace {

int32_t fakeNow = 0;
int32_t fakeClock() { return fakeNow; }

Event withInput(int type, int input) {
    Event event;
    event.type = type;
    event.input = input;
    return event;
}

Event sound(const char* text) { return Event::sound(1.0f, strcpy(new char[strlen(text) + 1], text)); }

class EventTest : public ::testing::Test {
protected:
    void SetUp() override { EventClock::setSource(fakeClock); }
    void TearDown() override { EventClock::setSource(nullptr); }
    std::vector<int> inputs() const {
        std::vector<int> result;
        for (const Event& event : listener.queue) result.push_back(event.input);
        return result;
    }
    EventListener listener;
};

TEST_F(EventTest, RunsCollapseByInputAloneAndTheEntryKeepsWhenItWasLastSeen) {
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    listener.onEvent(withInput(EVENT_SOUND, 0));
    listener.onEvent(withInput(EVENT_CHARACTER, 5));
    fakeNow = 1100;
    listener.onEvent(withInput(EVENT_SPEECH, 5));
    EXPECT_EQ(listener.queue.back().type, EVENT_CHARACTER);
    EXPECT_EQ(listener.queue.back().endTime, 1100);
    fakeNow = 1250;
    listener.onEvent(withInput(EVENT_CHARACTER, 3));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    EXPECT_EQ(inputs(), std::vector<int>({0, 5, 3, 0}));
    EXPECT_EQ(std::next(listener.queue.begin())->endTime, 1250);
    // Idle doesn't end the input before it.
    EXPECT_EQ(std::next(listener.queue.begin(), 2)->endTime, 0);
}

// Under the sanitizers this also shows that every name is freed exactly
// once, whichever way it leaves.
TEST_F(EventTest, SoundNamesBelongToTheListenerWhetherKeptOrDropped) {
    listener.onEvent(sound("first.ogg"));
    listener.onEvent(sound("dropped-in-the-same-frame.ogg"));
    listener.onEvent(withInput(EVENT_CHARACTER, INPUT_HIT));
    listener.onEvent(sound("kept.ogg"));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    listener.onEvent(sound("dropped-behind-idle.ogg"));
    std::vector<std::string> names;
    listener.drain([&](const Event& event) {
        if (event.type == EVENT_SOUND) names.push_back(event.name);
    });
    EXPECT_EQ(names, std::vector<std::string>({"first.ogg", "kept.ogg"}));
    EXPECT_TRUE(listener.queue.empty());
    listener.onEvent(sound("left-for-clear.ogg"));
    listener.clear();
    listener.onEvent(sound("left-for-the-destructor.ogg"));
}

}  // namespace
