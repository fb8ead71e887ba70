#include "authoring_subcommands.h"
#include "command_options.h"
#include "message_catalogue.h"
#include "output_folder.h"
#include "pseudo_text.h"
#include "tsv_editor.h"

#include <filesystem>
#include <iostream>

namespace velarion {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t ENGLISH = 1;
constexpr std::int32_t DEFAULT_ID = 65001; // no calling code, by which packs are numbered
constexpr std::int32_t DEFAULT_MIRRORED_ID = 65002;
constexpr std::int32_t HIGHEST_ID = 65535;
constexpr std::int32_t RESERVED_ID = 999; // stands for "an option language" in the settings
constexpr char MARK[] = "# Made by panel_resource_compiler pseudo; changes are lost.\n";
constexpr char FONTS[] = "font_family = DejaVu Sans\n"
                         "font = /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf\n"
                         "font = /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf\n";

std::string texts_of(const message_catalogue& catalogue, bool is_mirrored, std::size_t& count) {
    std::string table = std::string(MARK) + "row\ttext\n";
    for (std::int32_t row = FIRST_TEXT_ROW; row < NULL_ROW; ++row) {
        const std::string& english = catalogue.rows[static_cast<std::size_t>(row)].texts[ENGLISH];
        if (!english.empty()) {
            table +=
                std::to_string(row) + '\t' + tsv_editor::escaped(pseudo_text(english, is_mirrored)) + '\n';
            ++count;
        }
    }
    return table;
}

/** The pack's folder is named like its language: the output folder, or one in it. */
fs::path pack_folder(const std::string& output, std::int32_t id) {
    const fs::path path = fs::absolute(output).lexically_normal();
    const fs::path folder = path.has_filename() ? path : path.parent_path();
    return folder.filename() == std::to_string(id) ? folder : folder / std::to_string(id);
}

bool write_pack(const fs::path& path, const std::string& texts, bool is_mirrored, std::string& fault) {
    const output_folder folder(path.string());
    for (const char* name : {"pack.conf", "texts.tsv"}) {
        std::error_code error;
        if (fs::exists(path / name, error) && folder.read(name).compare(0, sizeof MARK - 1, MARK) != 0) {
            fault = (path / name).string() + ": is of a pack that this command has not made; choose another "
                                             "folder or --language-id";
            return false;
        }
    }
    const std::string properties =
        std::string(MARK) + FONTS + "direction = " + (is_mirrored ? "rtl" : "ltr") + '\n';
    return folder.make(fault) && folder.write("pack.conf", properties, fault) &&
           folder.write("texts.tsv", texts, fault);
}

} // namespace

int run_pseudo_command(const std::vector<std::string>& arguments) {
    std::string catalogue;
    std::string output;
    std::int32_t id = 0;
    bool is_mirrored = false;
    command_options options(
        "pseudo", "Makes a pack, in its source form, of the English texts: accented letters, a third\n"
                  "longer, in brackets. What a panel shows of it without brackets is cut; what has no\n"
                  "accents is no text of the catalogue.");
    options.require("catalogue", "DIR", catalogue, "folder that holds messages.tsv and texts/<language>.tsv");
    options.require("output", "DIR", output,
                    "the pack's folder, if it is named like the language id; otherwise\n"
                    "the folder in which it is made");
    options.number("language-id", "ID", id, "1 to 65535; 65001 unless given, 65002 for a mirrored pack");
    options.flag("mirrored", is_mirrored, "makes a language from right to left");
    if (const std::optional<int> end = options.read(arguments)) {
        return *end;
    }
    id = id == 0 ? (is_mirrored ? DEFAULT_MIRRORED_ID : DEFAULT_ID) : id;
    if (id < 1 || id > HIGHEST_ID || id == RESERVED_ID) {
        return options.usage_fault("--language-id " + std::to_string(id) +
                                   " is none of 1 to 65535 except 999");
    }
    diagnostics report(std::cerr);
    report.disable_all();
    const message_catalogue messages = read_message_catalogue(catalogue, report);
    report.write_summary();
    if (report.error_count() != 0) {
        return EXIT_CATALOGUE_FAULT;
    }
    std::size_t count = 0;
    const std::string texts = texts_of(messages, is_mirrored, count);
    const fs::path folder = pack_folder(output, id);
    std::string fault;
    if (!write_pack(folder, texts, is_mirrored, fault)) {
        return file_fault(fault);
    }
    std::cout << folder.string() << ": " << count << " texts\n";
    return EXIT_GOOD;
}

} // namespace velarion
