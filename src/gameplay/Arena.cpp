#include "gameplay/Arena.h"

#include <algorithm>
#include <cmath>
#include <ctime>

#include "gameplay/Character.h"
#include "graphics/Effect.h"
#include "graphics/Render.h"
#include "resources/LittleEndian.h"
#include "script/LuaFuncs.h"
#include "shell/EventClock.h"
#include "shell/Log.h"

namespace {

// Depth key of a fighter; a NaN from a script must not break the sort's order.
float depthOf(const Character* character) {
    float y = character->position.y;
    return std::isnan(y) ? INFINITY : y;
}

}  // namespace

Arena::~Arena() {
    clear();
    for (ArenaLayer* layer : layers) delete layer;
}

void* Arena::serialize(uint32_t* size) {
    uint8_t* out = ensureBuffer(SERIALIZED_SIZE);
    LittleEndian::writeF32(out, noise);
    if (size) *size = SERIALIZED_SIZE;
    return out;
}

bool Arena::deserialize(const void* data, uint32_t size) {
    if (!hasSnapshot("Arena.deserialize", size, SERIALIZED_SIZE)) return false;
    noise = LittleEndian::readF32(static_cast<const uint8_t*>(data));
    return true;
}

bool Arena::init(const std::string& scriptPath) {
    clear();
    resetShape();
    path = scriptPath;
    lua.start();
    lua.setPtr("arena", this);
    LuaFuncs::registerAll(lua, objectType);
    if (!lua.openFile(path)) return false;
    if (!lua.hasFunction("init")) {
        Log::fail("Arena.init: Nie znaleziono funkcji \"%s\"", "init");
        return false;
    }
    if (!lua.hasFunction("update")) {
        Log::fail("Arena.init: Nie znaleziono funkcji \"%s\"", "update");
        lua.declare("update");
    }
    lua.call("init");

    // A server world draws nothing, so it loads no pictures, not even the default.
    if (!background.sprite && objectType != OBJECT_SERVER) background.setSprite(DEFAULT_BACKGROUND);
    if (max.x < min.x) std::swap(min.x, max.x);
    if (max.y < min.y) std::swap(min.y, max.y);
    if ((max - min).length() == 0.0f) setSize(DEFAULT_X, DEFAULT_Y, DEFAULT_W, DEFAULT_H);
    if (startPositions.empty()) {
        float width = max.x - min.x;
        float middleY = min.y + (max.y - min.y) * 0.5f;
        addStartingPosition(Vector(min.x + width * 0.25f, middleY, 0.0f, 0.0f));
        addStartingPosition(Vector(min.x + width * 0.75f, middleY, 0.0f, 0.0f));
    }
    return true;
}

// What a script describes is set anew by every load, so a second script
// doesn't inherit the floor, noise or pictures of the first.
void Arena::resetShape() {
    noise = 0.0f;
    min = Vector();
    max = Vector();
    for (ArenaLayer* layer : layers) delete layer;
    layers.clear();
    background.setSprite(static_cast<Graphics::Sprite*>(nullptr));
}

void Arena::update(float dt) {
    if (objectType != OBJECT_CLIENT) lua.call("update");
    for (std::size_t i = 0; i < characters.size(); ++i) characters[i]->update(dt);
    if (objectType == OBJECT_SERVER) return;
    for (auto it = effects.begin(); it != effects.end();) {
        (*it)->update(dt);
        if ((*it)->isDone()) {
            delete *it;
            it = effects.erase(it);
        } else {
            ++it;
        }
    }
    sortCharactersByDepth();
}

void Arena::sortCharactersByDepth() {
    std::sort(characters.begin(), characters.end(),
              [](const Character* a, const Character* b) { return depthOf(a) < depthOf(b); });
}

void Arena::draw() {
    if (objectType == OBJECT_SERVER) return;
    Render::drawSprite(&background, 0.0f, 0.0f, 0.0f, 0.0f);
    // "back" layers stand behind the fighters, "front" ones before them;
    // effects such as speech bubbles stay on top of both.
    drawLayers(false);
    for (Character* character : characters) character->draw();
    drawLayers(true);
    for (Effect* effect : effects) effect->draw();
}

