#ifndef TEXT_RULES_H
#define TEXT_RULES_H

#include <string>
#include <vector>

namespace velarion {

/** Bytes of a text as the panel holds it. No text of a panel needs more; a longer one is a slip of the
 * editor. */
constexpr std::size_t LONGEST_TEXT = 4096;

/** What is wrong with a text, and which character of it shows it first. */
struct text_fault {
    const char* check;
    std::size_t character;
    std::string text;
};

/** What the panel cannot show, or hold, of a text in UTF-8. */
std::vector<text_fault> broken_parts_of(const std::string& text);

/** What looks like a slip in a text. @param language  as of conventions_of() */
std::vector<text_fault> slips_of(const std::u32string& text, const std::string& language);

/** What looks like a slip when the English text is beside it; neither is empty. */
std::vector<text_fault> slips_against_english(const std::u32string& text, const std::u32string& english,
                                              const std::string& language);

/** A name that a text puts between quotation marks, without blanks around it, and where it begins. */
struct quoted_name {
    std::size_t character;
    std::u32string name;
};

/** The names that a text quotes; what holds nothing but a placeholder is none. */
std::vector<quoted_name> quoted_names_of(const std::u32string& text, const std::string& language);

/** A text as it is quoted elsewhere: on one line, without blanks around it and without the "…" or colon that
 * ends the text of a key or of a field. */
std::u32string as_quoted(const std::u32string& text, const std::string& language);

} // namespace velarion

#endif
