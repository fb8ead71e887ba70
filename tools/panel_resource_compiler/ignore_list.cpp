#include "ignore_list.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>
#include <filesystem>

namespace velarion {

namespace {

constexpr char EVERY_LANGUAGE[] = "*";

bool is_blank_text(const std::string& text) {
    return text.find_first_not_of(" \t\n") == std::string::npos;
}

} // namespace

void ignore_list::read(const std::string& folder, diagnostics& report) {
    const std::string path = folder + "/ignore.tsv";
    std::error_code missing;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, missing))) {
        return;
    }
    for (const tsv_record& record :
         read_tsv_table(path, {"check", "subject", "language", "reason"}, report)) {
        const std::string& check = record.fields[0];
        if (is_blank_text(record.fields[3])) {
            report.error(CHECK_IGNORE_LIST, record.place_of(3),
                         "has no reason; say why the finding is meant");
        } else if (!is_selectable_check(check)) {
            report.warning(CHECK_IGNORE_LIST, record.place_of(0),
                           "\"" + check + "\" is no check that can be ignored; those are " +
                               selectable_check_names());
        } else {
            const auto [first, is_new] = entries_.emplace(
                std::make_tuple(check, record.fields[1], record.fields[2]), entry{record.place_of(0)});
            if (!is_new) {
                report.warning(CHECK_IGNORE_LIST, record.place_of(0),
                               "stands in line " + std::to_string(first->second.place.line) + " already");
            }
        }
    }
}

bool ignore_list::accepts(const finding& found) {
    if (found.subject.empty() || entries_.empty()) {
        return false;
    }
    for (const std::string& language : {found.language, std::string(EVERY_LANGUAGE)}) {
        const auto accepting = entries_.find({found.check, found.subject, language});
        if (accepting != entries_.end()) {
            accepting->second.is_used = true;
            return true;
        }
    }
    return false;
}

void ignore_list::report_unused(
    const std::function<bool(const std::string& check, const std::string& language)>& is_wanted,
    diagnostics& report) const {
    for (const auto& [key, accepting] : entries_) {
        const auto& [check, subject, language] = key;
        if (!accepting.is_used && is_wanted(check, language)) {
            report.warning(CHECK_IGNORE_LIST, accepting.place,
                           "nothing is found of " + check + " in " + subject + " any more; remove the entry");
        }
    }
}

std::shared_ptr<ignore_list> use_ignore_list(const std::string& folder, diagnostics& report) {
    auto list = std::make_shared<ignore_list>();
    list->read(folder, report);
    report.set_filter([list](const finding& found) { return list->accepts(found); });
    return list;
}

} // namespace velarion
