#pragma once
#include <cstdint>
#include <string>

#include "frontend/DemoServer.h"

// A local duel: player 1 against player 2 or the computer, hosted in this
// process as any game is, for a number of rounds of a limited time. When
// the rounds are over the winner is shown for a few seconds, or until Return
// or Escape; Escape also breaks the duel off.
class StateDuel : public DemoServer {
public:
    static constexpr float RESULT_SECONDS = 5.0f;

    explicit StateDuel(int32_t port = Packet::PORT) : DemoServer(port) {}

    // Before the push. `seconds` of 0 lets a round last until one falls.
    void setup(const ContentChoice& choice, bool secondIsBot, int32_t rounds, float seconds);
    void init() override;
    void update(float dt) override;
    int getType() override { return STATE_DUEL; }

    int32_t roundLimit = 0;
    float timeLimit = 0.0f;
    // Seconds the result has been shown; negative while the duel is on.
    float resultTime = -1.0f;

private:
    void showResult();
    // "player 1", "player 2" or the computer, by the server's slot.
    std::string sideOf(int32_t id);
};
