#ifndef GIVEN_TEXTS_H
#define GIVEN_TEXTS_H

#include "diagnostics.h"

#include <string>
#include <vector>

namespace velarion {

/** A text as it was given, for a language. */
struct given_text {
    source_place place; ///< of a file's line; the file is "--text" for an option
    std::string language;
    std::string text; ///< without escapes
};

/** Reads "LANGUAGE=TEXT", where a text has the escapes of a table; a real line break is one as well. */
void read_text_option(const std::string& option, std::vector<given_text>& texts, diagnostics& report);

/**
 * Reads a file whose lines hold a language, a tab and a text with the escapes of a table; empty lines, those
 * that start with "#" and a first line "language<TAB>text" are left out.
 *
 * @param path  "-" for standard input
 */
void read_text_file(const std::string& path, std::vector<given_text>& texts, diagnostics& report);

} // namespace velarion

#endif
