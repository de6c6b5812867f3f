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

char* heapName(const char* text) {
    char* name = new char[strlen(text) + 1];
    strcpy(name, text);
    return name;
}

class EventTest : public ::testing::Test {
protected:
    void SetUp() override {
        fakeNow = 1000;
        EventClock::setSource(fakeClock);
    }
    void TearDown() override { EventClock::setSource(nullptr); }

    std::vector<int> inputs() const {
        std::vector<int> result;
        for (const Event& event : listener.queue) result.push_back(event.input);
        return result;
    }

    EventListener listener;
};

TEST_F(EventTest, IdleEventsCollapseWhateverTheirType) {
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    listener.onEvent(withInput(EVENT_SOUND, 0));
    EXPECT_EQ(inputs(), std::vector<int>({0}));
    listener.onEvent(withInput(EVENT_CHARACTER, INPUT_SAY));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    EXPECT_EQ(inputs(), std::vector<int>({0, INPUT_SAY, 0}));
}

TEST_F(EventTest, RunOfOneInputIsOneEntryThatRemembersWhenItWasLastSeen) {
    listener.onEvent(withInput(EVENT_CHARACTER, 5));
    fakeNow = 1100;
    listener.onEvent(withInput(EVENT_SPEECH, 5));
    ASSERT_EQ(inputs(), std::vector<int>({5}));
    EXPECT_EQ(listener.queue.back().type, EVENT_CHARACTER);
    EXPECT_EQ(listener.queue.back().endTime, 1100);

    fakeNow = 1250;
    listener.onEvent(withInput(EVENT_CHARACTER, 3));
    ASSERT_EQ(inputs(), std::vector<int>({5, 3}));
    EXPECT_EQ(listener.queue.front().endTime, 1250);
    EXPECT_EQ(listener.queue.back().endTime, 0);

    // Idle leaves the end of the input before it alone.
    fakeNow = 1400;
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    EXPECT_EQ(listener.queue.back().input, 0);
    EXPECT_EQ(std::next(listener.queue.begin())->endTime, 0);
}

// Run under the sanitizers, these also show that every name is freed
// exactly once, whichever way it leaves.
TEST_F(EventTest, SoundNamesBelongToTheListenerWhetherKeptOrDropped) {
    listener.onEvent(Event::sound(0.5f, heapName("boom.ogg")));
    listener.onEvent(Event::sound(0.9f, heapName("dropped.ogg")));
    listener.onEvent(withInput(EVENT_CHARACTER, INPUT_HIT));
    listener.onEvent(Event::sound(1.0f, heapName("kept.ogg")));
    listener.onEvent(withInput(EVENT_CHARACTER, 0));
    // Behind an idle entry a sound is dropped as well.
    listener.onEvent(Event::sound(1.0f, heapName("behind-idle.ogg")));

    std::vector<std::string> names;
    listener.drain([&](const Event& event) {
        if (event.type == EVENT_SOUND) names.push_back(event.name);
    });
    EXPECT_EQ(names, std::vector<std::string>({"boom.ogg", "kept.ogg"}));
    EXPECT_TRUE(listener.queue.empty());

    listener.onEvent(Event::sound(1.0f, heapName("left-for-clear.ogg")));
    listener.clear();
    EXPECT_TRUE(listener.queue.empty());
    listener.onEvent(Event::sound(1.0f, heapName("left-for-destructor.ogg")));
}

class RecordingListener : public EventListener {
public:
    RecordingListener(std::vector<std::string>& log, std::string name) : log(log), name(std::move(name)) {}
    void onEvent(const Event& event) override { log.push_back(name + ":" + std::to_string(event.input)); }

private:
    std::vector<std::string>& log;
    std::string name;
};

TEST_F(EventTest, ProviderDeliversToEveryListenerInOrderOfRegistration) {
    std::vector<std::string> log;
    RecordingListener first(log, "first"), second(log, "second");
    EventProvider provider;
    provider.addListener(&second);
    provider.addListener(&first);
    provider.addListener(&second);
    provider.emit(withInput(EVENT_CHARACTER, 7));
    EXPECT_EQ(log, std::vector<std::string>({"second:7", "first:7", "second:7"}));
}

}  // namespace
