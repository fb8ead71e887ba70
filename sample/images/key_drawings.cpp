#include "picture_drawings.h"

#include <algorithm>
#include <map>

namespace velarion {

namespace {

/** A key cap as the drawn soft keys have it; the colour of what stands on it. */
std::string draw_cap(svg_canvas& canvas, const area& place, picture_state state, const palette& colors) {
    switch (state) {
    case picture_state::OFF:
        canvas.rect({place.x + 1.25, place.y + 1.25, place.width - 2.5, place.height - 2.5}, 6,
                    {colors.line, "", 2.5});
        return colors.dim;
    case picture_state::SELECTED:
    case picture_state::PRESSED:
        canvas.rect({place.x, place.y + 2, place.width, place.height - 2}, 7, {"", colors.accent});
        return colors.ink;
    case picture_state::PLAIN:
        break;
    }
    canvas.rect({place.x, place.y + 2, place.width, place.height - 2}, 7, {"", "#151d26"});
    canvas.rect({place.x, place.y, place.width, place.height - 3}, 7, {"", colors.raised});
    return colors.foreground;
}

std::string key_glyph(const picture_name& name) {
    return !name.glyphs.empty() ? name.glyphs.back()
           : name.left          ? "back"
           : name.right         ? "next"
           : name.top           ? "arrow_up"
           : name.bottom        ? "arrow_down"
                                : std::string();
}

void draw_soft_key(svg_canvas& canvas, const picture_name& name, const glyph_book& book,
                   const palette& colors) {
    const std::string color = draw_cap(canvas, {4, 4, 40, 40}, name.state, colors);
    palette on_cap = one_color_palette(colors, color);
    on_cap.surface = "none";
    if (name.state == picture_state::PLAIN) {
        on_cap.accent = colors.accent;
    }
    const bool is_down = color == colors.ink;
    book.draw(canvas, key_glyph(name), 8, is_down ? 8.5 : 6.5, 32, on_cap);
    if (key_glyph(name).empty()) {
        canvas.text(name.number.empty() ? name.label : name.number, 24, 22.5, 15, color, 2.8);
    }
}

/** A letter above its pressed key. */
void draw_popup(svg_canvas& canvas, const std::string& letter, const palette& colors) {
    canvas.path("M6 10a6 6 0 0 1 6-6h40a6 6 0 0 1 6 6v34c0 6-8 8-8 14v16a4 4 0 0 1-4 4h-28a4 4 0 0 "
                "1-4-4v-16c0-6-8-8-8-14z",
                {"", colors.raised});
    canvas.text(letter, 32, 26, 24, colors.foreground, 4);
    if (letter == "0") { // or it could be taken for the letter
        canvas.path("M28.5 31.5L35.5 20.5", {colors.foreground, "", 3});
    }
}

const std::map<std::string, const char*> FIRST_KEYS = {
    {"qwerty", "QWERTY"}, {"azerty", "AZERTY"}, {"qwertz", "QWERTZ"}, {"tenkey", "123"},
    {"email", "@.COM"},   {"web", "WWW."},      {"symbols", "#+%"},   {"pinyin", "PINYIN"},
};

void draw_layout(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const std::string layout = name.word(3);
    const std::string edge = name.state == picture_state::SELECTED ? colors.accent : colors.line;
    canvas.rect({2, 2, 156, 76}, 8, {edge, colors.surface, 3});
    const bool is_small = layout == "tenkey";
    const int columns = is_small ? 3 : 10;
    const double w = 140.0 / columns;
    for (int row = 0; row < 3; ++row) {
        const int count = is_small || row == 0 ? columns : columns - row;
        const double left = 10 + (columns - count) * w / 2;
        for (int column = 0; column < count; ++column) {
            canvas.rect({left + column * w + 1, 28.0 + row * 15, w - 2, 12}, 2, {"", colors.raised});
        }
    }
    const auto keys = FIRST_KEYS.find(layout);
    std::string text = keys != FIRST_KEYS.end() ? keys->second : layout;
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    canvas.text(text + (name.number.empty() ? "" : " " + name.number), 80, 16, 11, colors.foreground, 2.2);
}

} // namespace

void draw_key(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double) {
    const palette colors = name.is_darker ? darker_palette() : palette();
    if (name.word(1) == "keyboard") {
        draw_layout(canvas, name, colors);
    } else if (name.word(2) == "popup") {
        draw_popup(canvas, name.word(3), colors);
    } else {
        draw_soft_key(canvas, name, book, colors);
    }
}

} // namespace velarion
