#include <string>
#include <vector>

#include "ScriptCallFixture.h"
#include "shell/Event.h"

namespace {

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

TEST_F(ScriptCallTest, OnTheServerASoundGoesToTheListener) {
    SoundListener server;
    asArenaScript(SERVER);
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

TEST_F(ScriptCallTest, MusicIsRefusedOnTheServerAndBothNeedAName) {
    asArenaScript(SERVER);
    EXPECT_TRUE(contains(run("playMusic('x')"),
                         "FAIL: LuaFuncs.playMusic: Sry, nie chce mi sie robic muzyki po stronie serwera >:"));
    EXPECT_TRUE(contains(run("playMusic()"), "LuaFuncs.playMusic: Za malo argumentow (otrzymano 0, oczekiwano 1)"));
    std::string log = run("playSound()");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.playSound: Za malo argumentow"));
    EXPECT_FALSE(contains(log, "otrzymano"));
}

TEST_F(ScriptCallTest, ALocalScriptPlaysThroughTheSoundModule) {
    TestSupport::ScopedTempDir dir;
    asArenaScript(LOCAL);
    EXPECT_TRUE(contains(run("playSound('absent.ogg', 0.3)"), "Sound.play: Nie udalo sie wczytac dzwieku \"absent.ogg\""));
    EXPECT_TRUE(contains(run("playMusic('tune.ogg')"), "Sound.play: Nie udalo sie wczytac dzwieku \"tune.ogg\""));
    // A client plays nothing itself: the server's packets bring its sounds.
    asArenaScript(CLIENT);
    EXPECT_EQ("", run("playSound('absent.ogg'); playMusic('tune.ogg')"));
}

}  // namespace
