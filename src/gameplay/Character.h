#pragma once
#include <cstdint>
#include <string>

#include "gameplay/ComboManager.h"
#include "gameplay/ObjectType.h"
#include "gameplay/Serializable.h"
#include "graphics/SpriteInstance.h"
#include "graphics/Vector.h"
#include "script/Lua.h"
#include "shell/Event.h"

class Arena;
class Controller;

// A fighter. Its numbers and reactions come from its Lua script, its will
// from a Controller (keyboard, network or bot). The same class runs in every
// world: local, client and server.
class Character : public Serializable, public ObjectType, public EventProvider {
public:
    // Bits of `state`; scripts and the wire carry them as numbers.
    enum StateFlag : uint32_t {
        CONTROLLABLE = 0x001,  // took part in input this frame
        NOCHANGE = 0x002,
        MOVING = 0x010,
        DEFENDING = 0x020,
        CHARGING = 0x040,
        SPEAKING = 0x080,
        COMBO = 0x100,  // a combo function runs in place of update
        DEAD = 0x200,
        DISABLED = 0x400,  // the game mode takes input away
    };

    // Size of the snapshot written by serialize.
    static constexpr uint32_t SERIALIZED_SIZE = 48;
    // Default sprites for a fighter whose script names none.
    static constexpr const char* DEFAULT_SPRITE = "character/default/character.xml";
    static constexpr const char* DEFAULT_SHADOW = "character/default/shadow.xml";

    Character() = default;
    Character(const Character&) = delete;
    Character& operator=(const Character&) = delete;
    ~Character() override;

    // position, block, speed, speakBlock, direction, state, hp, air.
    void* serialize(uint32_t* size) override;
    bool deserialize(const void* data, uint32_t size) override;

    virtual bool init(const std::string& path);
    virtual void update(float dt);
    // Shadow on the floor, body lifted by the height.
    virtual void draw();
    // Back to the state of a new object; the script's numbers stay.
    virtual void clear();
    // Keeps the record in lastEvent, then delivers it.
    void emit(const Event& event) override;

    // Speaks a word now; takes no air and tests no state.
    virtual void say(float power);
    // Takes up the defence.
    virtual void defend();
    // Takes a hit; `by` is the speaker, this fighter for a word that struck
    // back, or null.
    virtual void hit(float amount, Character* by);

    // New round: full health and lungs, nothing pending; place stays.
    void restart();
    // Sets the vertical speed, whether on the floor or not.
    void jump(float speed);

    Vector position;
    Vector speed;  // x and y last one frame, z persists
    int32_t direction = 0;  // 0 faces right, 4 left
    Controller* controller = nullptr;  // not owned
    Arena* arena = nullptr;  // not owned
    float maxHp = 0.0f;
    float moveSpeed = 0.0f;
    float voiceVolume = 0.0f;  // power of a full word
    float speakSpeed = 0.0f;  // seconds a word takes
    float lungCapacity = 0.0f;
    float airUsage = 0.0f;  // air of a full word
    Lua lua;
    ComboManager comboManager;
    uint32_t state = 0;
    float hp = 1.0f;
    float air = 0.0f;
    float charge = 0.0f;  // air gathered into the word being charged
    float block = 0.0f;  // seconds of ignored input, set by scripts
    float speakBlock = 0.0f;  // seconds left of the word being spoken
    int32_t comboRef = 0;
    Event lastEvent{};
    Graphics::SpriteInstance sprite;
    Graphics::SpriteInstance shadow;
    Graphics::SpriteInstance speech;
    int32_t id = -1;  // player slot
    std::string name;
    std::string path;

private:
    void processInput(float dt);
    void updatePhysics(float dt);
    void updateSprite(float dt);

    // The defence and word steps of processInput; false ends the step.
    bool processDefence();
    bool processWord(float step);
    void processMovement();

    bool isPressed(int action) const;
    void emitInput(int32_t input);
    // Runs the combo check after an emitted input and starts a recognised
    // combo; true if one was recognised, which cuts the current step short.
    bool checkCombo();
    void resetLastEvent();
};
