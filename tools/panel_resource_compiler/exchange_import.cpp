#include "exchange_import.h"

#include "checks.h"
#include "placeholder_rules.h"
#include "text_lines.h"

#include <charconv>

namespace velarion {

namespace {

constexpr std::size_t MOST_QUOTED = 60; // bytes of a text in a report

bool read_row(const std::string& key, std::int32_t& row) {
    const char* end = key.data() + key.size();
    const std::from_chars_result result = std::from_chars(key.data(), end, row);
    return result.ec == std::errc() && result.ptr == end && key == std::to_string(row);
}

/** A text on one line, cut at a character's start. */
std::string quoted(const std::string& text) {
    std::string line = "\"";
    for (const char c : text) {
        const bool starts_character = (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        if (line.size() > MOST_QUOTED && starts_character) {
            return line + "...\"";
        }
        line += c == '\n' ? "\\n" : std::string(1, c);
    }
    return line + '"';
}

class importer {
public:
    importer(const import_rules& rules, exchange_language& language, diagnostics& report)
        : rules_(rules)
        , language_(language)
        , report_(report) {}

    import_counts take_all(const exchange_document& document) {
        for (const exchange_unit& unit : document.units) {
            take(unit);
        }
        for (const auto& row : language_.rows()) {
            counts_.absent += seen_.count(row.first) == 0 && language_.is_exported(row.first) ? 1U : 0U;
        }
        return counts_;
    }

private:
    void take(const exchange_unit& unit) {
        std::int32_t row = 0;
        if (!read_row(unit.key, row) || language_.rows().count(row) == 0) {
            conflict(unit, "\"" + unit.key + "\" is no row of the catalogue");
            return;
        }
        const auto [first, is_first] = seen_.emplace(row, unit.place.line);
        if (!is_first) {
            report_.error(CHECK_EXCHANGE, unit.place,
                          "row " + unit.key + " stands in line " + std::to_string(first->second) +
                              " already");
            return;
        }
        if (unit.is_unfinished && !rules_.accepts_unfinished) {
            ++counts_.unfinished;
            return;
        }
        const std::string english = text_from_exchange(unit.source);
        if (english != language_.english(row)) {
            conflict(unit, "row " + unit.key + ": the English text is " + quoted(language_.english(row)) +
                               " now, the file translates " + quoted(english));
            return;
        }
        decide(unit, row);
    }

    /** What to do with a text whose row and English text are those of the catalogue. */
    void decide(const exchange_unit& unit, std::int32_t row) {
        const std::optional<std::string> before = language_.text(row);
        const std::optional<std::string> text =
            unit.translation.empty() ? std::nullopt : std::optional(text_from_exchange(unit.translation));
        const bool is_edited_here = !unit.exported.empty() && translation_mark(before) != unit.exported;
        if (text == before) {
            counts_.same += text ? 1U : 0U;
            confirm(unit, row);
        } else if (is_edited_here && translation_mark(text) == unit.exported) {
            ++counts_.kept;
        } else if (is_edited_here) {
            conflict(unit, "row " + unit.key + ": the catalogue's text became " +
                               quoted(before.value_or("")) + " since the export, the file has " +
                               quoted(text.value_or("")));
        } else if (!text || check_text(unit, row, *text)) {
            ++(!text ? counts_.removed : before ? counts_.changed : counts_.fresh);
            language_.put(row, text);
            language_.forget(row);
            confirm(unit, row);
        }
    }

    void confirm(const exchange_unit& unit, std::int32_t row) {
        if (!unit.is_unfinished && !language_.is_english()) {
            language_.confirm(row);
        }
    }

    /** Refuses what "check" would; placeholders as in English are right, whatever other languages have. */
    bool check_text(const exchange_unit& unit, std::int32_t row, const std::string& text) {
        const std::size_t errors = report_.error_count();
        const bool has_return = text.find('\r') != std::string::npos;
        if (has_return || !is_valid_utf8(text)) { // no table can hold it
            report_.error(CHECK_ENCODING, unit.place,
                          "row " + unit.key +
                              (has_return ? ": holds a carriage return, which the panel "
                                            "cannot show; remove it"
                                          : ": is not valid UTF-8 text"));
            return false;
        }
        std::vector<text_fault> faults = broken_parts_of(text);
        if (language_.is_english() ||
            count_placeholders(text) != count_placeholders(language_.english(row))) {
            const auto more = placeholder_faults(language_.row_with(row, text), text);
            faults.insert(faults.end(), more.begin(), more.end());
        }
        for (const text_fault& fault : faults) {
            report_.add({unit.place, severity::WARNING, fault.check,
                         "row " + unit.key + ", " + quoted(text) + ": " + fault.text, language_.name(),
                         unit.key});
        }
        return report_.error_count() == errors;
    }

    void conflict(const exchange_unit& unit, const std::string& text) {
        if (rules_.skips_conflicts) {
            ++counts_.conflicts;
            report_.warning(CHECK_CONFLICT, unit.place, text);
        } else {
            report_.error(CHECK_CONFLICT, unit.place, text);
        }
    }

    const import_rules& rules_;
    exchange_language& language_;
    diagnostics& report_;
    std::map<std::int32_t, std::size_t> seen_; // the line of each row's first unit
    import_counts counts_;
};

} // namespace

import_counts import_document(const exchange_document& document, const import_rules& rules,
                              exchange_language& language, diagnostics& report) {
    return importer(rules, language, report).take_all(document);
}

} // namespace velarion
