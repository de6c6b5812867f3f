#pragma once
#include "graphics/Sprite.h"

// A font made in memory, without a picture: glyphs for codes 32..126, all
// `height` high; the space is `spaceWidth` wide, "W" `wideWidth`, the rest
// `glyphWidth`.
inline Graphics::Sprite* makeBlockFont(int spaceWidth, int glyphWidth, int wideWidth, int height) {
    auto* font = new Graphics::Sprite;
    for (int code = 32; code < 127; ++code) {
        auto* dir = new Graphics::Dir;
        Graphics::Frame frame;
        frame.w = code == ' ' ? spaceWidth : code == 'W' ? wideWidth : glyphWidth;
        frame.h = height;
        dir->addFrame(frame);
        auto* anim = new Graphics::Anim;
        anim->setDir(Graphics::DIR_DOWN, dir);
        font->addAnim(anim, "");
    }
    return font;
}
