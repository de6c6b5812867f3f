#pragma once
#include <cstdint>
#include <vector>

#include "gameplay/GameMode.h"

namespace GameModes {

// The last fighter standing ends the round; a second later everybody is
// restored, and a second after that the next round starts. A round may also
// end when its time runs out, the healthiest fighter winning it, and a match
// may end after a number of rounds; by default neither limit is set and the
// rounds go on for ever.
class Deathmatch : public GameMode {
public:
    static constexpr int32_t NO_WINNER = -1;
    static constexpr float CHECK_INTERVAL = 0.5f;
    static constexpr float RESTORE_AFTER = 1.0f;
    static constexpr float RELEASE_AFTER = 2.0f;
    static constexpr uint32_t SERIALIZED_SIZE = 8;

    ~Deathmatch() override;

    void* serialize(uint32_t* size) override;
    bool deserialize(const void* data, uint32_t size) override;
    void init() override;
    void update(float dt) override;
    void draw() override;
    void clear() override;
    void start() override;
    int getType() override { return 0; }
    int getMinPlayers() override { return 1; }
    int getMaxPlayers() override { return 64; }

    // Seconds since the last look at the fighters; -1 while a round is over.
    float checkTimer = 0.0f;
    // Seconds since the round ended.
    float restartTimer = 0.0f;

    // Set by the owner and kept by init: rounds in a match and seconds in a
    // round, 0 for no limit.
    int32_t roundLimit = 0;
    float timeLimit = 0.0f;
    // Seconds the present round has been on.
    float roundTime = 0.0f;
    // The id of the winner of each finished round, NO_WINNER for a draw.
    std::vector<int32_t> roundWinners;
    // Once the last round is over: the fighter who won the most rounds, or
    // NO_WINNER when two or more share the most. Nothing moves after that.
    bool matchOver = false;
    int32_t matchWinner = NO_WINNER;

private:
    void lookAtFighters();
    // The fighter with the most health left, or NO_WINNER for a tie or when
    // nobody has any.
    int32_t healthiest() const;
    int32_t mostRoundsWon() const;
    void endRound(int32_t winner);
    void runPause(float dt);
    void setDisabled(bool disabled);
};

}  // namespace GameModes
