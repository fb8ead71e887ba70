#include "picture_drawings.h"

#include <algorithm>
#include <array>
#include <string>

namespace velarion {

namespace {

std::string digits(int number) {
    return std::to_string(number);
}

/** Lines of text on a sheet. */
void draw_text_lines(svg_canvas& canvas, const area& place, int lines, const std::string& color) {
    for (int i = 0; i < lines; ++i) {
        const double y = place.y + place.height * (i + 1) / (lines + 1);
        const double end = place.x + place.width * (i + 1 == lines ? 0.6 : 1.0);
        canvas.path("M" + std::to_string(place.x) + ' ' + std::to_string(y) + "H" + std::to_string(end),
                    {color, "", 2});
    }
}

/** One of the contents that tell pages apart: text, a picture with text, a table, a letter. */
void draw_content(svg_canvas& canvas, const area& page, int variant, const palette& colors) {
    const area inner{page.x + 6, page.y + 6, page.width - 12, page.height - 12};
    switch (variant % 4) {
    case 0:
        draw_text_lines(canvas, inner, 5, colors.accent);
        break;
    case 1:
        canvas.rect({inner.x, inner.y, inner.width, inner.height * 0.45}, 2, {"", colors.accent});
        draw_text_lines(canvas, {inner.x, inner.center_y(), inner.width, inner.height / 2}, 3, colors.line);
        break;
    case 2:
        canvas.rect(inner, 1, {colors.accent, "", 2});
        canvas.path("M" + std::to_string(inner.center_x()) + ' ' + std::to_string(inner.y) + "v" +
                        std::to_string(inner.height) + "M" + std::to_string(inner.x) + ' ' +
                        std::to_string(inner.center_y()) + "h" + std::to_string(inner.width),
                    {colors.accent, "", 2});
        break;
    default:
        canvas.text("R", inner.center_x(), inner.center_y(), inner.height * 0.6, colors.accent, 3);
    }
}

void draw_sheet(svg_canvas& canvas, const area& page, const palette& colors) {
    canvas.rect(page, 2.5, {colors.foreground, colors.surface, 2.5});
}

/** The edge of a page that the second letters of preview names mean. */
enum class edge { LEFT, TOP, RIGHT };

void draw_edge(svg_canvas& canvas, const area& page, edge where, const std::string& kind,
               const palette& colors) {
    const int marks = kind == "pu" ? 4 : 2;
    for (int i = 0; i < marks; ++i) {
        const double part = (i + 1.0) / (marks + 1);
        const double x = where == edge::TOP    ? page.x + page.width * part
                         : where == edge::LEFT ? page.x + 4.5
                                               : page.x + page.width - 4.5;
        const double y = where == edge::TOP ? page.y + 4.5 : page.y + page.height * part;
        if (kind == "pu") {
            canvas.circle(x, y, 2.2, {"", colors.warn});
        } else {
            const double dx = where == edge::TOP ? 3.5 : 0;
            canvas.path("M" + std::to_string(x - dx) + ' ' + std::to_string(y - (3.5 - dx)) + "L" +
                            std::to_string(x + dx) + ' ' + std::to_string(y + (3.5 - dx)),
                        {colors.warn, "", 3});
        }
    }
    if (kind == "ma") {
        const area bar = where == edge::TOP
                             ? area{page.x + 2, page.y + 2, page.width - 4, 9}
                             : area{where == edge::LEFT ? page.x + 2 : page.x + page.width - 11, page.y + 2,
                                    9, page.height - 4};
        canvas.rect(bar, 1, {"", colors.warn});
    }
}

void draw_two_sides(svg_canvas& canvas, edge where, bool lies, int variant, const palette& colors) {
    const double w = lies ? 48 : 36;
    const double h = lies ? 36 : 48;
    const area back = where == edge::TOP    ? area{48 - w / 2, 6, w, h}
                      : where == edge::LEFT ? area{88 - w, 10, w, h}
                                            : area{8, 10, w, h};
    const area front = where == edge::TOP ? area{48 - w / 2, 78 - h, w, h} : area{48 - w / 2, 30, w, h};
    draw_sheet(canvas, back, colors);
    draw_sheet(canvas, front, colors);
    draw_content(canvas, front, variant, colors);
    const std::array<const char*, 3> turns = {"M14 52c-8-10-4-22 8-26m-7-3l8 2-3 8",
                                              "M80 30c8 8 8 20 0 28m1-8l-2 9 8-1",
                                              "M82 52c8-10 4-22-8-26m7-3l-8 2 3 8"};
    canvas.path(turns[static_cast<std::size_t>(where)], {colors.warn, "", 2.5});
}

/** Lines between the cells of a sheet; where they are set off, they are drawn as the sheet's edge is. */
void draw_dividers(svg_canvas& canvas, const area& page, int columns, int rows, bool are_set_off,
                   const palette& colors) {
    const paint how{are_set_off ? colors.foreground : colors.line, "", are_set_off ? 2.5 : 1.5};
    for (int i = 1; i < columns; ++i) {
        const std::string x = std::to_string(page.x + page.width * i / columns);
        canvas.path("M" + x + ' ' + std::to_string(page.y + 3) + "v" + std::to_string(page.height - 6), how);
    }
    for (int i = 1; i < rows; ++i) {
        const std::string y = std::to_string(page.y + page.height * i / rows);
        canvas.path("M" + std::to_string(page.x + 3) + ' ' + y + "h" + std::to_string(page.width - 6), how);
    }
}

void draw_combined(svg_canvas& canvas, edge where, int number, const palette& colors) {
    const std::array<std::array<int, 2>, 6> grids = {{{2, 1}, {2, 2}, {4, 2}, {3, 3}, {1, 2}, {4, 4}}};
    const auto& grid = grids[static_cast<std::size_t>(number - 1) / 2 % grids.size()];
    const bool lies = grid[0] > grid[1];
    const area page = lies ? area{8, 14, 80, 58} : area{20, 6, 56, 72};
    draw_sheet(canvas, page, colors);
    // Two pages have one order only: the second of their numbers sets them off from each other.
    const bool is_only_order = grid[0] == 1 || grid[1] == 1;
    draw_dividers(canvas, page, grid[0], grid[1], is_only_order && number % 2 == 0, colors);
    const double w = page.width / grid[0];
    const double h = page.height / grid[1];
    for (int cell = 0; cell < grid[0] * grid[1]; ++cell) {
        // The second of each pair of numbers goes down the columns first.
        const bool by_columns = number % 2 == 0;
        const int column = by_columns ? cell / grid[1] : cell % grid[0];
        const int row = by_columns ? cell % grid[1] : cell / grid[0];
        const int place = where == edge::RIGHT ? grid[0] - 1 - column : column;
        const double height = std::min(w, h) * 0.4;
        canvas.text(digits(cell + 1), page.x + w * (place + 0.5), page.y + h * (row + 0.5), height,
                    colors.accent, height > 8 ? 2.5 : 1.6);
    }
}

void draw_open_book(svg_canvas& canvas, edge where, int number, const palette& colors) {
    const area left{10, 16, 38, 54};
    const area right{48, 16, 38, 54};
    draw_sheet(canvas, left, colors);
    draw_sheet(canvas, right, colors);
    const bool starts_left = where == edge::LEFT;
    draw_content(canvas, starts_left ? right : left, number, colors);
    canvas.text(digits(number * 2), (starts_left ? left : right).center_x(), left.center_y(), 16, colors.line,
                3);
    canvas.path("M48 22v42", {colors.warn, "", 2.5});
}

} // namespace

void draw_preview(svg_canvas& canvas, const picture_name& name, const glyph_book&, double) {
    const palette colors = colors_of(name);
    const std::string kind = name.word(0);
    const int number = std::max(1, number_of(name.number, 1));
    const edge where = name.word(1) == "t" ? edge::TOP : name.word(1) == "r" ? edge::RIGHT : edge::LEFT;
    const bool lies = number % 2 == 0;
    if (kind == "du") {
        draw_two_sides(canvas, where, lies, (number - 1) / 2, colors);
    } else if (kind == "cb") {
        draw_combined(canvas, where, number, colors);
    } else if (kind == "bk") {
        draw_open_book(canvas, where, number, colors);
    } else {
        const area page = lies ? area{12, 16, 72, 52} : area{22, 6, 52, 72};
        draw_sheet(canvas, page, colors);
        draw_content(canvas, {page.x + 7, page.y + 7, page.width - 14, page.height - 14}, (number - 1) / 2,
                     colors);
        draw_edge(canvas, page, where, kind, colors);
    }
    canvas.text(digits(number), 48, 87, 8, colors.dim, 2);
}

namespace {

const std::array<const char*, 21> CHAPTER_GLYPHS = {
    "home",     "copy",    "staple",  "mail",  "shared_folder", "send",  "receive",
    "printer",  "server",  "address", "glass", "tray",          "size",  "toner",
    "paperjam", "stapler", "job",     "login", "energy",        "clean", "keyboard"};

constexpr area SCREEN{16, 14, 222, 150};

/** The part of the screen that a figure is about, and what surrounds it: tiles, a list, a dialogue, keys. */
area draw_screen_parts(svg_canvas& canvas, int figure, const std::string& glyph, const glyph_book& book,
                       const palette& colors) {
    const int layout = figure % 4;
    const int columns = layout == 0 ? 1 : layout == 1 ? 4 : layout == 2 ? 2 : 7;
    const int rows = layout == 0 ? 4 : layout == 1 ? 2 : layout == 2 ? 2 : 3;
    const area inner{SCREEN.x + 10, SCREEN.y + 32, SCREEN.width - 20, SCREEN.height - 42};
    const double w = inner.width / columns;
    const double h = inner.height / rows;
    const int marked = (figure * 5 + 1) % (columns * rows);
    area found = inner;
    for (int i = 0; i < columns * rows; ++i) {
        const int row = i / columns;
        const area part{inner.x + w * (i % columns) + 3, inner.y + h * row + 3, w - 6, h - 6};
        canvas.rect(part, 4,
                    {i == marked ? colors.accent : "", i == marked ? colors.surface : colors.raised, 3});
        const double size = std::min(part.width, part.height) - 6;
        if (i == marked) {
            found = part;
        } else if (layout == 0) {
            draw_text_lines(canvas, {part.x + 10, part.y, part.width * 0.5, part.height}, 1, colors.dim);
        }
        if (i == marked && size >= 12) {
            book.draw(canvas, glyph, layout == 0 ? part.x + 4 : part.center_x() - size / 2,
                      part.center_y() - size / 2, size, colors);
        }
    }
    return found;
}

} // namespace

void draw_help(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double) {
    const palette colors = colors_of(name);
    const int chapter = number_of(name.word(2), 1);
    const int figure = number_of(name.word(3), 1);
    const std::string glyph = CHAPTER_GLYPHS[static_cast<std::size_t>(chapter + 20) % CHAPTER_GLYPHS.size()];
    canvas.rect({0, 0, canvas.width(), canvas.height()}, 0, {"", colors.background});
    canvas.rect(SCREEN, 8, {colors.foreground, colors.surface, 3});
    book.draw(canvas, glyph, SCREEN.x + 8, SCREEN.y + 5, 22, one_color_palette(colors, colors.dim));
    const area target = draw_screen_parts(canvas, figure, glyph, book, colors);
    palette hand = one_color_palette(colors, colors.ink);
    hand.surface = colors.warn;
    book.draw(canvas, "finger", target.center_x() - 8, target.center_y() - 2, 40, hand);
    book.draw(canvas, glyph, 252, 16, 56, colors);
    canvas.circle(280, 118, 22, {"", colors.accent});
    canvas.text(digits(figure), 280, 118, 20, colors.ink, 4);
    canvas.text(digits(chapter) + "-" + digits(figure), 280, 162, 11, colors.dim, 2.2);
}

} // namespace velarion
