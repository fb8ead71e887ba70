#include "panel_fonts.h"

#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QMap>
#include <QStringList>

namespace velarion {

namespace {

constexpr char FONT_FOLDER[] = "/tmp/fonts/";

/** Families that the panel's fonts have, and what a workstation shows in their place. */
struct stand_in_font {
    const char* family;
    const char* stand_in;
};

constexpr stand_in_font STAND_INS[] = {{"Univers OTS", "Liberation Sans"},
                                       {"HeiseiKakuGothW5_JIS0213C", "VL PGothic"}};

/** Families of each file. What was loaded stays: a font that is in use may not go. */
QMap<QString, QStringList>& loaded_fonts() {
    static QMap<QString, QStringList> fonts;
    return fonts;
}

bool is_same(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

} // namespace

void load_panel_fonts() {
    const QDir folder(QString::fromLatin1(FONT_FOLDER));
    for (const QString& name : folder.entryList({QStringLiteral("*.ttf")}, QDir::Files)) {
        if (loaded_fonts().contains(name)) {
            continue;
        }
        const int font = QFontDatabase::addApplicationFont(folder.filePath(name));
        if (font >= 0) {
            loaded_fonts()[name] = QFontDatabase::applicationFontFamilies(font);
        }
    }
    for (const stand_in_font& font : STAND_INS) {
        QFont::insertSubstitution(QLatin1String(font.family), QLatin1String(font.stand_in));
    }
}

bool is_panel_font(const QString& family) {
    const QString first = family.section(QLatin1Char(','), 0, 0).trimmed(); // a font may ask for several
    for (const stand_in_font& font : STAND_INS) {
        if (is_same(first, QLatin1String(font.stand_in))) {
            return true;
        }
    }
    for (const QStringList& families : loaded_fonts()) {
        if (families.contains(first, Qt::CaseInsensitive)) {
            return true;
        }
    }
    return loaded_fonts().isEmpty();
}

} // namespace velarion
