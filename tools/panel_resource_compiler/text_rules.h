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

/** Whether a text is the English one and has a word; "OK", "A4", "USB" and "%1 min" are the same everywhere.
 */
bool is_untranslated(const std::u32string& text, const std::u32string& english);

/** Whether a text has a word that begins with a small letter, other than an abbreviation, as sentences have.
 */
bool has_small_word(const std::u32string& text);

/** A name that a text puts between quotation marks, without blanks around it, and where it begins. */
struct quoted_name {
    std::size_t character;
    std::u32string name;
};

/** The names that a text quotes; what holds a placeholder, or no letter, is none. */
std::vector<quoted_name> quoted_names_of(const std::u32string& text, const std::string& language);

/**
 * A text as names are compared: on one line, in small letters where the script has some, without blanks
 * around it and without the punctuation that ends it.
 */
std::u32string as_quoted(const std::u32string& text, const std::string& language);

/** "Paper tray" and "tray 3" of "Paper tray: tray 3"; nothing of a text without a colon. */
std::vector<std::u32string> label_and_value_of(const std::u32string& text);

} // namespace velarion

#endif
