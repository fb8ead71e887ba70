#ifndef KEYBOARD_FILE_H
#define KEYBOARD_FILE_H

#include <QString>
#include <QStringList>

#include <map>
#include <utility>
#include <vector>

namespace velarion {

/** A key: types text, or does what function names. */
struct keyboard_key {
    QString text;
    QString held;     ///< further characters, offered while the key is held
    QString function; ///< "backspace", "enter", ..., or the name of a layer to switch to
    double width = 1; ///< in keys
};

struct keyboard_layer {
    QString name;
    std::vector<std::vector<keyboard_key>> rows;
};

/** What a keyboard file holds; see docs/keyboard-files.md. */
struct keyboard {
    QString name;
    bool is_right_to_left = false;
    std::vector<keyboard_layer> layers; ///< the first is shown first
    std::vector<std::pair<QString, QString>> compositions;
};

/** The section of a language in a language information file. */
struct language_information {
    QString name;
    QStringList keyboards; ///< file names; the first is used first
};

/** What fields and lines do not take, by the name of the rule. */
using prohibitions = std::map<QString, QString>;

/**
 * Reads a file of the sample device's keyboards.
 *
 * @param fault  receives "FILE:LINE: reason" when the result is false; what was read is then incomplete
 */
bool read_keyboard(const QString& path, keyboard& board, QString& fault);
/** A language without a section leaves @p information empty. */
bool read_language_information(const QString& path, int language_id, language_information& information,
                               QString& fault);
/** The rules for all languages and those of the language; each value is the set of characters. */
bool read_prohibitions(const QString& path, int language_id, prohibitions& rules, QString& fault);

} // namespace velarion

#endif
