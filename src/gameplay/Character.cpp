#include "gameplay/Character.h"

#include <algorithm>

#include "gameplay/Arena.h"
#include "graphics/Render.h"
#include "resources/LittleEndian.h"
#include "script/LuaFuncs.h"
#include "shell/Log.h"

namespace {

const Vector GRAVITY(0.0f, 0.0f, -750.0f, 0.0f);
// A landing faster than this share of gravity bounces back at half speed.
const float BOUNCE_THRESHOLD = 0.3f;
const float BOUNCE_FACTOR = -0.5f;
// Height at which the shadow has faded out.
const float SHADOW_FADE_HEIGHT = 256.0f;

const float REFILL_SHARE = 0.5f;  // of lungCapacity per second

const char* const CALLBACKS[] = {"update", "onSay", "onDefend", "onHit"};

}  // namespace

Character::~Character() { clear(); }

void* Character::serialize(uint32_t* size) {
    uint8_t* out = ensureBuffer(SERIALIZED_SIZE);
    const float vectors[8] = {position.x, position.y, position.z, block, speed.x, speed.y, speed.z, speakBlock};
    for (int i = 0; i < 8; ++i) LittleEndian::writeF32(out + 4 * i, vectors[i]);
    LittleEndian::writeI32(out + 32, direction);
    LittleEndian::writeU32(out + 36, state);
    LittleEndian::writeF32(out + 40, hp);
    LittleEndian::writeF32(out + 44, air);
    if (size) *size = SERIALIZED_SIZE;
    return out;
}

bool Character::deserialize(const void* data, uint32_t size) {
    if (!hasSnapshot("Character.deserialize", size, SERIALIZED_SIZE)) return false;
    const uint8_t* in = static_cast<const uint8_t*>(data);
    float vectors[8];
    for (int i = 0; i < 8; ++i) vectors[i] = LittleEndian::readF32(in + 4 * i);
    position = Vector(vectors[0], vectors[1], vectors[2], 0.0f);
    block = vectors[3];
    speed = Vector(vectors[4], vectors[5], vectors[6], 0.0f);
    speakBlock = vectors[7];
    direction = LittleEndian::readI32(in + 32);
    state = LittleEndian::readU32(in + 36);
    hp = LittleEndian::readF32(in + 40);
    air = LittleEndian::readF32(in + 44);
    return true;
}

bool Character::init(const std::string& scriptPath) {
    clear();
    lua.start();
    addListener(&comboManager);
    path = scriptPath;
    lua.setPtr("char", this);
    lua.setPtr("arena", nullptr);
    LuaFuncs::registerAll(lua, objectType);
    if (!lua.openFile(path)) return false;
    if (!lua.hasFunction("init")) {
        Log::fail("Character.init: [%s]: Nie znaleziono funkcji \"%s\"", path.c_str(), "init");
        return false;
    }
    for (const char* callback : CALLBACKS) {
        if (lua.hasFunction(callback)) continue;
        Log::fail("Character.init: [%s]: Nie znaleziono funkcji \"%s\"", path.c_str(), callback);
        lua.declare(callback);
    }
    lua.call("init");

    if (objectType != OBJECT_SERVER) {
        if (!sprite.sprite) sprite.setSprite(DEFAULT_SPRITE);
        if (!shadow.sprite) shadow.setSprite(DEFAULT_SHADOW);
    }
    // Scripts may hand over anything; keep the numbers the steps divide by sane.
    moveSpeed = std::max(moveSpeed, 0.0f);
    voiceVolume = std::max(voiceVolume, 0.0f);
    speakSpeed = std::max(speakSpeed, 0.0f);
    lungCapacity = std::max(lungCapacity, 0.0f);
    if (!(airUsage > 0.0f)) airUsage = 25.0f;
    if (!(maxHp > 0.0f)) maxHp = 0.1f;

    hp = maxHp;
    air = airUsage;
    block = 0.0f;
    speakBlock = 0.0f;
    Log::debug("Character.init: [%s]: Postac wczytana", name.c_str());
    return true;
}

