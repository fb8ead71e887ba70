#include "picture_drawings.h"

#include "stroke_font.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace velarion {

namespace {

constexpr double PI = 3.14159265358979;
constexpr double SIZE = GLYPH_SIZE;
constexpr double BADGE_PLACE = 38;
constexpr double BADGE_RADIUS = 7.5;
constexpr char FALLBACK_GLYPH[] = "picture";
constexpr char NUMBERED_TRAY[] = "numbered_tray";

struct mark_sign {
    std::string palette::*plate;
    const char* strokes; ///< about the middle of a disc of radius 8
};

const std::map<picture_mark, mark_sign> SIGNS = {
    {picture_mark::ERROR, {&palette::error, "M0-4.2V0.8M0 4.3V4.4"}},
    {picture_mark::WARNING, {&palette::warn, "M0-4.2V0.8M0 4.3V4.4"}},
    {picture_mark::COMPLETED, {&palette::ok, "M-3.6 0.2l2.6 2.8 4.6-5.6"}},
    {picture_mark::WAITING, {&palette::accent, "M0-4.2V0.4L3 2.4"}},
    {picture_mark::SUSPENDED, {&palette::warn, "M-2.2-3.2V3.2M2.2-3.2V3.2"}},
    {picture_mark::CANCELLED, {&palette::error, "M-2.9-2.9L2.9 2.9M2.9-2.9L-2.9 2.9"}},
    {picture_mark::LOCKED, {&palette::raised, "M-3.4-0.4H3.4V4H-3.4zM-2-0.6V-2.6a2 2 0 0 1 4 0V-0.6"}},
};

/** Eight dots in a circle, the brightest going round. */
void draw_ring(svg_canvas& canvas, double phase, const palette& colors) {
    for (int i = 0; i < 8; ++i) {
        const double angle = i * PI / 4 - PI / 2;
        const int age = (static_cast<int>(std::lround(phase * 8)) - i + 16) % 8;
        const std::string& color = age == 0 ? colors.foreground : age < 3 ? colors.accent : colors.line;
        canvas.circle(BADGE_PLACE + 6.5 * std::cos(angle), BADGE_PLACE + 6.5 * std::sin(angle), 1.7,
                      {"", color});
    }
}

/** A clock whose hand goes round. */
void draw_clock(svg_canvas& canvas, double phase, const palette& colors) {
    const double angle = phase * 2 * PI;
    const std::string middle = "M" + std::to_string(BADGE_PLACE) + ' ' + std::to_string(BADGE_PLACE);
    canvas.circle(BADGE_PLACE, BADGE_PLACE, BADGE_RADIUS, {"", colors.accent});
    canvas.path(middle + "l" + std::to_string(4.6 * std::sin(angle)) + ' ' +
                    std::to_string(-4.6 * std::cos(angle)) + middle + "h2.6",
                {colors.foreground, "", 2.2});
}

/** Three arrow heads below the pictogram, one lit after the other. */
void draw_arrows(svg_canvas& canvas, double phase, bool outward, const palette& colors) {
    const int lit = static_cast<int>(phase * 4 + 0.01) % 4;
    for (int i = 0; i < 3; ++i) {
        const int order = outward ? i : 2 - i;
        const double x = 14 + i * 9;
        const std::string& color = order < lit ? colors.accent : colors.line;
        canvas.path(outward ? "M" + std::to_string(x) + " 38.500l4 3.500-4 3.500"
                            : "M" + std::to_string(x + 4) + " 38.500l-4 3.500 4 3.500",
                    {color, "", 2.5});
    }
}

void draw_motion(svg_canvas& canvas, const picture_name& name, double phase, const palette& colors) {
    switch (name.motion) {
    case picture_motion::OUTWARD:
    case picture_motion::INWARD:
        draw_arrows(canvas, phase, name.motion == picture_motion::OUTWARD, colors);
        break;
    case picture_motion::SCAN: {
        const double y = 4 + 30 * (phase < 0.5 ? phase * 2 : 2 - phase * 2);
        canvas.path("M5 " + std::to_string(y) + "H43", {colors.accent, "", 2.5});
        canvas.path("M5 43H43", {colors.line, "", 2.5});
        break;
    }
    case picture_motion::BLINK:
        if (phase < 0.5) {
            draw_mark(canvas, picture_mark::ERROR, BADGE_PLACE, BADGE_PLACE, BADGE_RADIUS, colors);
        }
        break;
    case picture_motion::CLOCK:
        draw_clock(canvas, phase, colors);
        break;
    case picture_motion::RING:
        draw_ring(canvas, phase, colors);
    }
}

/** A gauge at the right edge: what is left in a tray. */
void draw_level(svg_canvas& canvas, int level, const palette& colors) {
    const std::string& color = level >= 50 ? colors.ok : level > 0 ? colors.warn : colors.error;
    canvas.rect({38.25, 5.25, 5.5, 37.5}, 2.5, {level == 0 ? colors.error : colors.line, "", 2});
    const double height = 33.5 * level / 100;
    if (level > 0) {
        canvas.rect({39.75, 41.25 - height, 2.5, height}, 1, {"", color});
    }
}

/** Where a qualifier points, as an arrow head. */
void draw_position(svg_canvas& canvas, const picture_name& name, const palette& colors) {
    const std::string path = name.left     ? "M41 33l-5 5 5 5"
                             : name.right  ? "M35 33l5 5-5 5"
                             : name.top    ? "M33 41l5-5 5 5"
                             : name.bottom ? "M33 35l5 5 5-5"
                                           : "M33 36l5-5 5 5M33 44l5-5 5 5";
    canvas.path(path, {colors.accent, "", 2.5});
}

bool has_position(const picture_name& name) {
    return name.left || name.right || name.top || name.bottom || name.center;
}

/** What stands at the lower right of the pictogram: one thing only, so that it can be read. */
enum class badge { NONE, MARK, MOTION, LEVEL, CONTEXT, TEXT, POSITION };

/** What an icon is put together from. */
struct icon_plan {
    badge kind;
    std::string glyph;
    std::string context;                 ///< the glyph of a badge
    std::string palette::*context_color; ///< of that badge
    std::string text;                    ///< above the badge, when it is not the badge
};

badge badge_of(const picture_name& name, bool has_context) {
    const bool has_fault_in_context = has_context && name.mark == picture_mark::ERROR;
    const bool has_text = !name.number.empty() || !name.label.empty();
    return name.extension == ".gif"          ? badge::MOTION
           : name.level >= 0                 ? badge::LEVEL
           : has_fault_in_context            ? badge::CONTEXT
           : name.mark != picture_mark::NONE ? badge::MARK
           : has_position(name)              ? badge::POSITION
           : has_context                     ? badge::CONTEXT
           : has_text                        ? badge::TEXT
                                             : badge::NONE;
}

/** The last word is the thing, the first what it belongs to; of a fault the first word is where it is. */
icon_plan plan_of(const picture_name& name, const glyph_book& book) {
    icon_plan plan{badge::NONE, FALLBACK_GLYPH, "", &palette::accent, ""};
    if (!name.glyphs.empty()) {
        plan.glyph = name.glyphs.back();
        plan.context = book.are_alike(name.glyphs.front(), plan.glyph) ? "" : name.glyphs.front();
    }
    plan.kind = badge_of(name, !plan.context.empty());
    if (plan.kind == badge::CONTEXT && name.mark == picture_mark::ERROR) {
        std::swap(plan.glyph, plan.context);
        plan.context_color = &palette::error;
    }
    plan.text = name.number.empty() ? name.label : name.number;
    if (book.are_alike(plan.glyph, "tray") && !name.number.empty()) {
        plan.glyph = NUMBERED_TRAY; // which its number stands on
        plan.text.clear();
    }
    return plan;
}

void draw_text(svg_canvas& canvas, const std::string& text, double bottom, const palette& colors) {
    const double height = text.size() > 2 ? 8 : 10;
    canvas.text(text, 44.5 - stroke_text_width(text, height) / 2, bottom - height / 2, height, colors.accent,
                2.2);
}

/** A small picture has a larger badge, or nothing of it could be told; a word may have a pictogram for
 * badges. */
void draw_context(svg_canvas& canvas, const picture_name& name, const icon_plan& plan, const glyph_book& book,
                  const palette& colors) {
    const double size = name.size == "s" ? 22 : 18;
    const double place = SIZE - 1.5 - size;
    const std::string solid = plan.context + "_badge";
    book.draw(canvas, book.has(solid) ? solid : plan.context, place, place, size,
              one_color_palette(colors, colors.*plan.context_color));
}

void draw_badge(svg_canvas& canvas, const picture_name& name, const icon_plan& plan, const glyph_book& book,
                double phase, const palette& colors) {
    switch (plan.kind) {
    case badge::MARK:
        draw_mark(canvas, name.mark, BADGE_PLACE, BADGE_PLACE, BADGE_RADIUS, colors);
        break;
    case badge::MOTION:
        draw_motion(canvas, name, phase, colors);
        break;
    case badge::LEVEL:
        draw_level(canvas, name.level, colors);
        break;
    case badge::CONTEXT:
        draw_context(canvas, name, plan, book, colors);
        break;
    case badge::TEXT:
        draw_text(canvas, plan.text, 44.5, colors);
        break;
    case badge::POSITION:
        draw_position(canvas, name, colors);
        break;
    case badge::NONE:
        break;
    }
}

area glyph_place(badge kind, const picture_name& name) {
    const picture_motion motion = name.motion;
    const bool is_below = kind == badge::MOTION && motion != picture_motion::RING &&
                          motion != picture_motion::CLOCK && motion != picture_motion::BLINK;
    return kind == badge::NONE                          ? area{0, 0, SIZE, SIZE}
           : kind == badge::LEVEL                       ? area{1, 5, 36, 36}
           : is_below                                   ? area{6, -0.5, 37, 37}
           : kind == badge::CONTEXT && name.size == "s" ? area{-0.5, -0.5, 31, 31}
                                                        : area{0.5, 0.5, 34, 34};
}

/** A staple, a hole or a binding at one place along an edge of the sheet. */
void draw_fastener(svg_canvas& canvas, const std::string& kind, double x, double y, bool upright,
                   const palette& colors) {
    if (kind == "punch") {
        canvas.circle(x, y, 2, {"", colors.accent});
    } else {
        const std::string middle = "M" + std::to_string(x) + ' ' + std::to_string(y);
        canvas.path(middle + (upright ? "m0-3.500v7" : "m-3.500 0h7"), {colors.accent, "", 3});
    }
}

} // namespace

