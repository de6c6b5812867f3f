#include "shell/Event.h"

void EventProvider::addListener(EventListener* listener) { listeners.push_back(listener); }

void EventProvider::emit(const Event& event) {
    for (EventListener* listener : listeners) listener->onEvent(event);
}
