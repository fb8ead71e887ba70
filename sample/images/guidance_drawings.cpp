#include "picture_drawings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace velarion {

namespace {

/** Which way an arrow beside the thing points. */
enum class move { NONE, OUT, IN, UP, DOWN, TURN, SHAKE };

struct guidance_step {
    const char* glyph;
    move direction;
};

/** What to do, by the first letter of a code. */
const std::map<char, std::vector<guidance_step>> TASKS = {
    {'R',
     {{"door", move::OUT},
      {"lever", move::DOWN},
      {"page", move::OUT},
      {"lever", move::UP},
      {"cover_close", move::IN}}},
    {'T',
     {{"door", move::OUT},
      {"toner", move::OUT},
      {"toner", move::SHAKE},
      {"toner", move::IN},
      {"cover_close", move::IN}}},
    {'P', {{"tray", move::OUT}, {"pages", move::SHAKE}, {"sheets", move::DOWN}, {"tray", move::IN}}},
    {'S',
     {{"door", move::OUT},
      {"stapler", move::OUT},
      {"staple", move::DOWN},
      {"stapler", move::IN},
      {"cover_close", move::IN}}},
    {'H',
     {{"door", move::OUT},
      {"punch", move::OUT},
      {"trash", move::DOWN},
      {"punch", move::IN},
      {"cover_close", move::IN}}},
    {'W',
     {{"door", move::OUT},
      {"waste", move::OUT},
      {"knob", move::TURN},
      {"waste", move::IN},
      {"cover_close", move::IN}}},
    {'D',
     {{"door", move::OUT},
      {"lever", move::DOWN},
      {"drum", move::OUT},
      {"drum", move::IN},
      {"cover_close", move::IN}}},
    {'C', {{"door", move::OUT}, {"clean", move::SHAKE}, {"clean", move::DOWN}, {"cover_close", move::IN}}},
    {'O', {{"adf", move::UP}, {"page", move::OUT}, {"roller", move::TURN}, {"adf", move::DOWN}}},
    {'A', {{"machine", move::NONE}, {"finisher", move::IN}, {"check", move::NONE}}},
};

/** Where the units of the device stand in its drawing, by the second letter of a code. */
const std::map<char, area> UNITS = {
    {'D', {62, 12, 96, 22}},  {'C', {56, 36, 108, 16}},  {'U', {70, 72, 58, 52}},  {'K', {10, 60, 36, 146}},
    {'T', {56, 132, 90, 72}}, {'F', {10, 74, 38, 132}},  {'B', {34, 58, 46, 14}},  {'L', {170, 136, 36, 68}},
    {'X', {56, 54, 62, 18}},  {'V', {146, 124, 18, 80}}, {'I', {10, 48, 38, 24}},  {'G', {48, 86, 10, 100}},
    {'E', {14, 150, 32, 50}}, {'W', {170, 120, 40, 84}}, {'Y', {164, 96, 40, 12}}, {'Z', {146, 70, 18, 52}},
    {'M', {56, 10, 46, 26}},  {'P', {34, 76, 16, 26}},   {'N', {124, 66, 20, 36}}, {'S', {14, 110, 30, 34}},
};

/** A sheet, a tray, a cover: the device from its front. Units that only some codes name are drawn with them.
 */
void draw_device(svg_canvas& canvas, const palette& colors) {
    const paint outline{colors.dim, colors.surface, 2};
    for (const area& part : {area{62, 12, 96, 22}, area{56, 36, 108, 16}, area{56, 54, 108, 76},
                             area{10, 74, 38, 132}, area{170, 136, 36, 68}}) {
        canvas.rect(part, 4, outline);
    }
    for (int tray = 0; tray < 4; ++tray) {
        const double y = 132 + tray * 19;
        canvas.rect({56, y, 108, 17}, 3, outline);
        canvas.path("M100 " + std::to_string(y + 8.5) + "h20", {colors.line, "", 3});
    }
    canvas.rect({120, 58, 38, 12}, 2, {colors.line, colors.background, 2}); // the panel
    canvas.path("M10 96H2M10 130H2", {colors.dim, "", 2.5});                // the finisher's trays
    canvas.path("M164 100l26-9", {colors.dim, "", 2.5});                    // the bypass tray
    canvas.path("M4 210H212", {colors.line, "", 2.5});
}

/** Marks the unit and, in it, the place that the second part of the name gives: a letter and a number. */
void draw_place(svg_canvas& canvas, char unit, const std::string& place, bool is_lit, const palette& colors) {
    const auto entry = UNITS.find(unit);
    const area found = entry == UNITS.end() ? UNITS.at('U') : entry->second;
    canvas.rect(found, 4, {colors.warn, is_lit ? "#5d4a22" : colors.surface, 3});
    const int section = place.empty() ? 0 : place[0] - 'a';
    const int number = place.size() < 2 ? 1 : place[1] - '0';
    const bool is_tall = found.height > found.width;
    const double along = (section * 5 + number) / 11.0;
    const double x = is_tall ? found.center_x() : found.x + found.width * along;
    const double y = is_tall ? found.y + found.height * along : found.center_y();
    canvas.circle(x, y, 8, {colors.background, colors.warn, 2});
    canvas.text(std::to_string(number), x, y, 7.5, colors.ink, 2);
}

/** An arrow to the side at which the user works. */
void draw_side(svg_canvas& canvas, char side, const palette& colors) {
    const std::map<char, const char*> arrows = {{'R', "M208 64h-26m8-7l-8 7 8 7"},
                                                {'L', "M8 44h28m-8-7l8 7-8 7"},
                                                {'F', "M110 236v-20m-6 7l6-7 6 7"},
                                                {'T', "M178 6v20m-6-7l6 7 6-7"}};
    const auto arrow = arrows.find(side);
    if (arrow != arrows.end()) {
        canvas.path(arrow->second, {colors.accent, "", 3.5});
    }
}

void draw_move(svg_canvas& canvas, move direction, double shift, const palette& colors) {
    const std::map<move, const char*> arrows = {
        {move::OUT, "M232 118h60m-12-11l12 11-12 11"},
        {move::IN, "M292 118h-60m12-11l-12 11 12 11"},
        {move::UP, "M262 130v-26m-11 10l11-10 11 10"},
        {move::DOWN, "M262 104v26m-11-10l11 10 11-10"},
        {move::TURN, "M242 124c2-24 40-24 42 0m-11-5l11 6 6-11"},
        {move::SHAKE, "M234 118h56m-10-9l10 9-10 9m-36-18l-10 9 10 9"},
    };
    const auto arrow = arrows.find(direction);
    if (arrow == arrows.end()) {
        return;
    }
    const double sign = direction == move::IN || direction == move::UP ? -1 : 1;
    const bool is_vertical = direction == move::UP || direction == move::DOWN;
    canvas.begin_group(is_vertical ? 0 : sign * shift, is_vertical ? sign * shift / 2 : 0);
    canvas.path(arrow->second, {colors.accent, "", 4.5});
    canvas.end_group();
}

void draw_step_dots(svg_canvas& canvas, int step, int count, const palette& colors) {
    for (int i = 1; i <= count; ++i) {
        const double x = 262 + (i - (count + 1) / 2.0) * 16;
        canvas.circle(x, 156, i == step ? 5.5 : 4, {"", i == step ? colors.accent : colors.line});
    }
}

void draw_task(svg_canvas& canvas, const picture_name& name, int step, double shift, const glyph_book& book,
               const palette& colors) {
    const auto task = TASKS.find(name.words[0][0]);
    const std::vector<guidance_step>& steps = (task == TASKS.end() ? TASKS.begin() : task)->second;
    const guidance_step& now = steps[static_cast<std::size_t>(step - 1) % steps.size()];
    canvas.rect({214, 8, 98, 162}, 10, {"", colors.surface});
    palette on_card = colors;
    on_card.surface = colors.raised;
    book.draw(canvas, now.glyph, 224, 14, 78, on_card);
    draw_move(canvas, now.direction, shift, colors);
    draw_step_dots(canvas, step, static_cast<int>(steps.size()), colors);
}

} // namespace

