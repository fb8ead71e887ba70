#ifndef GLYPH_BOOK_H
#define GLYPH_BOOK_H

#include "diagnostics.h"
#include "palette.h"
#include "svg_canvas.h"

#include <map>
#include <string>
#include <vector>

namespace velarion {

/** The side of the square on which glyphs are drawn. */
constexpr double GLYPH_SIZE = 48;

/**
 * The pictograms by the words of file names, read from a table with the columns "words" (several names of
 * one pictogram, separated by commas) and "drawing" (shapes separated by semicolons).
 *
 * A shape is a role and a form. Roles: l, a, o, w, e, d stroke in foreground, accent, ok, warn, error,
 * ink; f, k, G, W, E, D fill with the same; s fills with the surface and strokes in foreground. Forms: path
 * data; "o x y radius"; "r x y width height corner". Role t writes: "t x y height TEXT".
 */
class glyph_book {
public:
    /** @param report  receives the faults of the table; glyphs with a fault are left out */
    glyph_book(const std::string& path, diagnostics& report);

    bool has(const std::string& word) const { return glyphs_.count(word) != 0; }

    /** Whether two words have one and the same pictogram. */
    bool are_alike(const std::string& word, const std::string& other) const {
        return has(word) && has(other) && glyphs_.at(word) == glyphs_.at(other);
    }

    /** Draws a glyph onto a square of the canvas; a word without a glyph draws nothing. */
    void draw(svg_canvas& canvas, const std::string& word, double x, double y, double size,
              const palette& colors) const;

private:
    struct shape {
        char role;
        char form; ///< 'p', 'o', 'r' or 't'
        std::vector<double> numbers;
        std::string text; ///< path data, or what is written
    };

    static bool read_shape(const std::string& source, shape& read);
    static paint paint_of(char role, const palette& colors, double stroke_width);
    void take_record(const source_place& place, const std::string& words, const std::string& drawing,
                     diagnostics& report);

    std::vector<std::vector<shape>> drawings_;
    std::map<std::string, std::size_t> glyphs_; ///< indexes of drawings_
};

} // namespace velarion

#endif
