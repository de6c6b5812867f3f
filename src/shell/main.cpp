#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <cstdio>

#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "frontend/DemoMenu.h"
#include "gameplay/ControllerManager.h"
#include "graphics/Render.h"
#include "resources/Database.h"
#include "resources/Resource.h"
#include "shell/CommandLine.h"
#include "shell/Engine.h"
#include "shell/FrameTimer.h"
#include "shell/Log.h"
#include "shell/RunLog.h"
#include "shell/StandaloneScene.h"
#include "shell/WindowEvents.h"

namespace {

const char* const LOG_FILE = "log.txt";
const char* const RESOURCE_LIST = "data.ini";
const int EXIT_NO_DATA = 185;
const char* const CAPTION = "Korvane";
const int WINDOW_WIDTH = 800;
const int WINDOW_HEIGHT = 600;
const int EXIT_NO_WINDOW = 190;

uint32_t ticks() { return SDL_GetTicks(); }
void sleepMs(uint32_t ms) { SDL_Delay(ms); }

GameState* firstState(const CommandLine::Request& request) {
    if (request.action == CommandLine::SANDBOX) return new StandaloneScene(request.fighterScript, request.arenaScript);
    return new DemoMenu();
}

}  // namespace

int main(int argc, char** argv) {
    // Before the log takes standard output over: the usage is for a person.
    const CommandLine::Request request = CommandLine::parse(argc, argv);
    if (request.action == CommandLine::HELP) {
        fputs(CommandLine::USAGE, stdout);
        return 0;
    }
    if (request.action == CommandLine::MISUSE) {
        fputs(CommandLine::USAGE, stderr);
        return CommandLine::EXIT_MISUSE;
    }

    if (!freopen(LOG_FILE, "a", stdout)) return 1;
    RunLog::begin();

    // Without the archives there is nothing to show; the window is never opened.
    if (!Resource::open(RESOURCE_LIST)) return EXIT_NO_DATA;

    Render::setCaption(CAPTION);
    if (!Render::init(WINDOW_WIDTH, WINDOW_HEIGHT, false)) return EXIT_NO_WINDOW;

    if (SDLNet_Init() != 0) Log::fail("init: Nie udalo sie wystartowac sieci");
    if (!Sound::init(32)) Log::fail("init: Nie udalo sie wystartowac dzwieku");
    SoundSettings::load(Database::SETTINGS_FILE);
    if (!Engine::init()) Log::fail("init: Nie udalo sie wystartowac silnika");
    Engine::push(firstState(request));
    Log::info("main: init %ums", SDL_GetTicks());

    FrameTimer timer(ticks, sleepMs);
    bool firstFrame = true;
    while (Engine::isRunning()) {
        timer.begin();
        pumpWindowEvents();
        Engine::update(timer.frameTime());
        Engine::draw();
        Render::flip();
        timer.end();
        // How long a player waits for the first screen.
        if (firstFrame) Log::info("main: pierwsza klatka %ums", SDL_GetTicks());
        firstFrame = false;
    }

    ControllerManager::clear();
    Engine::clear();
    // Nothing is saved here: whoever changes a setting saves it then.
    Database::clearAll();
    Sound::clear();
    SDLNet_Quit();
    Render::clear();
    Resource::clear();
    RunLog::end();
    return 0;
}
