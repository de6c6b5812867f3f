#include "gameplay/Deathmatch.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "graphics/Render.h"
#include "resources/LittleEndian.h"

namespace GameModes {

namespace {

// The one id with the highest score above zero; nobody when it is shared.
template <typename Score>
int32_t soleBest(const std::vector<std::pair<int32_t, Score>>& scores) {
    int32_t best = Deathmatch::NO_WINNER;
    Score top = 0;
    for (const auto& [id, score] : scores) {
        if (score > top) {
            best = id;
            top = score;
        } else if (score == top) {
            best = Deathmatch::NO_WINNER;
        }
    }
    return best;
}

const float BAR_WIDTH = 96.0f;
const float BAR_LEFT = 48.0f;
const float BAR_DROP = 4.0f;
const float HEALTH_HEIGHT = 8.0f;
const float AIR_HEIGHT = 4.0f;

struct BarColour {
    unsigned char r, g, b, a;
};
const BarColour HEALTH_FULL = {255, 0, 0, 192};
const BarColour HEALTH_EMPTY = {128, 0, 0, 128};
const BarColour AIR_FULL = {0, 128, 255, 192};
const BarColour AIR_EMPTY = {0, 64, 128, 128};

// One bar: the full part from the left, the empty part behind it.
void drawBar(float x, float y, float height, float share, BarColour full, BarColour empty) {
    Render::setColor(full.r, full.g, full.b, full.a);
    Render::drawRect(x, y, BAR_WIDTH * share, height);
    Render::setColor(empty.r, empty.g, empty.b, empty.a);
    Render::drawRect(x + BAR_WIDTH * share, y, BAR_WIDTH * (1.0f - share), height);
}

}  // namespace

Deathmatch::~Deathmatch() { clear(); }

void* Deathmatch::serialize(uint32_t* size) {
    uint8_t* out = ensureBuffer(SERIALIZED_SIZE);
    LittleEndian::writeF32(out, checkTimer);
    LittleEndian::writeF32(out + 4, restartTimer);
    if (size) *size = SERIALIZED_SIZE;
    return out;
}

bool Deathmatch::deserialize(const void* data, uint32_t size) {
    if (!hasSnapshot("Deathmatch.deserialize", size, SERIALIZED_SIZE)) return false;
    const uint8_t* in = static_cast<const uint8_t*>(data);
    checkTimer = LittleEndian::readF32(in);
    restartTimer = LittleEndian::readF32(in + 4);
    return true;
}

void Deathmatch::init() {
    clear();
    checkTimer = 0.0f;
    restartTimer = 0.0f;
    roundTime = 0.0f;
    roundWinners.clear();
    matchOver = false;
    matchWinner = NO_WINNER;
}

void Deathmatch::clear() {
    GameMode::clear();
    freeBuffer();
}

void Deathmatch::start() { running = true; }

void Deathmatch::update(float dt) {
    // A client's game mode may be told to run before the arena is named.
    if (!arena) return;
    arena->update(dt);
    if (matchOver) return;
    if (checkTimer >= 0.0f) {
        roundTime += dt;
        if (timeLimit > 0.0f && roundTime >= timeLimit && characters.size() >= 2) {
            endRound(healthiest());
            return;
        }
        checkTimer += dt;
        if (!(checkTimer > CHECK_INTERVAL)) return;
        checkTimer = 0.0f;
        lookAtFighters();
    } else {
        runPause(dt);
    }
}

void Deathmatch::lookAtFighters() {
    int alive = 0;
    int32_t survivor = NO_WINNER;
    for (Character* fighter : characters) {
        if (fighter->hp > 0.0f) {
            ++alive;
            survivor = fighter->id;
        }
    }
    if (alive >= 2) return;
    // One fighter alone plays on for ever.
    if (characters.size() < 2) return;
    endRound(survivor);
}

void Deathmatch::endRound(int32_t winner) {
    setDisabled(true);
    checkTimer = -1.0f;
    restartTimer = 0.0f;
    roundWinners.push_back(winner);
    if (roundLimit > 0 && roundWinners.size() >= static_cast<std::size_t>(roundLimit)) {
        matchOver = true;
        matchWinner = mostRoundsWon();
    }
}

int32_t Deathmatch::healthiest() const {
    std::vector<std::pair<int32_t, float>> health;
    for (const Character* fighter : characters) health.emplace_back(fighter->id, fighter->hp);
    return soleBest(health);
}

int32_t Deathmatch::mostRoundsWon() const {
    std::map<int32_t, int> wins;
    for (int32_t winner : roundWinners)
        if (winner != NO_WINNER) ++wins[winner];
    return soleBest(std::vector<std::pair<int32_t, int>>(wins.begin(), wins.end()));
}

void Deathmatch::runPause(float dt) {
    if (restartTimer < RESTORE_AFTER) {
        restartTimer += dt;
        if (restartTimer >= RESTORE_AFTER) {
            for (Character* fighter : characters) {
                fighter->restart();
                // restart() replaces the whole state, so the pause goes on.
                fighter->state |= Character::DISABLED;
            }
        }
    } else if (restartTimer < RELEASE_AFTER) {
        restartTimer += dt;
    } else {
        checkTimer = 0.0f;
        roundTime = 0.0f;
        setDisabled(false);
    }
}

void Deathmatch::setDisabled(bool disabled) {
    for (Character* fighter : characters) {
        if (disabled)
            fighter->state |= Character::DISABLED;
        else
            fighter->state &= ~static_cast<uint32_t>(Character::DISABLED);
    }
}

void Deathmatch::draw() {
    if (arena) arena->draw();
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    for (Character* fighter : characters) {
        float x = fighter->position.x - BAR_LEFT;
        float y = fighter->position.y + BAR_DROP;
        float health = std::max(fighter->hp, 0.0f) / fighter->maxHp;
        float air = fighter->air / fighter->lungCapacity;
        drawBar(x, y, HEALTH_HEIGHT, health, HEALTH_FULL, HEALTH_EMPTY);
        drawBar(x, y + HEALTH_HEIGHT, AIR_HEIGHT, air, AIR_FULL, AIR_EMPTY);
    }
    Render::setMode(Render::MODE_WORLD_IMAGES);
}

}  // namespace GameModes
