#pragma once
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "HeldKeys.h"
#include "TestSupport.h"
#include "graphics/Render.h"
#include "resources/Resource.h"
#include "shell/Engine.h"
#include "shell/Log.h"

// The screens run on the real state stack in one window per process, with
// the default keyboards, in a temporary working directory. Content is kept
// in memory, where the folder walk of the selection screens doesn't look.
class FrontendTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window: " << SDL_GetError();
    }
    void SetUp() override {
        Log::setFlags(Log::LOG_INFO | Log::LOG_FAIL);
        Engine::init();
    }
    void TearDown() override {
        Engine::clear();
        Resource::clear();
    }

    static void inMemory(const std::string& name, const std::string& bytes) {
        char* data = new char[bytes.size() + 1];
        memcpy(data, bytes.c_str(), bytes.size() + 1);
        Resource::preload(name, static_cast<uint32_t>(bytes.size()), data);
    }
    // One fresh press of a key, over two frames.
    static void press(int key) {
        HeldKeys::hold(key);
        Engine::update(0.0f);
        HeldKeys::release(key);
        Engine::update(0.0f);
    }
    static void pressAll(std::initializer_list<int> keys) {
        for (int key : keys) press(key);
    }
    // Lets go of everything for a frame: a screen just pushed ignores keys
    // until then.
    static void letGo() {
        HeldKeys::releaseAll();
        Engine::update(0.0f);
    }
    template <typename State>
    static State* top() {
        return dynamic_cast<State*>(Engine::top());
    }

    HeldKeys keys;
};
