#pragma once
#include "gameplay/GameMode.h"

namespace GameModes {

// The last fighter standing ends the round; a second later everybody is
// restored, and a second after that the next round starts.
class Deathmatch : public GameMode {
public:
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

private:
    void lookAtFighters();
    void runPause(float dt);
    void setDisabled(bool disabled);
};

}  // namespace GameModes
