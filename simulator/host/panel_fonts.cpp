#include "panel_fonts.h"

#include "stand_in_fonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QMap>
#include <QStringList>

namespace velarion {

namespace {

constexpr char FONT_FOLDER[] = "/tmp/fonts/";

/** Families of each file. What was loaded stays: a font that is in use may not go. */
QMap<QString, QStringList>& loaded_fonts() {
    static QMap<QString, QStringList> fonts;
    return fonts;
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
    use_stand_in_fonts();
}

bool is_panel_font(const QString& family) {
    const QString first = family.section(QLatin1Char(','), 0, 0).trimmed(); // a font may ask for several
    if (is_stand_in_font(first)) {
        return true;
    }
    for (const QStringList& families : loaded_fonts()) {
        if (families.contains(first, Qt::CaseInsensitive)) {
            return true;
        }
    }
    return loaded_fonts().isEmpty();
}

} // namespace velarion
