#pragma once
#include <cstdint>
#include <functional>
#include <list>
#include <vector>

class Character;

enum EventType {
    EVENT_NONE = 0,
    EVENT_CHARACTER = 1,
    EVENT_SPEECH = 2,
    EVENT_SOUND = 3,
};

// Input bits of a fighter's events; they are also the steps of combos.
enum InputMask {
    INPUT_MOVE = 0x001,
    INPUT_LEFT = 0x002,
    INPUT_RIGHT = 0x004,
    INPUT_UP = 0x008,
    INPUT_DOWN = 0x010,
    INPUT_CHARGE = 0x020,
    INPUT_SAY = 0x040,
    INPUT_DEFEND = 0x080,
    INPUT_HIT = 0x100,
    INPUT_HIT_SELF = 0x200,
    INPUT_JUMP = 0x400,
    INPUT_COMBO = 0x800,
};

// What happened, as a small record copied by value. Which of the payload
// fields mean something depends on `type`.
struct Event {
    int32_t type = EVENT_NONE;
    // Input bits for EVENT_CHARACTER (0: no input), 2 for EVENT_SPEECH, 0 for EVENT_SOUND.
    int32_t input = 0;
    // Milliseconds when emitted.
    int32_t time = 0;
    // Written by a listener on the newest entry of its queue.
    int32_t endTime = 0;

    // EVENT_CHARACTER: the source and its running combo.
    Character* character = nullptr;
    int32_t comboRef = 0;
    // EVENT_SPEECH: where, how loud and who, or null.
    float x = 0, y = 0, z = 0;
    float power = 0;
    Character* speaker = nullptr;
    // EVENT_SOUND: a heap array (new[]) that belongs to the one listener
    // it is handed to, from the call of onEvent on.
    float volume = 0;
    char* name = nullptr;

    static Event sound(float volume, char* name);
};

class EventListener;

// Tells its listeners what happened, without knowing who they are.
class EventProvider {
public:
    virtual ~EventProvider() = default;
    // Not owned; no check for duplicates.
    virtual void addListener(EventListener* listener);
    // onEvent of every listener, in the order of registration.
    virtual void emit(const Event& event);

protected:
    std::vector<EventListener*> listeners;
};

// Keeps its own copy of what it hears, to be worked off later. A run of
// events with the same input collapses into one entry.
class EventListener {
public:
    EventListener() = default;
    // A sound's name has one owner; a copied queue would free it twice.
    EventListener(const EventListener&) = delete;
    EventListener& operator=(const EventListener&) = delete;
    virtual ~EventListener();

    virtual void clear();
    virtual void onEvent(const Event& event);

    // Hands every entry to `handle`, oldest first, and takes it off the
    // queue; a sound's name is freed once `handle` returns.
    void drain(const std::function<void(const Event&)>& handle);

    // Oldest first. Entries taken off any other way than by drain or clear
    // leak a sound's name.
    std::list<Event> queue;

protected:
    // Frees what a dropped event owns.
    static void discard(const Event& event);
    void emptyQueue();
};
