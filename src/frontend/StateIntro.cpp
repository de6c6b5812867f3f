#include "frontend/StateIntro.h"

#include "frontend/StateMenu.h"
#include "graphics/Render.h"
#include "shell/Engine.h"

void StateIntro::init() {
    timer = 0.0f;
    first = true;
}

void StateIntro::update(float dt) {
    if (first)
        Engine::push(new StateMenu());
    else
        timer -= dt;
}

void StateIntro::resume() {
    if (Engine::top()->getType() != STATE_MENU) return;
    first = false;
    timer = FADE_TIME;
}

void StateIntro::draw() {
    if (first) return;
    float alpha = 255.0f * (1.0f - timer / FADE_TIME);
    if (timer < 0.0f) {
        alpha = 255.0f;
        Engine::quit();
    }
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    Render::setColor(0, 0, 0, static_cast<uint8_t>(alpha > 255.0f ? 255.0f : alpha));
    Render::drawRect(0.0f, 0.0f, static_cast<float>(Render::getWidth()), static_cast<float>(Render::getHeight()));
    Render::setMode(Render::MODE_WORLD_IMAGES);
}
