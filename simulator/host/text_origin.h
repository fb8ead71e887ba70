#ifndef TEXT_ORIGIN_H
#define TEXT_ORIGIN_H

#include "filled_rows.h"
#include "message_text.h"

#include <QString>

namespace velarion {

/** What kind of place a text comes from. */
enum class text_source {
    LITERAL,           ///< no message: what a person or a machine named
    NO_MESSAGE,        ///< no message has the id; no file has the name
    DATA_FILE,         ///< the identifier names a message data file
    STANDARD_LANGUAGE, ///< a table of the library
    OPTION_LANGUAGE,   ///< a pack
    NAME               ///< there is no text: the message's name stands for it
};

/** Which selection named the language. */
enum class text_selection {
    NONE,
    PREFERRED,
    STANDARD,      ///< the machine's own, which is active
    STANDARD_STEP, ///< the machine's own, because the preferred one is not known
    ENGLISH_STEP   ///< neither is known
};

/** Where a text comes from. */
struct text_origin {
    text_source source = text_source::LITERAL;
    text_selection selection = text_selection::NONE;
    int message_id = 0;
    QString name; ///< of the message
    int row = -1;
    int language_id = 0;    ///< whose table or pack was asked
    int wanted_id = 0;      ///< the language in force
    bool is_filled = false; ///< English, put into the pack when it was built
    bool is_english() const;
    /** English where another language was asked for. */
    bool fell_back_to_english() const;
    /** A message of which there is at most the name. */
    bool has_no_text() const { return source == text_source::NAME || source == text_source::NO_MESSAGE; }
};

/** Finds where texts come from, by the rules of the language resource. GUI thread only. */
class text_origins {
public:
    /** Of a text in the language in force. */
    text_origin find(const message_text& text) const;

private:
    filled_rows filled_rows_;
};

/** For people: "Hebrew (972), option pack, preferred". */
QString describe_origin(const text_origin& origin);

/** For people: "German (49)". */
QString describe_language_id(int language_id);

} // namespace velarion

#endif
