#include "diagnostics.h"

#include <ostream>

namespace velarion {

namespace {

/** A catalogue that is wholly wrong must not flood the terminal. */
constexpr std::size_t MOST_SHOWN = 200;

} // namespace

diagnostics::diagnostics(std::ostream& output)
    : output_(output) {}

void diagnostics::error(const source_place& place, const std::string& text) {
    ++error_count_;
    report(place, "error", text);
}

void diagnostics::warning(const std::string& warning_class, const source_place& place,
                          const std::string& text) {
    if (disabled_classes_.count(warning_class) != 0) {
        return;
    }
    if (error_classes_.count(warning_class) != 0) {
        error(place, text + " [-Werror=" + warning_class + "]");
        return;
    }
    ++warning_count_;
    report(place, "warning", text + " [-W" + warning_class + "]");
}

void diagnostics::report(const source_place& place, const std::string& kind, const std::string& text) {
    if (shown_count_ == MOST_SHOWN) {
        return;
    }
    ++shown_count_;
    output_ << place.file << ':';
    if (place.line != 0) {
        output_ << place.line << ':';
    }
    output_ << ' ' << kind << ": " << text << '\n';
}

void diagnostics::write_summary() const {
    const std::size_t found = error_count_ + warning_count_;
    if (found == 0) {
        return;
    }
    output_ << error_count_ << (error_count_ == 1 ? " error, " : " errors, ") << warning_count_
            << (warning_count_ == 1 ? " warning" : " warnings");
    if (found > shown_count_) {
        output_ << "; the first " << shown_count_ << " are shown";
    }
    output_ << '\n';
}

} // namespace velarion
