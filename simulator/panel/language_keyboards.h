#ifndef LANGUAGE_KEYBOARDS_H
#define LANGUAGE_KEYBOARDS_H

#include "keyboard_file.h"
#include "message_text.h"
#include "panel_languages.h"

#include <QString>

#include <vector>

namespace velarion {

/** What a field takes: a rule of the prohibition information. */
inline constexpr char FIELD_FILE_NAME[] = "file_name";
inline constexpr char FIELD_USER_NAME[] = "user_name";

/** The id of the language in force. */
int language_in_force();

/**
 * The keyboards of a language, from the files that the library names, in the order of the language
 * information. Those that are missing or faulty are left out.
 *
 * @param has_figures  the keyboard with figures comes first
 * @return at least one: where a language has none that of English, and one with figures alone without any
 * file
 */
std::vector<keyboard> keyboards_of(int language_id, bool has_figures = false);

/** @return the characters that a field does not take in a language; none for a rule that is not there */
QString prohibited_characters(int language_id, const QString& rule);

/** A language's name in itself; its number where no file tells it. */
message_text language_name(const language_choice& choice);

} // namespace velarion

#endif
