#pragma once
#include <SDL/SDL.h>

#include <cstring>

#include "TestSupport.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

// The two default keyboards, made from a fresh settings file in a temporary
// working directory: controller 0 on the arrows with right Shift (A) and
// right Ctrl (B), controller 1 on W S A D with F and G. Keys are held by
// writing SDL's key-state table, as the event pump would.
class HeldKeys {
public:
    HeldKeys() {
        ControllerManager::init("config.nvo");
        releaseAll();
    }
    ~HeldKeys() {
        releaseAll();
        ControllerManager::clear();
        Database::clearAll();
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

    static void hold(int key) { SDL_GetKeyState(nullptr)[key] = 1; }
    static void releaseAll() { memset(SDL_GetKeyState(nullptr), 0, SDLK_LAST); }

private:
    TestSupport::ScopedTempDir dir;
};
