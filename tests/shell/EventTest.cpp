#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "shell/Event.h"
#include "shell/EventClock.h"

namespace {

int32_t fakeNow = 0;
int32_t fakeClock() { return fakeNow; }

TEST(EventTest, RunsOfOneInputCollapseWhateverTheTypeAndKeepWhenTheRunWasLastSeen) {
    EventClock::setSource(fakeClock);
    EventListener listener;
    const int steps[][3] = {{10, EVENT_CHARACTER, 0}, {20, EVENT_SOUND, 0},     {30, EVENT_CHARACTER, 5},
                            {40, EVENT_SPEECH, 5},    {50, EVENT_CHARACTER, 3}, {60, EVENT_CHARACTER, 3},
                            {70, EVENT_CHARACTER, 0}};
    for (const auto& [now, type, input] : steps) {
        fakeNow = now;
        listener.onEvent(Event{type, input});
    }
    EventClock::setSource(nullptr);
    // Input and endTime of each entry: an idle event ends no run.
    std::vector<std::pair<int, int>> queue;
    for (const Event& kept : listener.queue) queue.emplace_back(kept.input, kept.endTime);
    EXPECT_EQ(queue, (std::vector<std::pair<int, int>>{{0, 30}, {5, 50}, {3, 60}, {0, 0}}));
}

// Under the sanitizers this shows that every name is freed once, whichever way it leaves.
TEST(EventTest, SoundNamesBelongToTheListenerWhetherKeptOrDropped) {
    auto sound = [](const char* name) { return Event::sound(1.0f, strcpy(new char[strlen(name) + 1], name)); };
    EventListener listener;
    for (const Event& event : {sound("first"), sound("dropped"), Event{EVENT_CHARACTER, INPUT_HIT}, sound("kept")})
        listener.onEvent(event);
    std::vector<std::string> names;
    listener.drain([&](const Event& event) { names.push_back(event.name ? event.name : "-"); });
    EXPECT_EQ(names, std::vector<std::string>({"first", "-", "kept"}));
    EXPECT_TRUE(listener.queue.empty());
    listener.onEvent(sound("left for clear"));
    listener.clear();
    listener.onEvent(sound("left for the destructor"));
}

}  // namespace
