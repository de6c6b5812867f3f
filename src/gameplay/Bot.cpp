#include "gameplay/Bot.h"

#include <cmath>
#include <cstdlib>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "shell/Log.h"

namespace {

const float AGGRO_HIGH = 0.6f;
const float AGGRO_LOW = 0.1f;
const float AGGRO_STEP = 0.05f;
const float APPROACH_MARGIN = 100.0f;
const float RETREAT_MARGIN = 50.0f;
const float RETREAT_DISTANCE = 200.0f;
const float SPEAKING_RANGE = 250.0f;

float distanceBetween(const Character* a, const Character* b) {
    float dx = a->position.x - b->position.x;
    float dy = a->position.y - b->position.y;
    float dz = a->position.z - b->position.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

}  // namespace

float Bot::r() { return static_cast<float>((random ? random() : rand()) % 32768) / 32768.0f; }

void Bot::init() {
    arena = nullptr;
    character = nullptr;
    aggro = r() * 0.5f + 0.1f;
    aggroTimer = 0.0f;
    Log::info("Bot.init: aggro: %f", aggro);
}

void Bot::setArena(Arena* newArena) { arena = newArena; }

void Bot::setController(ControllerDummy* newController) { controller = newController; }

void Bot::setCharacter(Character* newCharacter) {
    if (character) character->controller = nullptr;
    character = newCharacter;
    if (character) character->controller = controller;
    // The target and the action in hand belong to the old fighter's world,
    // which may be gone: the new fighter starts with a fresh decision.
    target = nullptr;
    action = BOT_IDLE;
    actionTime = 0.0f;
}

void Bot::update(float dt) {
    // Inert until it has a fighter in a world to steer.
    if (!character || !arena || !controller) return;
    actionTime -= dt;
    aggroTimer -= dt;
    if (actionTime > 0.0f)
        act();
    else
        decide();
}

void Bot::act() {
    for (bool& pressed : controller->pressed) pressed = false;
    switch (action) {
        case BOT_DEFEND:
            controller->pressed[ACTION_B] = true;
            break;
        case BOT_SAY:
            controller->pressed[ACTION_A] = true;
            break;
        case BOT_APPROACH:
            steerTowards(target->position.x, target->position.y, APPROACH_MARGIN);
            break;
        case BOT_RETREAT: {
            // Away from the target along x only: y plays no part in a retreat.
            Vector away = target->position - character->position;
            float length = std::sqrt(away.x * away.x + away.y * away.y + away.z * away.z);
            float ux = length > 0.0f ? away.x / length : 0.0f;
            steerTowards(character->position.x - RETREAT_DISTANCE * ux, character->position.y, RETREAT_MARGIN);
            break;
        }
        default:
            break;
    }
}

void Bot::steerTowards(float goalX, float goalY, float margin) {
    const Vector& own = character->position;
    if (own.x < goalX - margin) controller->pressed[ACTION_RIGHT] = true;
    if (own.x > goalX + margin) controller->pressed[ACTION_LEFT] = true;
    if (own.y < goalY - margin) controller->pressed[ACTION_DOWN] = true;
    if (own.y > goalY + margin) controller->pressed[ACTION_UP] = true;
}

void Bot::startAction(int newAction, float seconds) {
    action = newAction;
    actionTime = seconds;
}

void Bot::rethinkAggro(float othersHp) {
    float hp = character->hp;
    float average = othersHp / static_cast<float>(arena->characters.size());
    aggroTimer = hp * 0.5f / character->maxHp + 0.05f;
    if (hp > average && aggro < AGGRO_HIGH) aggro += AGGRO_STEP;
    if (hp < average && aggro > AGGRO_LOW) aggro -= AGGRO_STEP;
}

void Bot::decide() {
    bool someoneCharging = false;
    bool someoneSpeaking = false;
    float othersHp = 0.0f;
    for (Character* other : arena->characters) {
        if (other == character) continue;
        if (other->state & Character::CHARGING) someoneCharging = true;
        if (other->state & Character::SPEAKING) someoneSpeaking = true;
        othersHp += other->hp;
    }
    if (aggroTimer <= 0.0f) rethinkAggro(othersHp);

    if (someoneCharging) {
        if (aggro > r()) {
            // Bold: a hurried word to speak first, or wait out a word in the air.
            if (!someoneSpeaking)
                startAction(BOT_SAY, r() * 0.3f);
            else
                startAction(BOT_IDLE, 0.1f);
        } else if (r() >= 0.5f) {
            startAction(BOT_DEFEND, r() * 0.5f);
        } else {
            target = nearest();
            if (!target)
                startAction(BOT_DEFEND, 0.5f);
            else
                startAction(BOT_RETREAT, r() * 0.25f + 1.0f);
        }
        return;
    }

    // Every mention of a random number is a fresh draw, taken in the order
    // in which the rule reads.
    if (!someoneSpeaking && r() < 0.25f) {
        startAction(BOT_IDLE, r() * 0.25f + 0.1f);
        return;
    }
    target = aggro > r() ? weakest() : nearest();
    if (!target) {
        startAction(BOT_IDLE, 0.5f);
        return;
    }
    if (r() >= 0.25f && distanceBetween(character, target) <= SPEAKING_RANGE) {
        startAction(BOT_SAY, r() * character->speakSpeed + 0.5f);
        return;
    }
    startAction(BOT_APPROACH, r() * 0.75f + 0.5f);
}

Character* Bot::nearest() const {
    Character* found = nullptr;
    float best = 0.0f;
    for (Character* other : arena->characters) {
        if (other == character) continue;
        float d = distanceBetween(character, other);
        // "<=" so that the later of two at equal distance wins.
        if (!found || d <= best) {
            found = other;
            best = d;
        }
    }
    return found;
}

Character* Bot::weakest() const {
    Character* found = nullptr;
    for (Character* other : arena->characters) {
        if (other == character || !(other->hp > 0.0f)) continue;
        if (!found || other->hp <= found->hp) found = other;
    }
    return found;
}
