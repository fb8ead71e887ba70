#include "panel_fonts.h"

#include "message_catalogue.h"
#include "option_pack.h"
#include "stand_in_fonts.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

namespace velarion {

namespace {

/** The values of a key of a pack's properties. */
std::vector<std::string> properties_of(const std::string& pack, const std::string& wanted) {
    std::vector<std::string> values;
    std::error_code missing;
    if (!std::filesystem::is_regular_file(pack + "/pack.conf", missing)) {
        return values;
    }
    std::ifstream file(pack + "/pack.conf");
    for (std::string line; std::getline(file, line);) {
        const QString text = QString::fromStdString(line);
        if (text.section(QLatin1Char('='), 0, 0).trimmed() == QString::fromStdString(wanted)) {
            values.push_back(text.section(QLatin1Char('='), 1).trimmed().toStdString());
        }
    }
    return values;
}

/** Nothing waits for a pipe, or reads a device. */
void load_font(const QString& file) {
    if (QFileInfo(file).isFile()) {
        QFontDatabase::addApplicationFont(file);
    }
}

std::set<std::string> pack_folders_of(const std::string& catalogue) {
    std::set<std::string> folders;
    std::error_code no_packs;
    for (const auto& entry : std::filesystem::directory_iterator(catalogue + "/packs", no_packs)) {
        if (entry.is_directory()) {
            folders.insert(entry.path().string());
        }
    }
    return folders;
}

std::vector<panel_language> all_languages(const std::string& catalogue) {
    std::vector<panel_language> languages;
    for (std::size_t i = 0; i < STANDARD_LANGUAGE_NAMES.size(); ++i) {
        const std::string name = STANDARD_LANGUAGE_NAMES[i];
        languages.push_back({standard_language_id_table[i], name, catalogue + "/texts/" + name + ".tsv",
                             QString::fromUtf8(standard_font_family_table[i])});
    }
    for (const std::string& pack : pack_folders_of(catalogue)) {
        const std::string name = std::filesystem::path(pack).filename().string();
        const std::vector<std::string> families = properties_of(pack, "font_family");
        languages.push_back({QString::fromStdString(name).toInt(), name, pack + "/texts.tsv",
                             families.empty() ? QString() : QString::fromStdString(families[0])});
    }
    return languages;
}

} // namespace

std::vector<panel_language> panel_languages(const std::string& catalogue,
                                            const std::vector<std::string>& wanted, std::string& fault) {
    const std::vector<panel_language> all = all_languages(catalogue);
    if (wanted.empty()) {
        return all;
    }
    std::vector<panel_language> languages;
    for (const std::string& name : wanted) {
        const auto found = std::find_if(all.begin(), all.end(), [&name](const panel_language& language) {
            return name == language.name || name == std::to_string(language.id);
        });
        if (found == all.end()) {
            fault = "--language \"" + name + "\" is no language of the catalogue";
            return {};
        }
        languages.push_back(*found);
    }
    return languages;
}

bool is_device_tree(const std::string& folder, std::string& fault) {
    if (!folder.empty() && !std::filesystem::is_directory(folder)) {
        fault = folder + ": no such folder";
        return false;
    }
    return true;
}

void load_panel_fonts(const std::string& catalogue, const std::string& device_tree) {
    use_stand_in_fonts();
    for (const std::string& pack : pack_folders_of(catalogue)) {
        for (const std::string& font : properties_of(pack, "font")) {
            load_font(QString::fromStdString(font));
        }
    }
    if (device_tree.empty()) {
        return;
    }
    QDirIterator files(QString::fromStdString(device_tree),
                       {QStringLiteral("*.ttf"), QStringLiteral("*.otf")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        load_font(files.next());
    }
}

QStringList families_of(const QString& name) {
    QStringList families = name.split(QLatin1Char(','));
    for (QString& family : families) {
        family = family.trimmed();
    }
    return families;
}

QString shown_family(const QFont& font) {
    const QString family = QRawFont::fromFont(font).familyName();
    const QStringList families = QFontDatabase().families(); // spelled as their makers do
    const auto same = std::find_if(families.begin(), families.end(), [&family](const QString& name) {
        return name.compare(family, Qt::CaseInsensitive) == 0;
    });
    return same == families.end() ? family : *same;
}

glyph_origin find_glyph(const QFont& font, uint character, QString& fallback) {
    for (const QString& family : families_of(font.family())) {
        if (QRawFont::fromFont(QFont(family)).supportsCharacter(character)) {
            return glyph_origin::FONT;
        }
    }
    QTextLayout layout(QString::fromUcs4(&character, 1), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns()) {
        fallback = run.rawFont().familyName();
        if (run.rawFont().supportsCharacter(character)) {
            return glyph_origin::FALLBACK;
        }
    }
    return glyph_origin::NONE;
}

} // namespace velarion
