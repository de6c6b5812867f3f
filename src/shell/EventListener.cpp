#include "shell/Event.h"
#include "shell/EventClock.h"

EventListener::~EventListener() { emptyQueue(); }

void EventListener::clear() { emptyQueue(); }

void EventListener::onEvent(const Event& event) {
    if (!queue.empty()) {
        Event& last = queue.back();
        if (event.input != 0) {
            last.endTime = EventClock::now();
            if (last.input == event.input) return discard(event);
        } else if (last.input == 0) {
            return discard(event);
        }
    }
    queue.push_back(event);
}

void EventListener::drain(const std::function<void(const Event&)>& handle) {
    while (!queue.empty()) {
        Event oldest = queue.front();
        queue.pop_front();
        handle(oldest);
        discard(oldest);
    }
}

void EventListener::discard(const Event& event) {
    if (event.type == EVENT_SOUND) delete[] event.name;
}

void EventListener::emptyQueue() {
    for (const Event& event : queue) discard(event);
    queue.clear();
}