void draw_mark(svg_canvas& canvas, picture_mark mark, double x, double y, double radius,
               const palette& colors) {
    const auto sign = SIGNS.find(mark);
    if (sign == SIGNS.end()) {
        return;
    }
    const std::string& plate = colors.*sign->second.plate;
    canvas.circle(x, y, radius, {"", plate});
    canvas.begin_group(x, y, radius / 8);
    const bool is_bright = mark == picture_mark::WARNING || mark == picture_mark::SUSPENDED;
    const bool is_flat = plate == colors.foreground; // the picture has one colour
    canvas.path(sign->second.strokes, {is_bright || is_flat ? colors.ink : colors.foreground, "", 2.4});
    canvas.end_group();
}

void draw_icon(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase) {
    palette colors = colors_of(name);
    const bool has_plate = name.state == picture_state::SELECTED || name.state == picture_state::PRESSED;
    if (has_plate) {
        const std::string plate = colors.accent;
        canvas.rect({2, 2, 44, 44}, 9, {"", plate});
        colors = one_color_palette(colors, colors.ink);
        colors.surface = colors.ink = plate; // what is cut out of the glyph shows the plate
        canvas.begin_group(4.08, 4.08, 0.83);
    }
    const icon_plan plan = plan_of(name, book);
    const area place = glyph_place(plan.kind, name);
    book.draw(canvas, plan.glyph, place.x, place.y, place.width, colors);
    if (plan.glyph == NUMBERED_TRAY) {
        canvas.text(name.number, place.center_x(), place.y + place.height * 0.655, place.height * 0.23,
                    colors.accent, 2.2);
    }
    draw_badge(canvas, name, plan, book, phase, colors);
    if (plan.kind != badge::TEXT && plan.kind != badge::LEVEL) {
        draw_text(canvas, plan.text, 13, colors);
    }
    if (has_plate) {
        canvas.end_group();
    }
}

