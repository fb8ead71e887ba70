#include "option_pack.h"

#include "checks.h"
#include "dvc_pnl_rmg_property.h"
#include "folder_walk.h"
#include "output_folder.h"
#include "placeholder_rules.h"
#include "source_writer.h"
#include "text_lines.h"
#include "written_files.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>

namespace velarion {

namespace fs = std::filesystem;

namespace {

constexpr int HIGHEST_LANGUAGE_ID = 65535; // the slots hold 16 bits
constexpr char FONT[] = "font";

// In the folder that a pack is written to.
const std::string ATTRIBUTES = "tree/panel/attr/opt_attribute.txt";
const std::string FILLED_ROWS = "tree/panel/attr/filled_rows.txt";
const std::string FONTS = "tree/panel/optfonts/";
const std::string KEYMAP = "tree/panel/keymap/";

std::string trimmed(const std::string& text) {
    const std::string::size_type first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/** The name of a folder, also of "folder/" and ".". */
std::string name_of(const std::string& folder) {
    const fs::path path = fs::absolute(folder).lexically_normal();
    return (path.has_filename() ? path : path.parent_path()).filename().string();
}

bool read_language_id(const std::string& folder, int& language_id) {
    const std::string name = name_of(folder);
    const char* end = name.data() + name.size();
    const std::from_chars_result result = std::from_chars(name.data(), end, language_id);
    return result.ec == std::errc() && result.ptr == end && name == std::to_string(language_id) &&
           language_id > 0 && language_id <= HIGHEST_LANGUAGE_ID &&
           language_id != DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
}

bool is_standard_language(int language_id) {
    const std::int32_t* end = standard_language_id_table + DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT;
    return std::find(standard_language_id_table, end, language_id) != end;
}

bool stands_twice(const fs::path& font, const std::vector<std::string>& fonts) {
    return std::any_of(fonts.begin(), fonts.end(), [&font](const std::string& other) {
        return fs::path(other).filename() == font.filename();
    });
}

/** The library takes every letter case; the locale has no say. */
bool is_font_file_name(const fs::path& path) {
    std::string extension = path.extension().string();
    for (char& c : extension) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return extension == ".ttf";
}

void take_font_family(const source_place& place, const std::string& family, option_pack& pack,
                      diagnostics& report) {
    if (!std::all_of(family.begin(), family.end(), [](char c) { return c >= ' ' && c <= '~'; })) {
        report.error(CHECK_PACK, place,
                     "font_family \"" + family + "\" is not printable ASCII; give the font's ASCII name");
    }
    pack.font_family = family;
}

void take_font(const source_place& place, const std::string& path, option_pack& pack, diagnostics& report) {
    std::error_code error;
    if (!is_font_file_name(path)) {
        report.error(CHECK_PACK, place, "font \"" + path + "\" does not end in .ttf");
    } else if (stands_twice(path, pack.font_files)) {
        report.error(CHECK_PACK, place,
                     "font \"" + path + "\" has the file name of a font before it; name it once");
    } else if (!fs::path(path).is_absolute()) {
        report.error(CHECK_PACK, place,
                     "font \"" + path + "\" is not an absolute path; the pack links to it");
    } else if (!fs::is_regular_file(path, error)) {
        report.warning(CHECK_FONTS, place, "font \"" + path + "\" is not installed; the pack goes without");
    } else {
        pack.font_files.push_back(path);
    }
}

/** Takes the "key = value" lines of a pack. */
class property_reader {
public:
    property_reader(option_pack& pack, diagnostics& report)
        : pack_(pack)
        , report_(report) {}

    void take_line(const source_place& place, const std::string& line) {
        const std::string::size_type equals = line.find('=');
        if (equals == std::string::npos) {
            report_.error(CHECK_PACK, place, "is no \"key = value\" line");
            return;
        }
        const std::string key = trimmed(line.substr(0, equals));
        const std::string value = trimmed(line.substr(equals + 1));
        const auto [first, is_new] = lines_.emplace(key, place.line);
        if (!is_new && key != FONT) {
            report_.error(CHECK_PACK, place,
                          "\"" + key + "\" stands in line " + std::to_string(first->second) +
                              " already; only \"font\" may stand more than once");
        } else {
            take_property(place, key, value);
        }
    }

private:
    void take_property(const source_place& place, const std::string& key, const std::string& value) {
        if (key == "font_family") {
            take_font_family(place, value, pack_, report_);
        } else if (key == "direction") {
            if (value != "ltr" && value != "rtl") {
                report_.error(CHECK_PACK, place,
                              "direction \"" + value + "\" is neither \"ltr\" nor \"rtl\"");
            }
            pack_.is_right_to_left = value == "rtl";
        } else if (key == FONT) {
            take_font(place, value, pack_, report_);
        } else {
            report_.error(CHECK_PACK, place,
                          "unknown property \"" + key + "\"; known are font_family, direction and font");
        }
    }

    option_pack& pack_;
    diagnostics& report_;
    std::map<std::string, std::size_t> lines_; // the line of each key's first value
};

void read_properties(const std::string& path, option_pack& pack, diagnostics& report) {
    std::vector<text_line> lines;
    const bool is_read = read_text_lines(path, lines, report);
    property_reader reader(pack, report);
    for (const text_line& line : lines) {
        const std::string property = trimmed(line.text);
        if (!property.empty() && property[0] != '#') {
            reader.take_line(line.place, property);
        }
    }
    if (is_read && pack.font_family.empty()) {
        report.error(CHECK_PACK, {path, 0}, "names no font_family");
    }
}

void read_texts(const std::string& path, const message_catalogue& catalogue, option_pack& pack,
                diagnostics& report) {
    const std::string language = std::to_string(pack.language_id);
    pack.source = {language, path, read_row_texts(path, language, report)};
    for (const row_text& text : pack.source.texts) {
        pack.texts.emplace(text.row, text.text);
    }
    check_pack_placeholders(catalogue, pack.source, report);
}

void read_keymap(const std::string& folder, option_pack& pack, diagnostics& report) {
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return;
    }
    pack.keymap_folder = folder;
    std::vector<folder_fault> faults;
    for (const fs::path& file : files_below(folder, faults)) {
        pack.keymap_files.insert(file.lexically_relative(folder).string());
    }
    for (const folder_fault& fault : faults) {
        report.error(CHECK_KEYBOARD, {fault.path, 0}, fault.text);
    }
}

bool write_library_source(const option_pack& pack, const std::string& folder, std::string& fault) {
    source_writer writer(folder, "option_pack.cpp");
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

std::set<std::string> files_of_tree(const option_pack& pack) {
    std::set<std::string> files = {ATTRIBUTES, FILLED_ROWS};
    for (const std::string& font : pack.font_files) {
        files.insert(FONTS + fs::path(font).filename().string());
    }
    for (const std::string& file : pack.keymap_files) {
        files.insert(KEYMAP + file);
    }
    return files;
}

bool copy_file(const fs::path& from, const output_folder& output, const std::string& name,
               std::string& fault) {
    std::ifstream file(from, std::ios::binary);
    const std::string contents{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        fault = from.string() + ": cannot be read";
        return false;
    }
    return output.write(name, contents, fault);
}

std::string lines_of(const std::set<std::int32_t>& rows) {
    std::string lines;
    for (const std::int32_t row : rows) {
        lines += std::to_string(row) + '\n';
    }
    return lines;
}

bool write_tree(const option_pack& pack, const output_folder& output, std::string& fault) {
    if (!output.write(ATTRIBUTES, pack.is_right_to_left ? "il_ae=0\n" : "il_ae=1\n", fault) ||
        !output.write(FILLED_ROWS, lines_of(pack.filled_rows), fault)) {
        return false;
    }
    for (const std::string& font : pack.font_files) {
        if (!output.link(FONTS + fs::path(font).filename().string(), font, fault)) {
            return false;
        }
    }
    for (const std::string& file : pack.keymap_files) {
        if (!copy_file(fs::path(pack.keymap_folder) / file, output, KEYMAP + file, fault)) {
            return false;
        }
    }
    return true;
}

} // namespace

option_pack read_option_pack(const std::string& folder, const message_catalogue& catalogue,
                             diagnostics& report) {
    option_pack pack;
    if (!read_language_id(folder, pack.language_id)) {
        report.error(CHECK_PACK, {folder, 0},
                     "the folder's name must be a language id, 1 to 65535 except 999");
    } else if (is_standard_language(pack.language_id)) {
        report.warning(CHECK_STANDARD, {folder, 0},
                       "language " + std::to_string(pack.language_id) +
                           " is a standard language, for which the panel asks no pack; rename the folder");
    }
    read_properties(folder + "/pack.conf", pack, report);
    read_texts(folder + "/texts.tsv", catalogue, pack, report);
    read_keymap(folder + "/keymap", pack, report);
    return pack;
}

std::size_t fill_option_pack(const message_catalogue& catalogue, option_pack& pack) {
    const auto fill = [&pack](std::int32_t row, const std::string& text) {
        if (pack.texts.emplace(row, text).second) {
            pack.filled_rows.insert(row);
        }
    };
    fill(ROW_WITHOUT_TEXT, "");
    for (const catalogue_message& message : catalogue.messages) {
        fill(message.row, catalogue.rows[static_cast<std::size_t>(message.row)].texts[ENGLISH_INDEX]);
    }
    for (std::int32_t row = ROW_WITHOUT_TEXT; row < NULL_ROW; ++row) {
        const std::string& english = catalogue.rows[static_cast<std::size_t>(row)].texts[ENGLISH_INDEX];
        if (!english.empty()) {
            fill(row, english);
        }
    }
    return pack.filled_rows.size();
}

bool write_option_pack(const option_pack& pack, const std::string& folder, std::string& fault) {
    return replace_written_files(folder, files_of_tree(pack), fault) &&
           write_tree(pack, output_folder(folder), fault) && write_library_source(pack, folder, fault);
}

} // namespace velarion
