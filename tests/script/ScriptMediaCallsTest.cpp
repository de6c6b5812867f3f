#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ScriptRunning.h"
#include "TestSupport.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"
#include "shell/Event.h"

namespace {

const int LOCAL = 0;
const int CLIENT = 1;
const int SERVER = 2;

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Stands in for the server: keeps what reaches it.
class SoundListener : public EventListener {
public:
    void onEvent(const Event& event) override {
        heard.push_back(event.name);
        volumes.push_back(event.volume);
        EventListener::onEvent(event);
    }
    std::vector<std::string> heard;
    std::vector<float> volumes;
};

// Sounds need no fighter or arena: a bare script state of a given rank.
class ScriptMediaTest : public ::testing::Test {
protected:
    void atRank(int rank) {
        lua.start();
        LuaFuncs::registerAll(lua, rank);
    }
    std::string run(const std::string& chunk) { return runLogged(lua, chunk); }
    Lua lua;
};

TEST_F(ScriptMediaTest, OnTheServerASoundGoesToTheListener) {
    SoundListener server;
    atRank(SERVER);
    // Not yet listening, as during a script's own loading.
    EXPECT_EQ("", run("playSound('early.ogg')"));
    lua.setPtr("_eventlistener", static_cast<EventListener*>(&server));
    run("playSound('boom.ogg')");
    // The name is the last but one argument, the volume the last.
    run("playSound('ignored', 'hiss.ogg', 0.5)");
    ASSERT_EQ(2u, server.heard.size());
    EXPECT_EQ("boom.ogg", server.heard[0]);
    EXPECT_FLOAT_EQ(1.0f, server.volumes[0]);
    EXPECT_EQ("hiss.ogg", server.heard[1]);
    EXPECT_FLOAT_EQ(0.5f, server.volumes[1]);
}

TEST_F(ScriptMediaTest, MusicIsRefusedOnTheServerAndBothNeedAName) {
    atRank(SERVER);
    EXPECT_TRUE(contains(run("playMusic('x')"),
                         "FAIL: LuaFuncs.playMusic: Sry, nie chce mi sie robic muzyki po stronie serwera >:"));
    EXPECT_TRUE(contains(run("playMusic()"), "LuaFuncs.playMusic: Za malo argumentow (otrzymano 0, oczekiwano 1)"));
    std::string log = run("playSound()");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.playSound: Za malo argumentow"));
    EXPECT_FALSE(contains(log, "otrzymano"));
}

TEST_F(ScriptMediaTest, ALocalScriptPlaysThroughTheSoundModule) {
    TestSupport::ScopedTempDir dir;
    atRank(LOCAL);
    EXPECT_TRUE(contains(run("playSound('absent.ogg', 0.3)"), "Sound.play: Nie udalo sie wczytac dzwieku \"absent.ogg\""));
    EXPECT_TRUE(contains(run("playMusic('tune.ogg')"), "Sound.play: Nie udalo sie wczytac dzwieku \"tune.ogg\""));
    // A client plays nothing itself: the server's packets bring its sounds.
    atRank(CLIENT);
    EXPECT_EQ("", run("playSound('absent.ogg'); playMusic('tune.ogg')"));
}

}  // namespace