void Character::update(float dt) {
    if (state & DEAD) {
        if (hp > 0.0f) state &= ~DEAD;
        updatePhysics(dt);
        if (objectType != OBJECT_SERVER) updateSprite(dt);
        return;
    }
    if (objectType != OBJECT_CLIENT) {
        if (comboRef != 0 && (state & COMBO))
            lua.callRef(comboRef);
        else
            lua.call("update");
    }
    processInput(dt);
    updatePhysics(dt);

    if (state & DEFENDING) {
        air = std::max(air - dt * lungCapacity, 0.0f);
    } else if (!(state & (CHARGING | SPEAKING | COMBO))) {
        air = std::min(air + lungCapacity * REFILL_SHARE * dt, lungCapacity);
    }
    if (speed.x < 0.0f)
        direction = 4;
    else if (speed.x > 0.0f)
        direction = 0;

    if (objectType != OBJECT_SERVER) updateSprite(dt);
    // Walking has to be renewed every frame, by input or by the script.
    speed.x = 0.0f;
    speed.y = 0.0f;
}

void Character::draw() {
    if (objectType == OBJECT_SERVER) return;
    float alpha = 255.0f - position.z / SHADOW_FADE_HEIGHT * 255.0f;
    if (!(alpha > 0.0f)) alpha = 0.0f;
    if (alpha > 255.0f) alpha = 255.0f;
    Render::setAlpha(static_cast<uint8_t>(alpha));
    Render::drawSprite(&shadow, position.x, position.y, 0.0f, 0.0f);
    Render::setAlpha(255);
    Render::drawSprite(&sprite, position.x, position.y - position.z, 0.0f, 0.0f);
}

void Character::clear() {
    freeBuffer();
    comboManager.clear();
    listeners.clear();
    controller = nullptr;
    arena = nullptr;
    state = 0;
    resetLastEvent();
    sprite.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    shadow.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    speech.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    id = -1;
    name.clear();
    path.clear();
}

void Character::emit(const Event& event) {
    lastEvent = event;
    EventProvider::emit(event);
}

void Character::restart() {
    speed = Vector();
    state = CONTROLLABLE;
    hp = maxHp;
    air = lungCapacity;
    charge = 0.0f;
    block = 0.0f;
    speakBlock = 0.0f;
    comboRef = 0;
    resetLastEvent();
}

void Character::jump(float value) { speed.z = value; }

void Character::resetLastEvent() {
    lastEvent.type = 0;
    lastEvent.input = 0;
    lastEvent.time = 0;
    lastEvent.endTime = 0;
}

// ---- physics and looks ----

void Character::updatePhysics(float dt) {
    if (position.z > 0.0f) speed += GRAVITY * Vector(dt);
    Vector delta = speed * Vector(dt);
    if (arena && arena->collides(position + delta)) {
        Vector alongX(delta.x, 0.0f, 0.0f, 0.0f);
        if (arena->collides(position + alongX)) delta.x = arena->distanceToEdge(position, alongX);
        Vector alongY(0.0f, delta.y, 0.0f, 0.0f);
        if (arena->collides(position + alongY)) delta.y = arena->distanceToEdge(position, alongY);
        Vector alongZ(0.0f, 0.0f, delta.z, 0.0f);
        if (arena->collides(position + alongZ)) {
            delta.z = -position.z;
            speed.z = speed.z < BOUNCE_THRESHOLD * GRAVITY.z ? speed.z * BOUNCE_FACTOR : 0.0f;
        }
    }
    if (delta.length() > 0.0f)
        state |= MOVING;
    else
        state &= ~MOVING;
    position += delta;
}

void Character::updateSprite(float dt) {
    if (state & DEFENDING)
        sprite.setAnim("defending");
    else if (state & SPEAKING)
        sprite.setAnim("speaking");
    else if ((state & MOVING) && speed.z < 0.0f)
        sprite.setAnim("falling");
    else if ((state & MOVING) && speed.z == 0.0f)
        sprite.setAnim("moving");
    else if (state & MOVING)
        sprite.setAnim(0);
    else if (state & DEAD)
        sprite.setAnim("dead");
    else
        sprite.setAnim(0);
    sprite.setDir(direction);
    sprite.update(dt);
    shadow.update(dt);
}
