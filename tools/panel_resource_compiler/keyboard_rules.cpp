#include "keyboard_rules.h"

#include "checks.h"
#include "folder_walk.h"
#include "keyboard_file.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <vector>

namespace velarion {

namespace {

namespace fs = std::filesystem;

constexpr int NO_LANGUAGE = 0; // every section of a file is read, whosever it is

/** @return false when the file is one that the panel reads, and cannot be read */
bool is_readable(const fs::path& file, QString& fault) {
    const QString path = QString::fromStdString(file.string());
    if (file.extension() == ".kbd") {
        keyboard board;
        return read_keyboard(path, board, fault);
    }
    if (file.filename() == "lang_info.txt") {
        language_information information;
        return read_language_information(path, NO_LANGUAGE, information, fault);
    }
    prohibitions rules;
    return file.filename() != "proh_info.txt" || read_prohibitions(path, NO_LANGUAGE, rules, fault);
}

/** Takes "FILE: reason" or "FILE:LINE: reason" apart. */
void split_fault(const std::string& fault, source_place& place, std::string& reason) {
    reason = fault.substr(std::min(fault.size(), place.file.size() + 1));
    const char* end = reason.data() + reason.size();
    const std::from_chars_result number = std::from_chars(reason.data(), end, place.line);
    const bool has_line = number.ec == std::errc() && number.ptr != end && *number.ptr == ':';
    if (has_line) {
        reason.erase(0, static_cast<std::size_t>(number.ptr - reason.data()) + 1);
    } else {
        place.line = 0;
    }
    reason.erase(0, reason.find_first_not_of(' '));
}

} // namespace

void check_keyboards(const std::string& folder, const std::string& language, diagnostics& report) {
    std::vector<folder_fault> told_by_the_pack;
    for (const fs::path& file : files_below(folder, told_by_the_pack)) {
        QString fault;
        if (is_readable(file, fault)) {
            continue;
        }
        source_place place{file.string(), 0};
        std::string reason;
        split_fault(fault.toStdString(), place, reason);
        report.add({place, severity::WARNING, CHECK_KEYBOARD, reason, language, file.filename().string()});
    }
}

} // namespace velarion
