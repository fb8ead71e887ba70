#include "checks.h"
#include "picture_checks.h"

namespace velarion {

namespace {

/** How many siblings, and which share of them, must have a variant before its lack counts as forgotten. */
constexpr std::size_t FEWEST_SIBLINGS = 4;
constexpr double SHARE_OF_SIBLINGS = 0.75;
/** The same for a picture without any variant. */
constexpr double SHARE_OF_PLAIN_SIBLINGS = 0.9;

/** The first words of a name: pictures that begin alike are siblings. */
std::string family_of(const std::string& base) {
    const std::size_t first = base.find('_');
    const std::size_t second = first == std::string::npos ? first : base.find('_', first + 1);
    return base.substr(0, second);
}

/** Looks for a variant that most pictures of a kind have beside another. */
void check_family(const picture_folder& folder, const std::vector<std::string>& members,
                  const std::string& given, const std::string& variant, const char* check,
                  diagnostics& report) {
    std::size_t all = 0;
    std::vector<std::string> lacking;
    for (const std::string& name : members) {
        all += folder.has(name, given) ? 1U : 0U;
        if (folder.has(name, given) && !folder.has(name, variant)) {
            lacking.push_back(name);
        }
    }
    const std::size_t having = all - lacking.size();
    for (const std::string& name : lacking) {
        const double least =
            folder.variants.at(name).size() > 1 ? SHARE_OF_SIBLINGS : SHARE_OF_PLAIN_SIBLINGS;
        if (having >= FEWEST_SIBLINGS && static_cast<double>(having) >= least * static_cast<double>(all)) {
            report.add(folder.found(severity::WARNING, check, picture_folder::file_of(name, given),
                                    "has no \"" + picture_folder::file_of(name, variant) + "\"; " +
                                        std::to_string(having) + " of " + std::to_string(all) +
                                        " pictures that begin alike have theirs"));
        }
    }
}

void check_twin_states(const picture_folder& folder, const std::string& name,
                       const std::set<std::string>& variants, diagnostics& report) {
    for (const std::string& variant : variants) {
        const std::string plain = variant.substr(variant.find('\t'));
        if (variants.count(plain) == 0) {
            report.add(folder.found(severity::WARNING, CHECK_NO_STATE, picture_folder::file_of(name, variant),
                                    "is the darker twin of \"" + picture_folder::file_of(name, plain) +
                                        "\", which is not there"));
        }
    }
}

} // namespace

void check_picture_variants(const picture_folder& folder, diagnostics& report) {
    std::map<std::string, std::vector<std::string>> families;
    for (const auto& [name, variants] : folder.variants) {
        families[family_of(name) + picture_file_name(name).extension].push_back(name);
    }
    for (const auto& [family, members] : families) {
        for (const std::string& state : PICTURE_STATES) {
            check_family(folder, members, "\t", '\t' + state, CHECK_NO_STATE, report);
            check_family(folder, members, "d_\t", "d_\t" + state, CHECK_NO_TWIN, report);
        }
        check_family(folder, members, "\t", "d_\t", CHECK_NO_TWIN, report);
    }
    for (const auto& [name, variants] : folder.variants) {
        check_twin_states(folder, name, variants, report);
    }
}

} // namespace velarion
