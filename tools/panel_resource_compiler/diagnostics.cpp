#include "diagnostics.h"

#include "checks.h"

#include <ostream>

namespace velarion {

namespace {

constexpr const char* SEVERITY_NAMES[SEVERITY_COUNT] = {"error", "warning", "remark"};

std::string describe_count(std::size_t count, severity kind) {
    return std::to_string(count) + ' ' + severity_name(kind) + (count == 1 ? "" : "s");
}

/** What stands in a report of a catalogue's own bytes leaves a terminal as it is, and does not flood it. */
std::string harmless(const std::string& text) {
    constexpr std::size_t MOST_BYTES = 1000;
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(text[i]);
        const bool is_continuation = (byte & 0xC0U) == 0x80U;
        if (i >= MOST_BYTES && !is_continuation) {
            return shown + "…";
        }
        const bool is_upper_control =
            byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        i += is_upper_control ? 1 : 0;
        shown += byte < ' ' || byte == 0x7F || is_upper_control ? '?' : text[i];
    }
    return shown;
}

} // namespace

const char* severity_name(severity kind) {
    return SEVERITY_NAMES[static_cast<std::size_t>(kind)];
}

std::string describe_finding(const finding& found) {
    std::string line = harmless(found.place.file) + ':';
    for (const std::size_t number : {found.place.line, found.place.column}) {
        if (number == 0) {
            break;
        }
        line += std::to_string(number) + ':';
    }
    return line + ' ' + severity_name(found.kind) + ": " + found.text + " [" + found.check + ']';
}

diagnostics::diagnostics(std::ostream& output)
    : output_(output) {
    for (const catalogue_check* check = SELECTABLE_CHECKS; check->name; ++check) {
        if (check->kind == check_class::BROKEN) {
            error_checks_.insert(check->name);
        }
    }
}

void diagnostics::disable(const std::string& check) {
    error_checks_.erase(check);
    disabled_checks_.insert(check);
}

void diagnostics::disable_all() {
    error_checks_.clear();
    takes_errors_alone_ = true;
}

void diagnostics::make_errors(const std::string& check) {
    disabled_checks_.erase(check);
    error_checks_.insert(check);
}

void diagnostics::make_no_errors(const std::string& check) {
    disabled_checks_.erase(check);
    error_checks_.erase(check);
}

void diagnostics::error(const std::string& check, const source_place& place, const std::string& text) {
    add({place, severity::ERROR, check, text});
}

void diagnostics::warning(const std::string& check, const source_place& place, const std::string& text) {
    add({place, severity::WARNING, check, text});
}

void diagnostics::remark(const std::string& check, const source_place& place, const std::string& text) {
    add({place, severity::REMARK, check, text});
}

void diagnostics::add(finding found) {
    if (error_checks_.count(found.check) != 0) {
        found.kind = severity::ERROR;
    } else if (found.kind != severity::ERROR &&
               (takes_errors_alone_ || disabled_checks_.count(found.check) != 0)) {
        return;
    }
    if (is_ignored_ && is_ignored_(found)) {
        return;
    }
    found.text = harmless(found.text);
    ++counts_[static_cast<std::size_t>(found.kind)];
    const std::size_t count = ++check_counts_[found.check];
    if (!is_silent_ && (shows_all_ || count <= MOST_SHOWN)) {
        output_ << describe_finding(found) << '\n';
    }
    findings_.push_back(std::move(found));
}

void diagnostics::write_summary() const {
    if (findings_.empty() || is_silent_) {
        return;
    }
    for (const auto& [check, count] : check_counts_) {
        if (!shows_all_ && count > MOST_SHOWN) {
            output_ << "... and " << count - MOST_SHOWN << " more [" << check << "]\n";
        }
    }
    output_ << describe_count(count(severity::ERROR), severity::ERROR) << ", "
            << describe_count(count(severity::WARNING), severity::WARNING);
    if (count(severity::REMARK) != 0) {
        output_ << ", " << describe_count(count(severity::REMARK), severity::REMARK);
    }
    output_ << '\n';
}

} // namespace velarion
