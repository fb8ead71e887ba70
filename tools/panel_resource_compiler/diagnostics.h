#ifndef DIAGNOSTICS_H
#define DIAGNOSTICS_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velarion {

/** Where in a source file something was found. */
struct source_place {
    std::string file;
    std::size_t line = 0;   ///< 0 stands for the whole file
    std::size_t column = 0; ///< in characters from 1; 0 stands for the whole line
};

enum class severity { ERROR, WARNING, REMARK };
inline constexpr std::size_t SEVERITY_COUNT = 3;

/** "error", "warning" or "remark". */
const char* severity_name(severity kind);

struct finding {
    source_place place;
    severity kind;
    std::string check; ///< as checks.h names it
    std::string text;
    std::string language = {}; ///< "de", or the number of a pack; empty when it is of no one language
    std::string subject = {};  ///< the row of a text, the id of a message or image, or a file; may be empty
};

/** A finding on one line, as "file:line:column: severity: text [check]". */
std::string describe_finding(const finding& found);

/**
 * Takes what is wrong with a catalogue, makes errors of what a check of the class BROKEN finds, counts it and
 * keeps it, and writes each finding at once. Of one check the first MOST_SHOWN are written; the summary tells
 * how many more there are.
 */
class diagnostics {
public:
    static constexpr std::size_t MOST_SHOWN = 20;

    /** @param output  receives the findings and the summary; outlives the object */
    explicit diagnostics(std::ostream& output);

    void add(finding found);
    void error(const std::string& check, const source_place& place, const std::string& text);
    void warning(const std::string& check, const source_place& place, const std::string& text);
    void remark(const std::string& check, const source_place& place, const std::string& text);

    /** Leaves out what a check finds short of errors. */
    void disable(const std::string& check);
    /** Leaves out everything short of errors, and what is one only unless told otherwise. */
    void disable_all();
    /** Makes errors of what a check finds. */
    void make_errors(const std::string& check);
    /** Leaves what a check finds as it is, also where errors are made of it unless told otherwise. */
    void make_no_errors(const std::string& check);
    bool is_disabled(const std::string& check) const { return disabled_checks_.count(check) != 0; }
    /** @param is_ignored  told of each finding that would count; neither counts nor shows those it accepts */
    void set_filter(std::function<bool(const finding&)> is_ignored) { is_ignored_ = std::move(is_ignored); }
    /** Writes all findings of a check. */
    void show_all() { shows_all_ = true; }
    /** Writes nothing: the caller writes findings() in a form of its own. */
    void be_silent() { is_silent_ = true; }
    bool is_silent() const { return is_silent_; }

    std::size_t error_count() const { return count(severity::ERROR); }
    std::size_t count(severity kind) const { return counts_[static_cast<std::size_t>(kind)]; }
    /** All that counted, in the order in which it was found. */
    const std::vector<finding>& findings() const { return findings_; }

    /** Writes how much of each check was not shown, and how much was found. */
    void write_summary() const;

private:
    std::ostream& output_;
    std::set<std::string> disabled_checks_;
    std::set<std::string> error_checks_;
    std::function<bool(const finding&)> is_ignored_;
    bool takes_errors_alone_ = false;
    bool shows_all_ = false;
    bool is_silent_ = false;
    std::vector<finding> findings_;
    std::map<std::string, std::size_t> check_counts_;
    std::size_t counts_[SEVERITY_COUNT] = {};
};

} // namespace velarion

#endif
