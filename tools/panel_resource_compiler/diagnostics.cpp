#include "diagnostics.h"

#include "checks.h"

#include <ostream>

namespace velarion {

namespace {

constexpr const char* SEVERITY_NAMES[SEVERITY_COUNT] = {"error", "warning", "remark"};

std::string describe_count(std::size_t count, severity kind) {
    return std::to_string(count) + ' ' + severity_name(kind) + (count == 1 ? "" : "s");
}

} // namespace

const char* severity_name(severity kind) {
    return SEVERITY_NAMES[static_cast<std::size_t>(kind)];
}

std::string describe_finding(const finding& found) {
    std::string line = found.place.file + ':';
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
