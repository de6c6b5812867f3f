#pragma once
#include <cstdint>
#include <vector>

#include "shell/Event.h"

// A combo of a fighter's script: the function to run and its steps, each
// step an input mask that an event must share a bit with.
struct Combo {
    int32_t ref = 0;  // the function, as a reference in the fighter's script state
    std::vector<int32_t> sequence;
};

// Watches one fighter's input events and recognises the sequences that its
// script registered. The queue holds the recent inputs, oldest first.
class ComboManager : public EventListener {
public:
    // A chain is broken by more than this much rest between two inputs.
    static constexpr int32_t BREAK_MS = 400;
    // Only the newest entries are kept, so that a fighter who never rests
    // doesn't make every check slower.
    static constexpr size_t LONGEST_QUEUE = 64;

    // Empties the combos and the queue and forgets the match.
    void clear() override;
    void onEvent(const Event& event) override;
    // Looks for a combo, at most once per change; the first registered that
    // completes goes into `matched` and empties the queue.
    void check();

    // The mask of a script's step name, or 0 for anything else (null too).
    static int32_t tokenMask(const char* token);

    // The queue or the combos changed since the last check.
    bool dirty = false;
    // In order of registration.
    std::vector<Combo> combos;
    // The combo recognised last, pointing into `combos`; the fighter takes
    // it over and resets this before the combos can change.
    Combo* matched = nullptr;
};