void Arena::drawLayers(bool front) {
    for (ArenaLayer* layer : layers)
        if ((layer->position.z > 0.0f) == front)
            Render::drawSprite(&layer->sprite, layer->position.x, layer->position.y, 0.0f, 0.0f);
}

void Arena::clear() {
    for (Effect* effect : effects) delete effect;
    effects.clear();
    freeBuffer();
    characters.clear();
    listeners.clear();
    startPositions.clear();
}

void Arena::say(const Vector& position, float power, Character* speaker) {
    float width = max.x - min.x;
    // A word over the noise carries across the floor; under it, only a share.
    float range = power > noise ? width : width * power / noise;
    // Index loop: a hit runs script callbacks while we walk.
    for (std::size_t i = 0; i < characters.size(); ++i) {
        Character* hearer = characters[i];
        if (hearer == speaker) continue;
        float distance = (position - hearer->position).length();
        // Written so that a NaN range (0 / 0) reaches nobody.
        if (!(distance <= range)) continue;
        float share = range > 0.0f ? distance / range : 1.0f;
        float damage = (1.0f - share * share) * power * DAMAGE_PER_POWER;
        if (speaker) {
            if (hearer->state & Character::SPEAKING) speaker->hit(STRIKE_BACK_FACTOR * damage, speaker);
            bool behindLeftFacing = speaker->direction == 4 && hearer->position.x - BEHIND_MARGIN > speaker->position.x;
            bool behindRightFacing =
                speaker->direction == 0 && hearer->position.x + BEHIND_MARGIN < speaker->position.x;
            if (behindLeftFacing || behindRightFacing) damage *= BEHIND_FACTOR;
        }
        hearer->hit(damage, speaker);
    }
    Event speech{};
    speech.type = EVENT_SPEECH;
    speech.input = 2;
    speech.time = EventClock::now();
    speech.x = position.x;
    speech.y = position.y;
    speech.z = position.z;
    speech.power = power;
    speech.speaker = speaker;
    emit(speech);
}

void Arena::addCharacter(Character* character) {
    if (!findCharacter(character->id)) characters.push_back(character);
    if (startPositions.empty())
        addStartingPosition(Vector((min.x + max.x) * 0.5f, (min.y + max.y) * 0.5f, 0.0f, 0.0f));
    std::size_t n = characters.size();
    character->position = startPositions[(n - 1) % startPositions.size()];
    character->arena = this;
    // Face the centre.
    character->direction = character->position.x >= (min.x + max.x) * 0.5f ? 4 : 0;
}

void Arena::removeCharacter(Character* character) {
    characters.erase(std::remove(characters.begin(), characters.end(), character), characters.end());
    for (auto it = effects.begin(); it != effects.end();) {
        if ((*it)->follows(character)) {
            delete *it;
            it = effects.erase(it);
        } else {
            ++it;
        }
    }
}

Character* Arena::getCharacter(int index) { return characters[static_cast<std::size_t>(index)]; }

Character* Arena::findCharacter(int id) {
    for (Character* character : characters)
        if (character->id == id) return character;
    return nullptr;
}

void Arena::addEffect(Effect* effect) {
    // Nothing is drawn on the server; the effect is ours all the same.
    if (objectType == OBJECT_SERVER) {
        delete effect;
        return;
    }
    effects.push_back(effect);
}

void Arena::setSize(float x, float y, float w, float h) {
    min = Vector(x, y, 0.0f, 0.0f);
    max = Vector(x + w, y + h, 0.0f, 0.0f);
}

void Arena::setNoise(float value) { noise = value; }

bool Arena::collides(const Vector& point) const {
    return point.x < min.x || point.x > max.x || point.y < min.y || point.y > max.y || point.z < 0.0f;
}

float Arena::distanceToEdge(const Vector& position, const Vector& delta) const {
    if (delta.x < 0.0f) return -(position.x - min.x);
    if (delta.x > 0.0f) return max.x - position.x;
    if (delta.y < 0.0f) return -(position.y - min.y);
    if (delta.y > 0.0f) return max.y - position.y;
    return position.z;
}

void Arena::addStartingPosition(const Vector& position) { startPositions.push_back(position); }

void Arena::addLayer(const Vector& position, const std::string& spritePath) {
    auto* layer = new ArenaLayer();
    layer->position = position;
    layer->sprite.setSprite(spritePath);
    layers.push_back(layer);
}
