#include "catalogue_rules.h"

#include "checks.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace velarion {

namespace {

namespace fs = std::filesystem;

const std::set<std::string> TABLES = {"messages.tsv", "images.tsv", "figures.tsv", "ignore.tsv"};
const std::set<std::string> PACK_FILES = {"texts.tsv", "pack.conf", "keymap"};

bool is_hidden(const std::string& name) {
    return name[0] == '.';
}

std::set<std::string> names_in(const std::string& folder) {
    std::set<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        names.insert(entry->path().filename().string());
    }
    return names;
}

class unknown_files {
public:
    unknown_files(std::string folder, diagnostics& report)
        : folder_(std::move(folder))
        , report_(report) {}

    /** Reports a file, named from the catalogue's folder. */
    void report(const std::string& name, const std::string& what) {
        const source_place place = {folder_ + '/' + name};
        const bool is_left = fs::path(name).extension() == ".new";
        report_.add({place,
                     severity::WARNING,
                     CHECK_UNKNOWN_FILES,
                     is_left ? "is left of a command that was ended half way; remove it" : what,
                     {},
                     name});
    }

    /** The folders texts and confirmed hold one table for each language that there is. */
    void check_languages(const std::string& folder, const std::set<std::string>& languages) {
        for (const std::string& name : names_in(folder_ + '/' + folder)) {
            const fs::path path = name;
            if (!is_hidden(name) &&
                (path.extension() != ".tsv" || languages.count(path.stem().string()) == 0)) {
                report(folder + '/' + name,
                       "nothing reads it; standard languages are ja, en, de, fr, es, it, "
                       "nl and ru, others stand in packs/NUMBER/texts.tsv");
            }
        }
    }

    void check_tables() {
        for (const std::string& name : names_in(folder_)) {
            const fs::path path = name;
            const bool is_table = path.extension() == ".tsv" || path.stem().extension() == ".tsv";
            if (is_table && TABLES.count(name) == 0) {
                report(name,
                       "nothing reads it; tables are messages.tsv, images.tsv, figures.tsv and ignore.tsv");
            }
        }
    }

    void check_pack(const std::string& pack) {
        for (const std::string& name : names_in(folder_ + "/packs/" + pack)) {
            if (!is_hidden(name) && PACK_FILES.count(name) == 0) {
                report("packs/" + pack + '/' + name,
                       "nothing reads it; a pack has pack.conf, texts.tsv and keymap/");
            }
        }
    }

private:
    std::string folder_;
    diagnostics& report_;
};

} // namespace

void check_unknown_files(const std::string& folder, diagnostics& report) {
    unknown_files unknown(folder, report);
    std::set<std::string> languages(STANDARD_LANGUAGE_NAMES.begin(), STANDARD_LANGUAGE_NAMES.end());
    unknown.check_tables();
    unknown.check_languages("texts", languages);
    for (const std::string& pack : names_in(folder + "/packs")) {
        std::error_code error;
        if (fs::is_directory(folder + "/packs/" + pack, error)) {
            unknown.check_pack(pack);
            languages.insert(pack);
        }
    }
    unknown.check_languages("confirmed", languages);
}

} // namespace velarion
