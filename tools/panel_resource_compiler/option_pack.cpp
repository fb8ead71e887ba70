#include "option_pack.h"

#include "source_writer.h"
#include "tsv_table.h"

#include <charconv>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

const int HIGHEST_LANGUAGE_ID = 65535; // the slots hold 16 bits
const int LANGUAGE_ID_OPTION = 999;    // stands for "an option language"
const std::size_t ENGLISH = 1;
const char WARNING_FONTS[] = "fonts";

std::string trimmed(const std::string& text) {
    const std::string::size_type first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool read_language_id(const std::string& folder, int& language_id) {
    const std::string name = fs::path(folder).filename().string();
    const char* end = name.data() + name.size();
    const std::from_chars_result result = std::from_chars(name.data(), end, language_id);
    return result.ec == std::errc() && result.ptr == end && name == std::to_string(language_id) &&
           language_id > 0 && language_id <= HIGHEST_LANGUAGE_ID && language_id != LANGUAGE_ID_OPTION;
}

void take_font(const source_place& place, const std::string& path, option_pack& pack, diagnostics& report) {
    const fs::path extension = fs::path(path).extension();
    if (extension != ".ttf" && extension != ".TTF") {
        report.error(place, "font \"" + path + "\" does not end in .ttf");
    } else if (!fs::is_regular_file(path)) {
        report.warning(WARNING_FONTS, place, "font \"" + path + "\" is not installed; the pack goes without");
    } else {
        pack.font_files.push_back(path);
    }
}

void take_property(const source_place& place, const std::string& key, const std::string& value,
                   option_pack& pack, diagnostics& report) {
    if (key == "font_family") {
        pack.font_family = value;
    } else if (key == "direction") {
        if (value != "ltr" && value != "rtl") {
            report.error(place, "direction \"" + value + "\" is neither \"ltr\" nor \"rtl\"");
        }
        pack.is_right_to_left = value == "rtl";
    } else if (key == "font") {
        take_font(place, value, pack, report);
    } else {
        report.error(place, "unknown property \"" + key + "\"; known are font_family, direction and font");
    }
}

void read_properties(const std::string& path, option_pack& pack, diagnostics& report) {
    std::ifstream file(path);
    if (!file) {
        report.error({path, 0}, "cannot be opened for reading");
        return;
    }
    std::string line;
    for (std::size_t number = 1; std::getline(file, line); ++number) {
        const std::string property = trimmed(line);
        if (property.empty() || property[0] == '#') {
            continue;
        }
        const std::string::size_type equals = property.find('=');
        if (equals == std::string::npos) {
            report.error({path, number}, "is no \"key = value\" line");
            continue;
        }
        take_property({path, number}, trimmed(property.substr(0, equals)),
                      trimmed(property.substr(equals + 1)), pack, report);
    }
    if (pack.font_family.empty()) {
        report.error({path, 0}, "names no font_family");
    }
}

void check_text(const tsv_record& record, std::int32_t row, const message_catalogue& catalogue,
                diagnostics& report) {
    const std::string& english = catalogue.rows[static_cast<std::size_t>(row)].texts[ENGLISH];
    const unsigned int wanted = placeholders_of(english);
    const unsigned int found = placeholders_of(record.fields[1]);
    if (!english.empty() && found != wanted) {
        report.warning(WARNING_PLACEHOLDERS, record.place,
                       "row " + std::to_string(row) + ": placeholders " + describe_placeholders(wanted) +
                           " in en, " + describe_placeholders(found) + " here");
    }
}

void read_texts(const std::string& path, const message_catalogue& catalogue, option_pack& pack,
                diagnostics& report) {
    for (const tsv_record& record : read_tsv_table(path, {"row", "text"}, report)) {
        std::int32_t row = 0;
        if (!read_number_field(record, 0, "row", report, row)) {
            continue;
        }
        if (row < 0 || row >= NULL_ROW) {
            report.error(record.place,
                         "row " + std::to_string(row) + " is outside 0 to " + std::to_string(NULL_ROW - 1));
        } else if (row < FIRST_TEXT_ROW && !record.fields[1].empty()) {
            report.error(record.place, "row " + std::to_string(row) + " must stay empty");
        } else if (!pack.texts.emplace(row, record.fields[1]).second) {
            report.error(record.place, "row " + std::to_string(row) + " stands twice");
        } else {
            check_text(record, row, catalogue, report);
        }
    }
}

bool write_library_source(const option_pack& pack, const std::string& path, std::string& fault) {
    source_writer writer(path);
    std::ostream& out = writer.stream();
    out << "// Made by panel_resource_compiler from an option language pack; changes are lost.\n"
           "#include <algorithm>\n#include <iterator>\n\n"
           "namespace {\n\nconst int LANGUAGE_ID = "
        << pack.language_id
        << ";\n\nstruct row_text {\n    long row;\n    const char* text;\n};\n\n"
           "const row_text ROW_TEXTS[] = {\n    {-1, nullptr},\n";
    for (const auto& entry : pack.texts) {
        out << "    {" << entry.first << ", " << cpp_literal(entry.second) << "},\n";
    }
    out << "};\n\n} // namespace\n\n"
           "#define PACK_EXPORT extern \"C\" __attribute__((visibility(\"default\")))\n\n"
           "PACK_EXPORT int isValidOptionLanguage(int language_id);\n"
           "PACK_EXPORT const char* optionMessage(long row, int language_id);\n"
           "PACK_EXPORT const char* optionFontFamily(int, int language_id);\n\n"
           "int isValidOptionLanguage(int language_id) {\n"
           "    return language_id == LANGUAGE_ID ? 1 : 0;\n}\n\n"
           "const char* optionMessage(long row, int language_id) {\n"
           "    const row_text* end = std::end(ROW_TEXTS);\n"
           "    const row_text* found = std::lower_bound(std::begin(ROW_TEXTS), end, row,\n"
           "        [](const row_text& entry, long wanted) { return entry.row < wanted; });\n"
           "    return language_id == LANGUAGE_ID && found != end && found->row == row ? found->text\n"
           "                                                                          : nullptr;\n}\n\n"
           "const char* optionFontFamily(int, int language_id) {\n"
           "    return language_id == LANGUAGE_ID ? "
        << cpp_literal(pack.font_family) << " : nullptr;\n}\n";
    return writer.finish(fault);
}

void write_tree(const option_pack& pack, const fs::path& panel) {
    fs::remove_all(panel / "optfonts");
    fs::create_directories(panel / "attr");
    fs::create_directories(panel / "optfonts");
    fs::create_directories(panel / "keymap");
    std::ofstream attributes;
    attributes.exceptions(std::ios::failbit | std::ios::badbit);
    attributes.open(panel / "attr" / "opt_attribute.txt");
    attributes << "il_ae=" << (pack.is_right_to_left ? 0 : 1) << '\n';
    attributes.close();
    for (const std::string& font : pack.font_files) {
        fs::create_symlink(font, panel / "optfonts" / fs::path(font).filename());
    }
    if (!pack.keymap_folder.empty()) {
        fs::copy(pack.keymap_folder, panel / "keymap",
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }
}

} // namespace

option_pack read_option_pack(const std::string& folder, const message_catalogue& catalogue,
                             diagnostics& report) {
    option_pack pack;
    if (!read_language_id(folder, pack.language_id)) {
        report.error({folder, 0}, "the folder's name must be a language id, 1 to 65535 except 999");
    }
    read_properties(folder + "/pack.conf", pack, report);
    read_texts(folder + "/texts.tsv", catalogue, pack, report);
    if (fs::is_directory(folder + "/keymap")) {
        pack.keymap_folder = folder + "/keymap";
    }
    return pack;
}

bool write_option_pack(const option_pack& pack, const std::string& folder, std::string& fault) {
    try {
        write_tree(pack, fs::path(folder) / "tree" / "panel");
    } catch (const std::exception& error) { // file system errors, with path and reason
        fault = error.what();
        return false;
    }
    return write_library_source(pack, folder + "/option_pack.cpp", fault);
}