void draw_toner(svg_canvas& canvas, const picture_name& name, const glyph_book&, double) {
    const palette colors = colors_of(name);
    const std::string& level = name.words.back();
    const int percent = level == "100" ? 100 : level == "00" ? 0 : level == "10" ? 14 : 60;
    const double height = 29.5 * percent / 100;
    canvas.path("M17.25 11V6.25h13.500V11", {colors.foreground, "", 2.5});
    canvas.rect({10.25, 11.25, 27.5, 31.5}, 5, {colors.foreground, colors.surface, 2.5});
    if (percent > 0) {
        canvas.rect({13, 40 - height * 26 / 29.5, 22, height * 26 / 29.5}, 2, {"", colors.accent});
    }
    const char letter = name.word(2) == "black" ? 'K' : static_cast<char>(name.word(2)[0] - 'a' + 'A');
    canvas.text(std::string(1, letter), 24, 31.5, 10, percent > 40 ? colors.ink : colors.foreground, 2.2);
    if (percent < 20) {
        draw_mark(canvas, percent == 0 ? picture_mark::ERROR : picture_mark::WARNING, 38, 38, 8, colors);
    }
}

void draw_paper(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase) {
    if (name.label.empty()) {
        picture_name tray = name;
        tray.glyphs = {name.glyphs.empty() ? std::string(FALLBACK_GLYPH) : name.glyphs.back()};
        draw_icon(canvas, tray, book, phase);
        return;
    }
    const palette colors = colors_of(name);
    const std::string text = name.label;
    const bool lies = name.words.back() == "landscape";
    const area sheet = lies ? area{5.25, 10.25, 37.5, 27.5} : area{10.25, 5.25, 27.5, 37.5};
    canvas.rect(sheet, 2.5, {colors.foreground, colors.surface, 2.5});
    const double room = sheet.width - 8;
    const std::size_t in_a_line = lies || text.size() <= 3 ? text.size() : (text.size() + 1) / 2;
    const std::string first = text.substr(0, in_a_line);
    const double height = std::min(11.0, 11 * room / stroke_text_width(first, 11));
    const double between = text.size() > in_a_line ? height * 0.8 : 0;
    canvas.text(first, 24, 24 - between, height, colors.accent, 2.3);
    canvas.text(text.substr(in_a_line), 24, 24 + between, height, colors.accent, 2.3);
}

