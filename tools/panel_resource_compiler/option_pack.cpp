#include "option_pack.h"

#include "dvc_pnl_rmg_property.h"
#include "source_writer.h"
#include "text_lines.h"
#include "written_files.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>

namespace fs = std::filesystem;

const char WARNING_FONTS[] = "fonts";

namespace {

const int HIGHEST_LANGUAGE_ID = 65535; // the slots hold 16 bits
const std::size_t ENGLISH = 1;
const char FONT[] = "font";

// In the folder that a pack is written to.
const std::string ATTRIBUTES = "tree/panel/attr/opt_attribute.txt";
const std::string FONTS = "tree/panel/optfonts/";
const std::string KEYMAP = "tree/panel/keymap/";

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
           language_id > 0 && language_id <= HIGHEST_LANGUAGE_ID &&
           language_id != velarion::DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
}

bool stands_twice(const fs::path& font, const std::vector<std::string>& fonts) {
    return std::any_of(fonts.begin(), fonts.end(), [&font](const std::string& other) {
        return fs::path(other).filename() == font.filename();
    });
}

void take_font(const source_place& place, const std::string& path, option_pack& pack, diagnostics& report) {
    std::error_code error;
    const fs::path extension = fs::path(path).extension();
    if (extension != ".ttf" && extension != ".TTF") {
        report.error(place, "font \"" + path + "\" does not end in .ttf");
    } else if (stands_twice(path, pack.font_files)) {
        report.error(place, "font \"" + path + "\" has the file name of a font before it; name it once");
    } else if (!fs::path(path).is_absolute()) {
        report.error(place, "font \"" + path + "\" is not an absolute path; the pack links to it");
    } else if (!fs::is_regular_file(path, error)) {
        report.warning(WARNING_FONTS, place, "font \"" + path + "\" is not installed; the pack goes without");
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
            report_.error(place, "is no \"key = value\" line");
            return;
        }
        const std::string key = trimmed(line.substr(0, equals));
        const std::string value = trimmed(line.substr(equals + 1));
        const auto [first, is_new] = lines_.emplace(key, place.line);
        if (!is_new && key != FONT) {
            report_.error(place, "\"" + key + "\" stands in line " + std::to_string(first->second) +
                                     " already; only \"font\" may stand more than once");
        } else {
            take_property(place, key, value);
        }
    }

private:
    void take_property(const source_place& place, const std::string& key, const std::string& value) {
        if (key == "font_family") {
            pack_.font_family = value;
        } else if (key == "direction") {
            if (value != "ltr" && value != "rtl") {
                report_.error(place, "direction \"" + value + "\" is neither \"ltr\" nor \"rtl\"");
            }
            pack_.is_right_to_left = value == "rtl";
        } else if (key == FONT) {
            take_font(place, value, pack_, report_);
        } else {
            report_.error(place,
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
        report.error({path, 0}, "names no font_family");
    }
}

void check_text(const row_text& text, const message_catalogue& catalogue, diagnostics& report) {
    const std::string& english = catalogue.rows[static_cast<std::size_t>(text.row)].texts[ENGLISH];
    const unsigned int wanted = placeholders_of(english);
    const unsigned int found = placeholders_of(text.text);
    if (!english.empty() && found != wanted) {
        report.warning(WARNING_PLACEHOLDERS, text.place,
                       "row " + std::to_string(text.row) + ": placeholders " + describe_placeholders(wanted) +
                           " in en, " + describe_placeholders(found) + " here");
    }
}

void read_texts(const std::string& path, const message_catalogue& catalogue, option_pack& pack,
                diagnostics& report) {
    for (const row_text& text : read_row_texts(path, report)) {
        check_text(text, catalogue, report);
        pack.texts.emplace(text.row, text.text);
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

/** The files of a pack's keyboard directory, named from it. */
std::set<std::string> keymap_files(const option_pack& pack) {
    std::set<std::string> files;
    if (!pack.keymap_folder.empty()) {
        const auto options = fs::directory_options::follow_directory_symlink;
        for (const auto& entry : fs::recursive_directory_iterator(pack.keymap_folder, options)) {
            if (!entry.is_directory()) {
                files.insert(entry.path().lexically_relative(pack.keymap_folder).string());
            }
        }
    }
    return files;
}

std::set<std::string> files_of_tree(const option_pack& pack) {
    std::set<std::string> files = {ATTRIBUTES};
    for (const std::string& font : pack.font_files) {
        files.insert(FONTS + fs::path(font).filename().string());
    }
    for (const std::string& file : keymap_files(pack)) {
        files.insert(KEYMAP + file);
    }
    return files;
}

void write_tree(const option_pack& pack, const fs::path& folder) {
    for (const std::string& file : files_of_tree(pack)) {
        fs::create_directories((folder / file).parent_path());
        fs::remove(folder / file);
    }
    std::ofstream attributes;
    attributes.exceptions(std::ios::failbit | std::ios::badbit);
    attributes.open(folder / ATTRIBUTES);
    attributes << "il_ae=" << (pack.is_right_to_left ? 0 : 1) << '\n';
    attributes.close();
    for (const std::string& font : pack.font_files) {
        fs::create_symlink(font, folder / FONTS / fs::path(font).filename());
    }
    for (const std::string& file : keymap_files(pack)) {
        fs::copy_file(fs::path(pack.keymap_folder) / file, folder / KEYMAP / file);
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
    std::error_code error;
    if (fs::is_directory(folder + "/keymap", error)) {
        pack.keymap_folder = folder + "/keymap";
    }
    return pack;
}

bool write_option_pack(const option_pack& pack, const std::string& folder, std::string& fault) {
    try {
        if (!replace_written_files(folder, files_of_tree(pack), fault)) {
            return false;
        }
        write_tree(pack, folder);
    } catch (const std::exception& error) { // file system errors, with path and reason
        fault = error.what();
        return false;
    }
    return write_library_source(pack, folder + "/option_pack.cpp", fault);
}
