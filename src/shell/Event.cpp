#include "shell/Event.h"

Event Event::sound(float volume, char* name) {
    Event event;
    event.type = EVENT_SOUND;
    event.volume = volume;
    event.name = name;
    return event;
}
