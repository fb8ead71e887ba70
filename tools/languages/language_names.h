#ifndef LANGUAGE_NAMES_H
#define LANGUAGE_NAMES_H

#include <string>

namespace velarion {

/** A language with what people call it. */
struct language_name {
    int id;
    const char* tag;     ///< as in "de" or "zh-CN"
    const char* english; ///< as in "German"
};

/** @return the names of a language; nothing for one that has none */
const language_name* find_language(int id);

/**
 * Finds a language by its number, as in "49", its tag or its English name, in any letter case and with "_"
 * in place of "-".
 *
 * @param id  receives the number, also of a language without a name; unchanged when nothing is found
 */
bool read_language(const std::string& text, int& id);

/** How the device's settings name a panel language. */
struct language_selection {
    int language_id;        ///< 999 for an option language
    int option_language_id; ///< 0 for a standard language
};

/**
 * Finds what selects a language, given by its tag or English name as of read_language(): an option language
 * needs both numbers, or its panel runs from left to right.
 *
 * @param selection  unchanged when nothing is found, also of a bare number, which says itself what is stored
 */
bool read_selection(const std::string& text, language_selection& selection);

/** The tag of a language, or its number when it has none. */
std::string language_tag(int id);

/** "49 (de)"; the number alone when the language has no tag. */
std::string describe_language(int id);

/** What read_language() takes, for people: "a number, or ja, en, ...". */
std::string known_languages();

} // namespace velarion

#endif
