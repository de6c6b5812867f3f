// The main loop: the state stack, the window events that end the run, the frame time.
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "shell/Engine.h"
#include "shell/FrameTimer.h"
#include "shell/GameState.h"
#include "shell/WindowEvents.h"

namespace {

std::vector<std::string> calls;

// Writes every call into `calls`, with whether it stood on top at init and who did at resume.
struct LoggedState : GameState {
    LoggedState(std::string n, bool pops = false) : name(std::move(n)), popsOnUpdate(pops) {}
    ~LoggedState() override { log("delete"); }
    void log(const std::string& what) { calls.push_back(name + " " + what); }
    void init() override { log(Engine::top() == this ? "init on top" : "init"); }
    void update(float dt) override {
        log("update " + std::to_string(dt));
        if (popsOnUpdate) Engine::pop();
    }
    void draw() override { log("draw"); }
    void clear() override { log("clear"); }
    void pause() override { log("pause"); }
    void resume() override { log("resume under " + static_cast<LoggedState*>(Engine::top())->name); }
    int getType() override { return STATE_MENU; }
    std::string name;
    bool popsOnUpdate;
};

// The empty pop changes nothing; a pops itself, the last state, in its update.
TEST(EngineTest, PopResumesTheLowerWhileTheUpperIsTopAndOnlyTheLastPopOrQuitStopsTheRun) {
    Engine::init();
    Engine::pop();
    EXPECT_TRUE(Engine::isRunning());
    Engine::push(new LoggedState("a", true));
    Engine::push(new LoggedState("b"));
    Engine::update(0.125f);
    Engine::draw();
    Engine::pop();
    EXPECT_TRUE(Engine::isRunning());
    Engine::update(0.5f);
    Engine::draw();
    EXPECT_FALSE(Engine::isRunning());
    Engine::init();
    Engine::push(new LoggedState("c"));
    Engine::push(new LoggedState("d"));
    Engine::quit();
    EXPECT_FALSE(Engine::isRunning());
    EXPECT_EQ(Engine::depth(), 2u);
    Engine::clear();
    EXPECT_EQ(calls, (std::vector<std::string>{
                         "a init on top", "a pause", "b init on top", "b update 0.125000", "b draw", "a resume under b",
                         "b clear", "b delete", "a update 0.500000", "a clear", "a delete", "c init on top", "c pause",
                         "d init on top", "d clear", "d delete", "c clear", "c delete"}));
}

void pushEvent(Uint8 type, SDLKey key = SDLK_F4, int mod = KMOD_NONE) {
    SDL_Event event{};
    event.key = {type, 0, SDL_PRESSED, {0, key, SDLMod(mod), 0}};
    SDL_PushEvent(&event);
}

TEST(EngineTest, TheCloseRequestAndAltF4WithEitherAltQuitButNoOtherKey) {
    Engine::init();
    ASSERT_TRUE(SDL_Init(SDL_INIT_VIDEO) == 0 && SDL_SetVideoMode(64, 64, 32, 0)) << SDL_GetError();
    pushEvent(SDL_KEYDOWN);
    pushEvent(SDL_KEYDOWN, SDLK_F5, KMOD_LALT);
    pushEvent(SDL_KEYDOWN, SDLK_F4, KMOD_LCTRL);
    pumpWindowEvents();
    EXPECT_TRUE(Engine::isRunning());
    for (int quit = 0; quit < 3; ++quit) {
        Engine::init();
        pushEvent(quit ? SDL_KEYDOWN : SDL_QUIT, SDLK_F4, quit == 1 ? KMOD_LALT : KMOD_RALT | KMOD_NUM);
        pumpWindowEvents();
        EXPECT_FALSE(Engine::isRunning()) << quit;
    }
    Engine::clear();
    SDL_Quit();
}

// A scripted clock: each read returns the next value; the sleeps add up.
std::vector<uint32_t> clockValues;
size_t clockIndex = 0;
uint32_t slept = 0;
uint32_t fakeTicks() { return clockValues.at(clockIndex++); }
void fakeSleep(uint32_t ms) { slept += ms; }

// A frame under a millisecond sleeps one and is then taken as measured.
TEST(FrameTimerTest, FramesAreMeasuredCutAtAQuarterSecondAndNeverShorterThanOneSleep) {
    const std::tuple<std::vector<uint32_t>, float, uint32_t> cases[] = {
        {{1000, 1001}, 0.001f, 0}, {{1000, 1300}, 0.25f, 0}, {{0xFFFFFFF0u, 4}, 0.020f, 0}, {{500, 500, 500}, 0.0f, 1}};
    for (const auto& [clock, frameTime, sleep] : cases) {
        clockValues = clock;
        clockIndex = slept = 0;
        FrameTimer timer(fakeTicks, fakeSleep);
        EXPECT_EQ(timer.frameTime(), 0.0f);
        timer.begin();
        EXPECT_FLOAT_EQ(timer.end(), frameTime) << clock.back();
        EXPECT_TRUE(slept == sleep && clockIndex == clock.size()) << clock.back();
    }
}

}  // namespace
