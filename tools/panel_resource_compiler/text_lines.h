#ifndef TEXT_LINES_H
#define TEXT_LINES_H

#include "diagnostics.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velarion {

/** No table or translator's file is larger: a hundred times the largest language. */
inline constexpr std::uintmax_t MOST_TEXT_BYTES = 64U << 20U;

/** One line of a text file, without its end. */
struct text_line {
    source_place place;
    std::string text;
};

/**
 * Reads the lines of a UTF-8 text file, whose lines end in LF or CR LF. Empty lines, lines that start with
 * "#" and a byte order mark at the start are left out.
 *
 * @param lines   receives the lines; one that is not valid UTF-8, or holds a CR before its end, is left out
 * @param report  receives every fault
 * @return whether the file could be read to its end
 */
bool read_text_lines(const std::string& path, std::vector<text_line>& lines, diagnostics& report);

/** The place of a byte in a line, whose own place is @p place. */
source_place place_in(source_place place, const std::string& line, std::size_t offset);

/** Whether a text is well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF. */
bool is_valid_utf8(const std::string& text);

} // namespace velarion

#endif
