#pragma once
#include <cstdint>
#include <vector>

#include "gameplay/ObjectType.h"
#include "gameplay/Serializable.h"

class Arena;
class Character;

// The rules of a match: drives the arena each frame, decides when a round is
// over and draws what belongs to the rules.
class GameMode : public Serializable, public ObjectType {
public:
    ~GameMode() override;

    virtual void init() = 0;
    virtual void update(float dt) = 0;
    virtual void draw() {}
    virtual void clear();
    virtual void start() = 0;
    virtual int getType() = 0;
    virtual int getMinPlayers() = 0;
    virtual int getMaxPlayers() = 0;

    // Appends in order of arrival, unless a fighter with the same id is there.
    void addCharacter(Character* character);
    // Forgets the fighter, so that it can be deleted.
    void removeCharacter(Character* character);

    std::vector<Character*> characters;  // not owned
    Arena* arena = nullptr;              // not owned
    bool running = false;
};
