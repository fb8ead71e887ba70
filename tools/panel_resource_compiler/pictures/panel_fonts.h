#ifndef PANEL_FONTS_H
#define PANEL_FONTS_H

#include <QFont>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace velarion {

/** What a language of the panel is shown in. */
struct panel_language {
    int id = 0;
    std::string name;  ///< "de", or the id of a pack
    std::string texts; ///< its file
    QString family;    ///< asked for by the panel; a pack may name several, separated by commas
};

/**
 * The standard languages and the packs of a catalogue, or those of them that are named by "de" or "49".
 *
 * @param fault  receives what is wrong with a name
 */
std::vector<panel_language> panel_languages(const std::string& catalogue,
                                            const std::vector<std::string>& wanted, std::string& fault);

/** @return false, and the reason in fault, when a name is given and there is no such folder */
bool is_device_tree(const std::string& folder, std::string& fault);

/**
 * Makes the fonts known that a device tree holds, if one is given, those of the catalogue's packs, and what a
 * workstation shows in place of others.
 */
void load_panel_fonts(const std::string& catalogue, const std::string& device_tree);

/** The families that a name asks for, the first one first. */
QStringList families_of(const QString& name);

/** The family that the toolkit takes for one that is asked for. */
QString shown_family(const QFont& font);

/** How a character comes out. */
enum class glyph_origin { FONT, FALLBACK, NONE };

/** @param fallback  receives the family that has the character when none of the font's has it */
glyph_origin find_glyph(const QFont& font, uint character, QString& fallback);

} // namespace velarion

#endif