void draw_finishing(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase) {
    const std::string kind = name.glyphs.empty() ? std::string() : name.glyphs.front();
    const bool is_drawn = kind == "staple" || kind == "punch" || kind == "binding";
    if (!is_drawn) {
        draw_icon(canvas, name, book, phase);
        return;
    }
    const palette colors = colors_of(name);
    const area sheet =
        name.top && !name.left && !name.right ? area{5.25, 9.25, 37.5, 29.5} : area{9.25, 5.25, 29.5, 37.5};
    canvas.rect(sheet, 2.5, {colors.foreground, colors.surface, 2.5});
    const bool is_corner = (name.top || name.bottom) && (name.left || name.right);
    const double edge = 5.5;
    if (is_corner) {
        const double x = name.left ? sheet.x + edge + 1 : sheet.x + sheet.width - edge - 1;
        const double y = name.top ? sheet.y + edge + 1 : sheet.y + sheet.height - edge - 1;
        const bool falls = name.word(3) == "slant";
        canvas.path("M" + std::to_string(x) + ' ' + std::to_string(y) +
                        (falls ? "m-2.500 2.500l5-5" : "m-3.500 0h7"),
                    {colors.accent, "", 3});
        return;
    }
    const int count = kind == "binding" ? 6 : std::min(number_of(name.number, 1), 8);
    for (int i = 1; i <= count; ++i) {
        const double part = static_cast<double>(i) / (count + 1);
        const double x = name.left     ? sheet.x + edge
                         : name.right  ? sheet.x + sheet.width - edge
                         : name.center ? sheet.center_x()
                                       : sheet.x + sheet.width * part;
        const double y =
            name.top && !name.left && !name.right ? sheet.y + edge : sheet.y + sheet.height * part;
        draw_fastener(canvas, kind, x, y, !name.top, colors);
    }
}

void draw_illustration(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase) {
    const palette colors = colors_of(name);
    const bool is_tile = name.word(1) == "home";
    canvas.rect({2, 2, 92, 92}, 14, {"", is_tile ? colors.raised : colors.surface});
    const std::string main = name.glyphs.empty()                 ? FALLBACK_GLYPH
                             : is_tile && name.glyphs.size() > 1 ? name.glyphs[1]
                                                                 : name.glyphs.front();
    const std::string second = name.glyphs.size() > 1 ? name.glyphs.back() : std::string();
    palette on_card = colors;
    on_card.surface = is_tile ? colors.surface : colors.raised;
    if (name.mark != picture_mark::NONE) {
        book.draw(canvas, main, 16, 14, 58, on_card);
        draw_mark(canvas, name.mark, 74, 74, 12, colors);
    } else if (second.empty() || second == main) {
        book.draw(canvas, main, 16, 16, 64, on_card);
    } else {
        book.draw(canvas, main, 8, 8, 58, on_card);
        canvas.circle(72, 72, 18, {"", colors.accent});
        palette on_plate = one_color_palette(colors, colors.ink);
        on_plate.surface = colors.accent;
        book.draw(canvas, second, 59, 59, 26, on_plate);
    }
    (void)phase;
}

} // namespace velarion
