#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/Engine.h"
#include "shell/GameState.h"

namespace {

std::vector<std::string> calls;

// Records every call of the stack into `calls`, and what stood on top when
// it was initialised and resumed.
class RecordingState : public GameState {
public:
    RecordingState(std::string n, int t = STATE_MENU) : name(std::move(n)), type(t) {}
    ~RecordingState() override { calls.push_back(name + ".delete"); }
    void init() override {
        calls.push_back(name + ".init");
        topDuringInit = Engine::top();
    }
    void update(float dt) override {
        calls.push_back(name + ".update");
        lastDt = dt;
        if (popOnUpdate) Engine::pop();
    }
    void draw() override { calls.push_back(name + ".draw"); }
    void clear() override { calls.push_back(name + ".clear"); }
    void pause() override { calls.push_back(name + ".pause"); }
    void resume() override {
        calls.push_back(name + ".resume");
        GameState* upper = Engine::top();
        if (upper->getType() == STATE_ARENA_SELECT) handedBack = static_cast<RecordingState*>(upper)->result;
    }
    int getType() override { return type; }

    std::string name;
    int type;
    std::string result;
    std::string handedBack;
    GameState* topDuringInit = nullptr;
    float lastDt = -1.0f;
    bool popOnUpdate = false;
};

class EngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        Engine::clear();
        calls.clear();
        Engine::init();
    }
    void TearDown() override { Engine::clear(); }
    using Calls = std::vector<std::string>;
};

TEST_F(EngineTest, PushPausesBeforeInitAndPopResumesWhileTheUpperIsStillTop) {
    auto* lower = new RecordingState("lower");
    Engine::push(lower);
    auto* upper = new RecordingState("upper", GameState::STATE_ARENA_SELECT);
    upper->result = "osmiornica";
    Engine::push(upper);
    EXPECT_EQ(calls, (Calls{"lower.init", "lower.pause", "upper.init"}));
    EXPECT_EQ(lower->topDuringInit, lower);
    EXPECT_EQ(upper->topDuringInit, upper);

    calls.clear();
    Engine::update(0.125f);
    Engine::draw();
    EXPECT_EQ(calls, (Calls{"upper.update", "upper.draw"}));
    EXPECT_FLOAT_EQ(upper->lastDt, 0.125f);

    calls.clear();
    Engine::pop();
    EXPECT_EQ(calls, (Calls{"lower.resume", "upper.clear", "upper.delete"}));
    EXPECT_EQ(lower->handedBack, "osmiornica");
    EXPECT_EQ(Engine::top(), lower);
    EXPECT_TRUE(Engine::isRunning());
}

TEST_F(EngineTest, PoppingTheLastStateStopsTheRunAndAnEmptyPopDoesNothing) {
    Engine::pop();
    EXPECT_TRUE(Engine::isRunning());

    auto* only = new RecordingState("only");
    only->popOnUpdate = true;
    Engine::push(only);
    calls.clear();
    Engine::update(0.01f);
    Engine::draw();  // must not touch the deleted state
    EXPECT_EQ(calls, (Calls{"only.update", "only.clear", "only.delete"}));
    EXPECT_FALSE(Engine::isRunning());
    EXPECT_EQ(Engine::depth(), 0u);
}

TEST_F(EngineTest, QuitLeavesTheStackAndClearGoesTopFirstWithoutResume) {
    Engine::push(new RecordingState("a"));
    Engine::push(new RecordingState("b"));
    Engine::push(new RecordingState("c"));
    calls.clear();
    Engine::quit();
    EXPECT_FALSE(Engine::isRunning());
    EXPECT_EQ(Engine::depth(), 3u);
    EXPECT_TRUE(calls.empty());
    Engine::clear();
    EXPECT_EQ(calls, (Calls{"c.clear", "c.delete", "b.clear", "b.delete", "a.clear", "a.delete"}));
    EXPECT_EQ(Engine::depth(), 0u);
}

}  // namespace
