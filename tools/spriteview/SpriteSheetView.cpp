#include "SpriteSheetView.h"

#include <algorithm>
#include <cstdio>

#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteAnim.h"
#include "graphics/SpriteManager.h"

namespace {

const int32_t SLOTS[] = {Graphics::DIR_RIGHT, Graphics::DIR_DOWN, Graphics::DIR_LEFT, Graphics::DIR_UP};
const int32_t COLUMNS = 4;
const int32_t LABEL_HEIGHT = 22;   // one line of the game's font
const int32_t HEADER_HEIGHT = 26;
const int32_t GAP = 2;
const int32_t MIN_CELL = 40;       // tiny frames such as glyphs still get a visible cell

}  // namespace

bool SpriteSheetView::init(const std::string& spriteName) {
    name = spriteName;
    sprite = SpriteManager::get(spriteName);
    if (!sprite || sprite->animCount() == 0) return false;
    holder.setSprite(sprite);
    std::vector<Row> rows;
    int32_t rowWidth = 0;
    for (int32_t a = 0; a < sprite->animCount(); ++a) {
        rows.push_back(measureRow(a));
        rowWidth = std::max(rowWidth, COLUMNS * (rows.back().cellWidth + GAP));
    }
    // Rows run down a column, columns across the window, then onto a new page.
    const int32_t columns = std::max(1, (Render::getWidth() - GAP) / (rowWidth + GAP));
    pages.assign(1, {});
    int32_t column = 0, y = HEADER_HEIGHT;
    for (Row& row : rows) {
        if (y + row.height > Render::getHeight() && y > HEADER_HEIGHT) {
            y = HEADER_HEIGHT;
            if (++column == columns) {
                column = 0;
                pages.emplace_back();
            }
        }
        row.left = GAP + column * (rowWidth + GAP);
        row.top = y;
        y += row.height + GAP;
        pages.back().push_back(row);
    }
    showPage(0);
    return true;
}

// The row is as tall and its cells as wide as the largest frame of the
// animation in any slot, measured around the drawing position.
SpriteSheetView::Row SpriteSheetView::measureRow(int32_t anim) const {
    Row row;
    row.anim = anim;
    int32_t left = 0, right = 0, up = 0, down = 0;
    const Graphics::Anim* a = sprite->anim(anim);
    for (int32_t slot : SLOTS) {
        const Graphics::Dir* dir = a ? a->dir(slot) : nullptr;
        if (!dir) continue;
        for (const Graphics::Frame& f : dir->frames) {
            left = std::max(left, f.sx);
            right = std::max(right, f.w - f.sx);
            up = std::max(up, f.sy);
            down = std::max(down, f.h - f.sy);
        }
    }
    row.originX = left;
    row.originY = LABEL_HEIGHT + up;
    row.cellWidth = std::max(MIN_CELL, left + right);
    row.height = LABEL_HEIGHT + up + down;
    return row;
}

std::string SpriteSheetView::rowLabel(int32_t anim) const {
    std::string animName;
    for (const auto& [key, value] : sprite->names)
        if (value == sprite->anim(anim)) animName = key;
    const Graphics::Anim* a = sprite->anim(anim);
    const Graphics::Dir* first = a ? a->dir(Graphics::DIR_DOWN) : nullptr;
    char text[160];
    snprintf(text, sizeof text, "%d %s (%d at %.0f/s)", anim, animName.empty() ? "-" : animName.c_str(),
             first ? first->frameCount() : 0, first ? first->spd : 0.0f);
    return text;
}

std::unique_ptr<UI::Text> SpriteSheetView::makeLabel(const std::string& text, int32_t width) {
    auto label = std::make_unique<UI::Text>(FONT, text, width, LABEL_HEIGHT, -1, -1, -1);
    label->flags = (label->flags & ~0x7Fu) | UI::Text::FLAG_LEFT | UI::Text::FLAG_TOP;
    label->update();
    return label;
}

void SpriteSheetView::showPage(int32_t number) {
    page = std::clamp(number, 0, pageCount() - 1);
    cells.clear();
    labels.clear();
    labelAt.clear();
    char header[200];
    snprintf(header, sizeof header, "%s   page %d/%d   in each row: right, down, left, up", name.c_str(), page + 1,
             pageCount());
    labels.push_back(makeLabel(header, Render::getWidth()));
    labelAt.emplace_back(float(GAP), 2.0f);
    for (const Row& row : pages[page]) {
        labels.push_back(makeLabel(rowLabel(row.anim), COLUMNS * (row.cellWidth + GAP)));
        labelAt.emplace_back(float(row.left), float(row.top));
        for (int32_t c = 0; c < COLUMNS; ++c) {
            auto cell = std::make_unique<Cell>();
            cell->instance.setSprite(sprite);
            cell->instance.setAnim(row.anim);
            cell->instance.setDir(SLOTS[c]);
            cell->x = float(row.left + c * (row.cellWidth + GAP) + row.originX);
            cell->y = float(row.top + row.originY);
            cells.push_back(std::move(cell));
        }
    }
}

void SpriteSheetView::update(float dt) {
    for (auto& cell : cells) cell->instance.update(dt);
}

void SpriteSheetView::draw() {
    // The frame's own rectangle, then the frame, then the two points.
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    for (auto& cell : cells) {
        int32_t w, h, sx, sy;
        cell->instance.getSize(w, h);
        cell->instance.getS(sx, sy);
        Render::setColor(96, 104, 120, 255);
        Render::drawRect(cell->x - sx, cell->y - sy, float(w), float(h));
    }
    Render::setMode(Render::MODE_SCREEN_IMAGES);
    for (auto& cell : cells) Render::drawSprite(&cell->instance, cell->x, cell->y, 0, 0);
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    for (auto& cell : cells) {
        int32_t ax, ay;
        cell->instance.getA(ax, ay);
        Render::setColor(255, 230, 0, 255);
        Render::drawRect(cell->x - 3, cell->y, 7, 1);
        Render::drawRect(cell->x, cell->y - 3, 1, 7);
        Render::setColor(255, 40, 120, 255);
        Render::drawRect(cell->x + ax - 2, cell->y + ay - 2, 5, 5);
    }
    Render::setMode(Render::MODE_SCREEN_IMAGES);
    for (size_t i = 0; i < labels.size(); ++i) labels[i]->draw(labelAt[i].first, labelAt[i].second, 0, 255);
}

void SpriteSheetView::clear() {
    cells.clear();
    labels.clear();
    labelAt.clear();
    pages.clear();
    holder.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    sprite = nullptr;
}
