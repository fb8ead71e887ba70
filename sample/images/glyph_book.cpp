#include "glyph_book.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>

namespace velarion {

namespace {

constexpr char ROLES[] = "laowedfkGWEDst";
constexpr double STROKE = 2.5;
constexpr double TEXT_WEIGHT = 0.24; // of its height: in thicker strokes letters close up

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream source(text);
    for (std::string part; std::getline(source, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

} // namespace

glyph_book::glyph_book(const std::string& path, diagnostics& report) {
    for (const tsv_record& record : read_tsv_table(path, {"words", "drawing"}, report)) {
        take_record(record.place, record.fields[0], record.fields[1], report);
    }
}

void glyph_book::take_record(const source_place& place, const std::string& words, const std::string& drawing,
                             diagnostics& report) {
    std::vector<shape> shapes;
    for (const std::string& source : split(drawing, ';')) {
        shape read{};
        if (!read_shape(source, read)) {
            report.error(CHECK_PICTURE, place, "the shape \"" + source + "\" is not understood");
            return;
        }
        shapes.push_back(std::move(read));
    }
    for (const std::string& word : split(words, ',')) {
        if (!glyphs_.emplace(word, drawings_.size()).second) {
            report.error(CHECK_PICTURE, place, "the word \"" + word + "\" has a pictogram already");
        }
    }
    drawings_.push_back(std::move(shapes));
}

bool glyph_book::read_shape(const std::string& source, shape& read) {
    if (source.size() < 4 || !std::strchr(ROLES, source[0]) || source[1] != ' ') {
        return false;
    }
    read.role = source[0];
    const std::string form = source.substr(2);
    if (read.role != 't' && form[0] == 'M') {
        read.form = 'p';
        read.text = form;
        return true;
    }
    read.form = read.role == 't' ? 't' : form[0];
    const std::size_t wanted = read.form == 'r' ? 5 : 3;
    std::istringstream source_of_numbers(read.form == 't' ? form : form.substr(1));
    for (double number = 0; read.numbers.size() < wanted && source_of_numbers >> number;) {
        read.numbers.push_back(number);
    }
    source_of_numbers >> read.text;
    return std::strchr("ort", read.form) && read.numbers.size() == wanted;
}

paint glyph_book::paint_of(char role, const palette& colors, double stroke_width) {
    switch (role) {
    case 'a':
        return {colors.accent, "", stroke_width};
    case 'o':
        return {colors.ok, "", stroke_width};
    case 'w':
        return {colors.warn, "", stroke_width};
    case 'e':
        return {colors.error, "", stroke_width};
    case 'd':
        return {colors.ink, "", stroke_width};
    case 'f':
        return {"", colors.foreground};
    case 'k':
        return {"", colors.accent};
    case 'G':
        return {"", colors.ok};
    case 'W':
        return {"", colors.warn};
    case 'E':
        return {"", colors.error};
    case 'D':
        return {"", colors.ink};
    case 's':
        return {colors.foreground, colors.surface, stroke_width};
    default:
        return {colors.foreground, "", stroke_width};
    }
}

void glyph_book::draw(svg_canvas& canvas, const std::string& word, double x, double y, double size,
                      const palette& colors) const {
    const auto glyph = glyphs_.find(word);
    if (glyph == glyphs_.end()) {
        return;
    }
    const double scale = size / GLYPH_SIZE;
    // Small glyphs keep strokes that can be seen, large ones do not become clumsy.
    const double stroke = STROKE / std::sqrt(scale);
    canvas.begin_group(x, y, scale);
    for (const shape& part : drawings_[glyph->second]) {
        const paint how = paint_of(part.role, colors, stroke);
        switch (part.form) {
        case 'p':
            canvas.path(part.text, how);
            break;
        case 'o':
            canvas.circle(part.numbers[0], part.numbers[1], part.numbers[2], how);
            break;
        case 'r':
            canvas.rect({part.numbers[0], part.numbers[1], part.numbers[2], part.numbers[3]}, part.numbers[4],
                        how);
            break;
        default:
            canvas.text(part.text, part.numbers[0], part.numbers[1], part.numbers[2], how.stroke,
                        std::min(stroke, part.numbers[2] * TEXT_WEIGHT));
        }
    }
    canvas.end_group();
}

} // namespace velarion
