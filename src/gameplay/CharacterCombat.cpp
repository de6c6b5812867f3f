// The input step of a fighter and the operations of combat: the air economy,
// words, defence and hits.
#include <algorithm>
#include <climits>
#include <ctime>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Controller.h"
#include "graphics/EffectSpeechBubble.h"
#include "graphics/Sprite.h"
#include "shell/EventClock.h"

namespace {

const float DEFENCE_AIR_SHARE = 0.15f;  // of lungCapacity, to take defence up
const float FIRST_CHARGE_SHARE = 0.33f;  // of airUsage, at once when charging starts
const float CHARGE_RATE = 2.0f;  // airUsage per second
const float SLOW_SHARE = 0.5f;  // of moveSpeed, lost while charging or speaking
const float DEFENDED_HIT_FACTOR = 0.25f;

// Milliseconds of a bubble's life; a script's number may be anything.
int32_t toMilliseconds(float seconds) {
    float ms = seconds * 1000.0f;
    if (!(ms > 0.0f)) return 0;
    if (ms >= static_cast<float>(INT32_MAX)) return INT32_MAX;
    return static_cast<int32_t>(ms);
}

}  // namespace

void Character::processInput(float dt) {
    float step = std::min(CHARGE_RATE * airUsage * dt, airUsage - charge);
    if (state & DISABLED) return;
    if (block > 0.0f) {
        block -= dt;
        if (block > 0.0f) return;
    }
    if (state & SPEAKING) {
        speakBlock -= dt;
        if (speakBlock <= 0.0f) {
            state &= ~SPEAKING;
            emitInput(0);
        }
    }
    if (!processDefence()) return;
    if (!processWord(step)) return;
    state |= CONTROLLABLE;
    processMovement();
}

bool Character::processDefence() {
    bool wanted = isPressed(ACTION_B) && !(state & (CHARGING | SPEAKING)) &&
                  (air > DEFENCE_AIR_SHARE * lungCapacity || (state & DEFENDING));
    if (wanted && air > 0.0f) {
        if (lastEvent.input != INPUT_DEFEND) {
            emitInput(INPUT_DEFEND);
            if (checkCombo()) return false;
            lua.call("onDefend");
        }
        defend();
        // A defending fighter neither speaks nor walks.
        return false;
    }
    if (state & DEFENDING) {
        emitInput(0);
        state &= ~DEFENDING;
    }
    return true;
}

bool Character::processWord(float step) {
    bool speakPressed = isPressed(ACTION_A);
    if (speakPressed && !(state & (DEFENDING | CHARGING | SPEAKING)) && !(speakBlock > 0.0f) && !(charge > 0.0f) &&
        air > airUsage) {
        emitInput(INPUT_CHARGE);
        if (checkCombo()) return false;
        state |= CHARGING;
        charge += FIRST_CHARGE_SHARE * airUsage;
        air -= FIRST_CHARGE_SHARE * airUsage;
    } else if (state & CHARGING) {
        if (speakPressed && charge < airUsage && air > step) {
            charge += step;
            air -= step;
        } else {
            // Released, full, or out of breath: the word goes out.
            emitInput(INPUT_SAY);
            if (checkCombo()) return false;
            state &= ~CHARGING;
            float power = voiceVolume * charge / airUsage;
            say(power);
            lua.pushNumber(power);
            lua.call("onSay");
            charge = 0.0f;
        }
    }
    return true;
}

void Character::processMovement() {
    float slow = (state & (CHARGING | SPEAKING)) ? SLOW_SHARE * moveSpeed : 0.0f;
    if (isPressed(ACTION_LEFT)) speed.x = -moveSpeed + slow;
    if (isPressed(ACTION_RIGHT)) speed.x = moveSpeed - slow;
    if (isPressed(ACTION_UP)) speed.y = -moveSpeed + slow;
    if (isPressed(ACTION_DOWN)) speed.y = moveSpeed - slow;

    if (speed.length() > 0.0f) {
        int32_t mask = INPUT_MOVE;
        if (speed.x < 0.0f) mask |= INPUT_LEFT;
        if (speed.x > 0.0f) mask |= INPUT_RIGHT;
        if (speed.y < 0.0f) mask |= INPUT_UP;
        if (speed.y > 0.0f) mask |= INPUT_DOWN;
        emitInput(mask);
        checkCombo();
    } else if (lastEvent.input & INPUT_MOVE) {
        emitInput(0);
    }
}

void Character::say(float power) {
    state |= SPEAKING;
    speakBlock = speakSpeed;
    if (arena) arena->say(position, power, this);
    if (objectType == OBJECT_SERVER || !speech.sprite) return;
    if (arena) {
        auto* bubble = new Effects::SpeechBubble();
        bubble->init(speech.sprite->name, toMilliseconds(speakSpeed));
        bubble->character = this;
        arena->addEffect(bubble);
    }
    int32_t count = speech.animCount();
    if (count > 0) speech.setAnim(static_cast<int32_t>(clock() % count));
}

void Character::defend() {
    state |= DEFENDING;
    state &= ~CONTROLLABLE;
}

void Character::hit(float amount, Character* by) {
    if (state & DEFENDING) amount *= DEFENDED_HIT_FACTOR;
    hp -= amount;
    emitInput(by == this ? (INPUT_HIT | INPUT_HIT_SELF) : INPUT_HIT);
    if (!checkCombo()) {
        lua.pushNumber(amount);
        if (by == this) lua.pushNumber(0.0f);
        lua.call("onHit");
    }
    // Death is not up to a combo: a fighter at 0 must be able to lose.
    if (hp <= 0.0f) state = DEAD;
}

bool Character::isPressed(int action) const { return controller && controller->isPressed(action); }

void Character::emitInput(int32_t input) {
    lastEvent = Event{};
    lastEvent.type = EVENT_CHARACTER;
    lastEvent.input = input;
    lastEvent.time = EventClock::now();
    lastEvent.endTime = 0;
    lastEvent.character = this;
    lastEvent.comboRef = comboRef;
    emit(lastEvent);
}

bool Character::checkCombo() {
    comboManager.check();
    if (!comboManager.matched) return false;
    // The recognised combo takes the place of update until the script ends it.
    comboRef = comboManager.matched->ref;
    state |= COMBO;
    comboManager.matched = nullptr;
    return true;
}