int guidance_step_count(const std::string& code) {
    const auto task = TASKS.find(code.empty() ? ' ' : code[0]);
    return task == TASKS.end() ? 1 : static_cast<int>(task->second.size());
}

void draw_guidance(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase) {
    const palette colors = colors_of(name);
    const std::string code = name.word(0);
    const std::string place = name.word(1);
    const int count = guidance_step_count(code);
    // A movie runs through all steps, each with a still and a moved arrow.
    const bool is_movie = name.words.size() < 3;
    const double run = phase * count + 0.001;
    const int step = is_movie ? static_cast<int>(run) + 1 : std::max(1, number_of(name.word(2), 1));
    const bool is_second_half = is_movie && run - std::floor(run) >= 0.49;
    canvas.rect({0, 0, canvas.width(), canvas.height()}, 0, {"", colors.background});
    draw_device(canvas, colors);
    draw_place(canvas, code[1], place, !is_second_half, colors);
    draw_side(canvas, code[2], colors);
    draw_task(canvas, name, step, is_second_half ? 8 : 0, book, colors);
    canvas.circle(238, 205, 19, {"", colors.accent});
    canvas.text(std::to_string(step), 238, 205, 17, colors.ink, 3.5);
    canvas.text(code, 288, 197, 12, colors.foreground, 2.5);
    std::string shown = place;
    std::transform(shown.begin(), shown.end(), shown.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    canvas.text(shown, 288, 217, 10, colors.dim, 2.2);
}

} // namespace velarion
