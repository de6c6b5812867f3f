#pragma once
#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>

#include "HeldKeys.h"
#include "graphics/Render.h"
#include "resources/Resource.h"
#include "shell/Engine.h"

// The screens run on the real state stack in one window per process, with
// the default keyboards, in a temporary working directory. Content is kept
// in memory, where the folder walk of the selection screens doesn't look.
class FrontendTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << SDL_GetError();
    }
    void SetUp() override { Engine::init(); }
    void TearDown() override {
        Engine::clear();
        Resource::clear();
    }

    static void inMemory(const std::string& name, const std::string& bytes) {
        char* data = new char[bytes.size() + 1];
        memcpy(data, bytes.c_str(), bytes.size() + 1);
        Resource::preload(name, static_cast<uint32_t>(bytes.size()), data);
    }
    // Fresh presses, each a frame with the key down and one with it let go.
    static void press(std::initializer_list<int> keys) {
        for (int key : keys) {
            HeldKeys::hold(key);
            Engine::update(0.0f);
            letGo();
        }
    }
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
