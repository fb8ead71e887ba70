#ifndef LANGUAGE_CONVENTIONS_H
#define LANGUAGE_CONVENTIONS_H

#include <string>

namespace velarion {

/** How a language writes what the rules for texts look at. */
struct language_conventions {
    char32_t opening_quote;
    char32_t closing_quote;
    bool has_full_stops = true;      ///< at the end of sentences
    bool has_words_apart = true;     ///< by blanks; a quotation mark may else touch a letter outside
    bool has_inverted_marks = false; ///< before questions and exclamations
    bool has_blank_before_marks =
        false; ///< one without a line break, before ! ? ; : and inside quotation marks
};

/** @param language  "de", or the number of a pack: "86". Of an unknown one: English habits */
const language_conventions& conventions_of(const std::string& language);

/** What a text ends with, whatever sign its script has for it. */
enum class text_end { NOTHING, FULL_STOP, QUESTION, EXCLAMATION, COLON, ELLIPSIS };

/** The end of a text, without blanks, brackets and quotation marks that close behind it. */
text_end end_of(const std::u32string& text);

/** "a full stop". */
const char* describe(text_end end);

} // namespace velarion

#endif
