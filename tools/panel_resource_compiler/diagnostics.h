#ifndef DIAGNOSTICS_H
#define DIAGNOSTICS_H

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>

namespace velarion {

/** Where in a source file something was found; line 0 stands for the whole file. */
struct source_place {
    std::string file;
    std::size_t line;
};

/** Reports what is wrong with a catalogue, as "file:line: error: text", and counts it. */
class diagnostics {
public:
    /** @param output  receives the reports; outlives the object */
    explicit diagnostics(std::ostream& output);

    void error(const source_place& place, const std::string& text);

    /** Reports a warning of a class that can be switched off or made an error. */
    void warning(const std::string& warning_class, const source_place& place, const std::string& text);

    void disable_class(const std::string& warning_class) { disabled_classes_.insert(warning_class); }
    void make_class_an_error(const std::string& warning_class) { error_classes_.insert(warning_class); }

    std::size_t error_count() const { return error_count_; }

    /** Writes how much was found, and how much of it was not shown. */
    void write_summary() const;

private:
    void report(const source_place& place, const std::string& kind, const std::string& text);

    std::ostream& output_;
    std::set<std::string> disabled_classes_;
    std::set<std::string> error_classes_;
    std::size_t error_count_ = 0;
    std::size_t warning_count_ = 0;
    std::size_t shown_count_ = 0;
};

} // namespace velarion

#endif
