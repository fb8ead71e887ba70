#include "picture_drawings.h"

#include <algorithm>
#include <array>
#include <string>

namespace velarion {

namespace {

constexpr double LEFT = 4;
constexpr double RIGHT = 44;
constexpr double SCALE_MIDDLE = 41.5; ///< of the scale's height

/** A scale that a setting has, from 0 or 1 to the most. */
struct scale {
    const char* setting;
    int most;
    bool is_balanced; ///< the middle is neither more nor less
    const char* glyph_of_none;
};

constexpr std::array<scale, 5> SCALES = {{{"backlight", 7, false, "backlight"},
                                          {"contrast", 9, true, "contrast"},
                                          {"density", 9, true, "density"},
                                          {"sharpness", 7, true, "sharpness"},
                                          {"sound", 7, false, "mute"}}};

/** Bars as far as the step goes. */
void draw_bars(svg_canvas& canvas, int step, int most, const palette& colors) {
    const double gap = 1.6;
    const double width = (RIGHT - LEFT + gap) / most - gap;
    for (int i = 0; i < most; ++i) {
        canvas.rect({LEFT + i * (width + gap), SCALE_MIDDLE - 2.5, width, 5}, 1,
                    {"", i < step ? colors.accent : colors.line});
    }
}

/** A line with its middle, and where the step is on it. */
void draw_slider(svg_canvas& canvas, int step, int most, const palette& colors) {
    const double first = LEFT + 3.5;
    const double last = RIGHT - 3.5;
    const double place = first + (last - first) * (step - 1) / (most - 1);
    const double middle = (first + last) / 2;
    const std::string height = std::to_string(SCALE_MIDDLE);
    canvas.path("M" + std::to_string(first) + ' ' + height + "H" + std::to_string(last),
                {colors.line, "", 2.5});
    canvas.path("M" + std::to_string(middle) + ' ' + std::to_string(SCALE_MIDDLE - 3) + "v6",
                {colors.line, "", 2.5});
    if (place != middle) {
        canvas.path("M" + std::to_string(middle) + ' ' + height + "H" + std::to_string(place),
                    {colors.accent, "", 2.5});
    }
    canvas.circle(place, SCALE_MIDDLE, 4, {"", colors.accent});
}

/** Arcs above a dot, as many as the signal is strong. */
void draw_signal(svg_canvas& canvas, int strength, const palette& colors) {
    const std::array<const char*, 3> arcs = {"M17.75 31a9 9 0 0 1 12.5 0", "M11.5 24a18 18 0 0 1 25 0",
                                             "M5.25 16.75a27 27 0 0 1 37.5 0"};
    canvas.circle(24, 37.5, 3, {"", strength > 0 ? colors.foreground : colors.line});
    for (int i = 0; i < 3; ++i) {
        const bool is_reached = strength >= i + 2;
        canvas.path(arcs[static_cast<std::size_t>(i)],
                    {is_reached ? colors.foreground : colors.line, "", 3.5});
    }
}

} // namespace

void draw_steps(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double) {
    const palette colors = colors_of(name);
    const int step = number_of(name.number, 0);
    const auto found = std::find_if(SCALES.begin(), SCALES.end(),
                                    [&name](const scale& known) { return name.word(1) == known.setting; });
    if (found == SCALES.end()) {
        draw_signal(canvas, step, colors);
        return;
    }
    book.draw(canvas, step == 0 ? found->glyph_of_none : found->setting, 6, -0.5, 36, colors);
    if (found->is_balanced) {
        draw_slider(canvas, std::clamp(step, 1, found->most), found->most, colors);
    } else {
        draw_bars(canvas, step, found->most, colors);
    }
}

} // namespace velarion
