#pragma once

class GameState;

// Owns the stack of game states and the run flag of the process.
namespace Engine {

bool init();
void update(float dt);
void draw();
// The stack takes ownership of the state.
void push(GameState* state);
void pop();
GameState* top();
void quit();
bool isRunning();
// Shutdown: clear() and delete every state, top first, without resuming any.
void clear();
// How many states stand on the stack.
unsigned depth();

}  // namespace Engine
