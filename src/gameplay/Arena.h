#pragma once
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "gameplay/ObjectType.h"
#include "gameplay/Serializable.h"
#include "graphics/SpriteInstance.h"
#include "graphics/Vector.h"
#include "script/Lua.h"
#include "shell/Event.h"

class Character;
class Effect;

// A picture in front of (z 1) or behind (z -1) the fighters.
struct ArenaLayer {
    Vector position;
    Graphics::SpriteInstance sprite;
};

// The floor of a fight and the medium of speech: a word reaches the other
// fighters through say, as far as its power carries against the noise.
class Arena : public Serializable, public ObjectType, public EventProvider {
public:
    static constexpr uint32_t SERIALIZED_SIZE = 4;
    static constexpr const char* DEFAULT_BACKGROUND = "arena/default/bg.xml";
    // The floor of an arena whose script sets none.
    static constexpr float DEFAULT_X = 0.0f, DEFAULT_Y = 300.0f, DEFAULT_W = 800.0f, DEFAULT_H = 300.0f;
    static constexpr float DAMAGE_PER_POWER = 10.0f;  // at distance 0
    static constexpr float BEHIND_MARGIN = 8.0f;  // pixels behind the back before it counts
    static constexpr float BEHIND_FACTOR = 0.25f;
    static constexpr float STRIKE_BACK_FACTOR = 2.0f;

    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena() override;

    // Only the noise travels.
    void* serialize(uint32_t* size) override;
    bool deserialize(const void* data, uint32_t size) override;

    virtual bool init(const std::string& path);
    virtual void update(float dt);
    virtual void draw();
    // Gives up fighters and effects; the shape stays until the next init.
    virtual void clear();

    // A word of `power` spoken at `position`; `speaker` may be null.
    void say(const Vector& position, float power, Character* speaker);
    void addCharacter(Character* character);
    // Takes the fighter off the floor together with the effects that point at
    // it, so that it can be deleted; its own fields are left alone.
    void removeCharacter(Character* character);
    // By place in characters; the index must be valid.
    Character* getCharacter(int index);
    // By Character::id, or null.
    Character* findCharacter(int id);
    // Takes ownership.
    void addEffect(Effect* effect);
    void setSize(float x, float y, float w, float h);
    void setNoise(float value);
    // Outside the floor or under it; the edges belong to the floor.
    bool collides(const Vector& point) const;
    // Signed way from position to the edge that delta runs into.
    float distanceToEdge(const Vector& position, const Vector& delta) const;
    void addStartingPosition(const Vector& position);
    void addLayer(const Vector& position, const std::string& spritePath);

    float noise = 0.0f;
    Vector min;  // upper left corner of the floor
    Vector max;  // lower right corner of the floor
    Lua lua;
    std::vector<Character*> characters;  // not owned
    std::vector<ArenaLayer*> layers;  // owned
    std::list<Effect*> effects;  // owned, in order of adding
    std::vector<Vector> startPositions;
    Graphics::SpriteInstance background;
    std::string path;

private:
    void resetShape();
    void sortCharactersByDepth();
    void drawLayers(bool front);
};
