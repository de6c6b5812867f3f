#pragma once

class Arena;
class Character;
class ControllerDummy;

// A computer player. It sees the world of its own client and presses the six
// controls of a ControllerDummy, exactly as a human presses keys.
class Bot {
public:
    enum Action {
        BOT_IDLE = 0,
        BOT_DEFEND = 1,
        BOT_RETREAT = 2,
        BOT_APPROACH = 3,
        BOT_SAY = 4,
    };

    virtual ~Bot() = default;

    void init();
    void setArena(Arena* arena);
    void setController(ControllerDummy* controller);
    // Takes the bot's controller away from the fighter held so far and gives
    // it to the new one, which starts with no target and no action.
    void setCharacter(Character* character);
    // Does nothing until the bot has an arena, a controller and a fighter.
    void update(float dt);

    Arena* arena = nullptr;
    Character* character = nullptr;
    ControllerDummy* controller = nullptr;
    Character* target = nullptr;
    int action = BOT_IDLE;
    float actionTime = 0.0f;
    float aggro = 0.5f;
    float aggroTimer = 0.0f;

    // The random source, rand() unless a test scripts it.
    int (*random)() = nullptr;

private:
    float r();
    void act();
    void decide();
    void startAction(int newAction, float seconds);
    void steerTowards(float goalX, float goalY, float margin);
    void rethinkAggro(float othersHp);
    Character* nearest() const;
    Character* weakest() const;
};
