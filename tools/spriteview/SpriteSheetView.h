#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "graphics/SpriteInstance.h"
#include "graphics/Text.h"

namespace Graphics {
class Sprite;
}

// Shows one sprite the way the game draws it: a row per animation, a column
// per named direction slot, each cell playing its frames, with the object's
// position and the attachment point (where a speech bubble sits) marked.
class SpriteSheetView {
public:
    static constexpr const char* FONT = "font/font_02.xml";

    // A cell's playing frames and where the object's position lies in it.
    struct Cell {
        Graphics::SpriteInstance instance;
        float x = 0, y = 0;  // the drawing position on screen
    };
    struct Row {
        int32_t anim = 0;
        int32_t left = 0, top = 0, height = 0;
        int32_t originX = 0, originY = 0;  // the drawing position relative to a cell's corner
        int32_t cellWidth = 0;
    };

    bool init(const std::string& spriteName);
    void showPage(int32_t page);
    int32_t pageCount() const { return static_cast<int32_t>(pages.size()); }
    int32_t currentPage() const { return page; }
    void update(float dt);
    void draw();
    void clear();

private:
    Row measureRow(int32_t anim) const;
    std::unique_ptr<UI::Text> makeLabel(const std::string& text, int32_t width);
    std::string rowLabel(int32_t anim) const;

    Graphics::Sprite* sprite = nullptr;
    Graphics::SpriteInstance holder;  // keeps the sprite alive while pages change
    std::string name;
    std::vector<std::vector<Row>> pages;
    int32_t page = 0;
    std::vector<std::unique_ptr<Cell>> cells;
    std::vector<std::unique_ptr<UI::Text>> labels;
    std::vector<std::pair<float, float>> labelAt;
};
