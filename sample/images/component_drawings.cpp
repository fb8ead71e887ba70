#include "picture_drawings.h"

#include <algorithm>
#include <map>

namespace velarion {

namespace {

struct look {
    std::string fill;
    std::string edge;
};

bool has_word(const picture_name& name, const std::string& word) {
    return std::find(name.words.begin(), name.words.end(), word) != name.words.end();
}

look look_of(const picture_name& name, const std::string& plain) {
    const palette colors = name.is_darker ? darker_palette() : palette();
    if (has_word(name, "error")) {
        return {plain, colors.error};
    }
    switch (name.state) {
    case picture_state::SELECTED:
        return {plain, colors.accent};
    case picture_state::PRESSED:
        return {colors.accent, colors.accent};
    case picture_state::OFF:
        return {colors.background, colors.line};
    case picture_state::PLAIN:
        break;
    }
    return {plain, colors.line};
}

/** A rectangle over the whole canvas; its corners are round through its strokes, which do not stretch. */
void fill_rounded(svg_canvas& canvas, const look& how, double corner) {
    const area inner{corner / 2 + 2, corner / 2 + 2, canvas.width() - corner - 4,
                     canvas.height() - corner - 4};
    canvas.rect(inner, 0, {how.edge, how.edge, corner + 4});
    canvas.rect(inner, 0, {how.fill, how.fill, corner});
}

void fill_plain(svg_canvas& canvas, const std::string& fill) {
    canvas.rect({0, 0, canvas.width(), canvas.height()}, 0, {"", fill});
}

std::string line(double x1, double y1, double x2, double y2) {
    return "M" + std::to_string(x1) + ' ' + std::to_string(y1) + "L" + std::to_string(x2) + ' ' +
           std::to_string(y2);
}

void draw_background(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const std::string what = name.word(3);
    if (what == "dialog" || what == "popup" || what == "help") {
        fill_rounded(canvas, {what == "help" ? colors.surface : colors.raised, colors.line}, 12);
    } else if (what == "statusarea" || what == "header" || what == "footer" || what == "sidebar") {
        fill_plain(canvas, colors.surface);
        const double w = canvas.width();
        const double h = canvas.height();
        canvas.path(what == "footer"    ? line(0, 0, w, 0)
                    : what == "sidebar" ? line(w, 0, w, h)
                                        : line(0, h, w, h),
                    {colors.line, "", 4});
    } else {
        fill_plain(canvas, colors.background);
        if (what != "main") {
            canvas.path(line(0, 0, canvas.width(), 0),
                        {what == "login" ? colors.accent : colors.line, "", 6});
        }
    }
}

void draw_keyboard_background(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const bool is_light = has_word(name, "light");
    const look how = look_of(name, is_light ? colors.raised : colors.surface);
    const bool is_flat = has_word(name, "dark");
    fill_rounded(canvas, {how.fill, is_flat ? colors.background : how.edge}, 10);
}

void draw_list_row(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const bool is_frame = has_word(name, "header") || has_word(name, "footer");
    const bool is_off = name.state == picture_state::OFF;
    fill_plain(canvas, name.state == picture_state::PRESSED ? colors.accent
                       : is_off                             ? colors.background
                       : is_frame                           ? colors.raised
                                                            : colors.surface);
    const double h = canvas.height();
    canvas.path(line(0, h, canvas.width(), h), {colors.line, "", 4});
    if (name.state == picture_state::SELECTED) {
        canvas.path(line(0, 0, 0, h), {colors.accent, "", 12});
    }
}

void draw_tab(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const look how = look_of(name, colors.surface);
    const double w = canvas.width();
    const double h = canvas.height();
    fill_plain(canvas, name.state == picture_state::SELECTED ? colors.raised : how.fill);
    const bool is_upright = has_word(name, "vertical");
    canvas.path(is_upright ? line(0, 0, 0, h) : line(0, 0, w, 0), {how.edge, "", 6});
    if (has_word(name, "first") || has_word(name, "middle")) {
        canvas.path(line(w, 8, w, h - 8), {colors.line, "", 4});
    }
}

void draw_check(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const bool is_off = name.state == picture_state::OFF;
    const bool is_set = has_word(name, "selected");
    const std::string edge = is_off ? colors.dim : is_set ? colors.accent : colors.foreground;
    const std::string fill = is_set ? (is_off ? colors.line : colors.accent) : "";
    const std::string sign = is_off ? colors.dim : colors.ink;
    if (has_word(name, "toggle")) {
        canvas.rect({4.25, 14.25, 39.5, 19.5}, 9.75, {edge, fill, 2.5});
        canvas.circle(is_set ? 34 : 14, 24, 5.5, {"", is_set ? sign : edge});
    } else if (has_word(name, "radio")) {
        canvas.circle(24, 24, 16.75, {edge, "", 2.5});
        if (is_set) {
            canvas.circle(24, 24, 8.5, {"", edge});
        }
    } else {
        canvas.rect({8.25, 8.25, 31.5, 31.5}, 5, {edge, fill, 2.5});
        if (is_set) {
            canvas.path("M16 24.500l6 6.500 11-14", {sign, "", 3.5});
        }
    }
}

/** Bars and knobs of scrollers and sliders, and the arrow buttons of scrollers and spin boxes. */
void draw_control(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const std::string part = name.word(3);
    const look how = look_of(name, colors.raised);
    if (part == "up" || part == "down") {
        fill_rounded(canvas, how, 8);
        const std::string color = name.state == picture_state::OFF       ? colors.dim
                                  : name.state == picture_state::PRESSED ? colors.ink
                                                                         : colors.foreground;
        canvas.path(part == "up" ? "M14 29l10-10 10 10" : "M14 19l10 10 10-10", {color, "", 2.5});
    } else if (part == "knob" && name.word(2) == "slider") {
        const bool is_pressed = name.state == picture_state::PRESSED;
        canvas.circle(24, 24, is_pressed ? 20 : 18,
                      {is_pressed ? colors.foreground : colors.background,
                       name.state == picture_state::OFF ? colors.dim : colors.accent, 4});
    } else if (part == "knob") {
        const std::string fill = name.state == picture_state::OFF       ? colors.line
                                 : name.state == picture_state::PRESSED ? colors.accent
                                                                        : colors.dim;
        fill_rounded(canvas, {fill, fill}, 6);
    } else {
        fill_rounded(canvas, how, 6);
    }
}

void draw_balloon(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const std::string edge = has_word(name, "error") ? colors.error : colors.accent;
    const std::map<std::string, std::string> tails = {{"up", "M64 30L80 8l16 22"},
                                                      {"down", "M64 90l16 22 16-22"},
                                                      {"left", "M24 48L6 60l18 12"},
                                                      {"right", "M136 48l18 12-18 12"}};
    canvas.rect({20, 26, 120, 68}, 10, {edge, colors.raised, 3});
    const auto tail = tails.find(name.word(3));
    if (tail != tails.end()) {
        canvas.path(tail->second, {edge, colors.raised, 3});
    }
}

void draw_progress(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const bool is_base = has_word(name, "base");
    fill_rounded(canvas, is_base ? look{colors.background, colors.line} : look{colors.accent, colors.accent},
                 8);
}

void draw_function_key(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    look how = look_of(name, colors.raised);
    const std::string lamp = has_word(name, "start") ? colors.ok : has_word(name, "stop") ? colors.error : "";
    if (!lamp.empty() && name.state != picture_state::OFF && name.state != picture_state::SELECTED) {
        how.edge = lamp;
    }
    fill_rounded(canvas, how, 14);
    if (!lamp.empty()) {
        const bool is_off = name.state == picture_state::OFF;
        const std::string color = is_off                                 ? colors.dim
                                  : name.state == picture_state::PRESSED ? colors.ink
                                                                         : lamp;
        canvas.path(has_word(name, "start") ? "M42 34l18 14-18 14z" : "M37 37h22v22h-22z", {color, color, 3});
    }
}

} // namespace

void draw_component(svg_canvas& canvas, const picture_name& name, const glyph_book&, double) {
    const palette colors = name.is_darker ? darker_palette() : palette();
    const std::string kind = name.word(2);
    canvas.set_stretchable(kind != "check" && kind != "balloon");
    if (kind == "background" && name.word(3) == "keyboard") {
        draw_keyboard_background(canvas, name, colors);
    } else if (kind == "background") {
        draw_background(canvas, name, colors);
    } else if (kind == "list") {
        draw_list_row(canvas, name, colors);
    } else if (kind == "tab") {
        draw_tab(canvas, name, colors);
    } else if (kind == "check") {
        draw_check(canvas, name, colors);
    } else if (kind == "scroll" || kind == "slider" || kind == "spin") {
        draw_control(canvas, name, colors);
    } else if (kind == "balloon") {
        draw_balloon(canvas, name, colors);
    } else if (kind == "separator") {
        fill_plain(canvas, colors.line);
    } else if (kind == "progress") {
        draw_progress(canvas, name, colors);
    } else if (kind == "key") {
        draw_function_key(canvas, name, colors);
    } else if (kind == "frame") {
        look how = look_of(name, colors.background);
        how.edge = name.state == picture_state::OFF ? colors.surface : how.edge;
        fill_rounded(canvas, how, 10);
    } else {
        fill_rounded(canvas, look_of(name, colors.raised), kind == "tile" ? 14 : 10);
    }
}

} // namespace velarion
