#ifndef PICTURE_NAME_H
#define PICTURE_NAME_H

#include "glyph_book.h"

#include <string>
#include <vector>

namespace velarion {

enum class picture_state { PLAIN, SELECTED, PRESSED, OFF };
enum class picture_mark { NONE, ERROR, WARNING, COMPLETED, WAITING, SUSPENDED, CANCELLED, LOCKED };
enum class picture_motion { RING, OUTWARD, INWARD, SCAN, BLINK, CLOCK };

/** What the words of a picture's file name say. */
struct picture_name {
    std::string file;
    std::string stem;                ///< the file without "d_" and the extension
    std::string extension;           ///< ".png", ".svg" or ".gif"
    bool is_darker = false;          ///< begins with "d_"
    std::vector<std::string> words;  ///< the stem between its "_"
    std::vector<std::string> glyphs; ///< words, one or several together, that have a pictogram
    std::string label;               ///< the first word with a capital: is written as it stands
    std::string number;              ///< the first word of digits
    std::string color;               ///< "#rrggbb" where a word names a colour, or empty
    std::string size;                ///< "s", "l" or empty
    bool left = false, right = false, top = false, bottom = false, center = false;
    int level = -1; ///< 0 to 100 where a word tells how much there is
    picture_state state = picture_state::PLAIN;
    picture_mark mark = picture_mark::NONE;
    picture_motion motion = picture_motion::RING;

    /** A word by its place; empty behind the last. */
    std::string word(std::size_t i) const { return i < words.size() ? words[i] : std::string(); }
};

/** Reads a file name; words that mean nothing are left out of everything but words. */
picture_name read_picture_name(const std::string& file, const glyph_book& book);

/** The number that a word begins with, 0 to 9999; anything else gives the number otherwise. */
int number_of(const std::string& word, int otherwise);

/** The colours in which a picture is drawn. */
palette colors_of(const picture_name& name);

/** A title for people: the words, the first with a capital. */
std::string title_of(const picture_name& name);

} // namespace velarion

#endif
