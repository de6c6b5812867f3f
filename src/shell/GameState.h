#pragma once

// One screen of the game. States stand on the stack of Engine; only the top
// one is updated and drawn.
class GameState {
public:
    enum StateType {
        STATE_INTRO = 0,
        STATE_MENU = 1,
        STATE_CHARACTER_SELECT = 2,
        STATE_ARENA_SELECT = 3,
        STATE_DUEL_PREPARE = 4,
        STATE_DUEL = 5,
        STATE_DEMO_MENU = 6,
        STATE_DEMO_SERVER = 7,
        STATE_DEMO_CLIENT = 8,
        STATE_CONTROLS = 9,
    };

    virtual ~GameState() = default;
    // Called once the state stands on the stack.
    virtual void init() = 0;
    virtual void update(float dt) = 0;
    virtual void draw() = 0;
    // Gives up what init took; called before the state leaves the stack.
    virtual void clear() {}
    // The state just lost the top of the stack.
    virtual void pause() = 0;
    // The state above is about to go; it is still Engine::top() here, so
    // this is where a result is read back from it.
    virtual void resume() = 0;
    virtual int getType() = 0;
};
