#include "gameplay/ComboManager.h"

#include <cstring>

#include "shell/EventClock.h"

namespace {

struct Token {
    const char* name;
    int32_t mask;
};

const Token TOKENS[] = {
    {"move", INPUT_MOVE},       {"move-left", INPUT_LEFT}, {"move-right", INPUT_RIGHT},
    {"move-up", INPUT_UP},      {"move-down", INPUT_DOWN}, {"charge", INPUT_CHARGE},
    {"say", INPUT_SAY},         {"defend", INPUT_DEFEND},  {"hit", INPUT_HIT},
    {"hit-self", INPUT_HIT_SELF}, {"jump", INPUT_JUMP},    {"combo", INPUT_COMBO},
};

// Walks the queue with a position in the combo's steps. Idle entries are
// passed over; an entry that fails a step sends the walk back to the first
// step without being tried against it.
bool completes(const Combo& combo, const std::list<Event>& queue) {
    if (combo.sequence.empty()) return false;
    size_t step = 0;
    for (const Event& entry : queue) {
        if (entry.input == 0) continue;
        if (combo.sequence[step] & entry.input) {
            if (++step == combo.sequence.size()) return true;
        } else {
            step = 0;
        }
    }
    return false;
}

}  // namespace

void ComboManager::clear() {
    combos.clear();
    emptyQueue();
    matched = nullptr;
    dirty = false;
}

void ComboManager::onEvent(const Event& event) {
    const int32_t now = EventClock::now();
    if (!queue.empty()) {
        Event& last = queue.back();
        // A held input lasts until another event replaces it, so only the
        // rest behind an idle entry counts as a pause in the chain.
        if (last.input != 0) last.endTime = now;
        if (event.input == last.input) return discard(event);
        if (last.input == 0 && now - last.time > BREAK_MS) emptyQueue();
    }
    // Delivery is synchronous, so arrival is emission; stamping it here keeps
    // every time in the queue on the one clock the pause is measured with.
    Event kept = event;
    kept.time = now;
    kept.endTime = 0;
    queue.push_back(kept);
    if (queue.size() > LONGEST_QUEUE) {
        discard(queue.front());
        queue.pop_front();
    }
    dirty = true;
}

void ComboManager::check() {
    if (!dirty) return;
    dirty = false;
    if (queue.empty()) return;
    for (Combo& combo : combos) {
        if (completes(combo, queue)) {
            emptyQueue();
            matched = &combo;
            return;
        }
    }
}

int32_t ComboManager::tokenMask(const char* token) {
    if (!token) return 0;
    for (const Token& known : TOKENS)
        if (strcmp(known.name, token) == 0) return known.mask;
    return 0;
}
