#pragma once

// The six actions a fighter is steered by, in their fixed numbering; the
// network packs action i into bit i.
enum Action {
    ACTION_UP = 0,
    ACTION_DOWN = 1,
    ACTION_LEFT = 2,
    ACTION_RIGHT = 3,
    ACTION_A = 4,  // speak
    ACTION_B = 5,  // defend
    ACTION_COUNT = 6,
};

enum ControllerType {
    CONTROLLER_DUMMY = 0,
    CONTROLLER_KEYBOARD = 1,
};

// What steers a fighter: each action pressed or not at this moment. No
// history is kept; whoever needs a transition compares with its own state.
class Controller {
public:
    virtual ~Controller() = default;
    virtual void update(float dt) { (void)dt; }
    // Placeholders that keep the interface's layout; neither does anything.
    virtual void reservedA() {}
    virtual void reservedB() {}
    virtual bool isPressed(int action) = 0;
    virtual int getType() = 0;

protected:
    static bool isAction(int action) { return action >= 0 && action < ACTION_COUNT; }
};
