#pragma once
#include <cstdint>

// Milliseconds for the time stamps of events, on a monotonic wall clock:
// process time would run at twice the speed of the player's clock while the
// server's worker thread spins beside the game.
namespace EventClock {

int32_t now();
// Replaces the clock, so that tests can step time by hand; null restores it.
void setSource(int32_t (*source)());

}  // namespace EventClock
