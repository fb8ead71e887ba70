#ifndef IGNORE_LIST_H
#define IGNORE_LIST_H

#include "diagnostics.h"

#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace velarion {

/**
 * The findings that are meant to be, from ignore.tsv of a catalogue's folder: columns check, subject (the row
 * of a text, the id of a message or image, a file, a font, or a character as "U+00E4"), language ("de", "86",
 * or
 * "*" for every one and for findings of no language) and reason.
 */
class ignore_list {
public:
    /** Reads the file, if there is one. @param report  receives its faults, a missing reason among them */
    void read(const std::string& folder, diagnostics& report);

    /** Whether a finding is meant to be; remembers that the entry stands for something. */
    bool accepts(const finding& found);

    /**
     * Reports the entries that have accepted nothing.
     *
     * @param is_wanted  whether an entry of a check and language could have
     */
    void
    report_unused(const std::function<bool(const std::string& check, const std::string& language)>& is_wanted,
                  diagnostics& report) const;

private:
    struct entry {
        source_place place;
        bool is_used = false;
    };

    std::map<std::tuple<std::string, std::string, std::string>, entry>
        entries_; // by check, subject, language
};

/** Reads a catalogue's list and lets a report leave out what it holds. */
std::shared_ptr<ignore_list> use_ignore_list(const std::string& folder, diagnostics& report);

} // namespace velarion

#endif
