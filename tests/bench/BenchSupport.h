#pragma once
#include <unistd.h>

#include "graphics/Render.h"

// The one window of a benchmark program, opened on first use; false without a display.
inline bool openWindow() {
    static const bool opened = Render::init(800, 600, false);
    return opened;
}

// The game's own data folder as the working directory, as the game has it.
inline bool enterGameData() { return chdir(KORVANE_SOURCE_DIR "/data") == 0; }
