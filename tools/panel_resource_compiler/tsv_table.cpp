#include "tsv_table.h"

#include "checks.h"
#include "text_lines.h"
#include "whole_number.h"

#include <algorithm>

namespace velarion {

namespace {

std::vector<std::string> split_at_tabs(const std::string& line) {
    std::vector<std::string> fields;
    std::string::size_type start = 0;
    for (;;) {
        const std::string::size_type tab = line.find('\t', start);
        fields.push_back(line.substr(start, tab - start));
        if (tab == std::string::npos) {
            return fields;
        }
        start = tab + 1;
    }
}

class table_reader {
public:
    table_reader(const std::string& path, const std::vector<std::string>& columns, diagnostics& report)
        : path_(path)
        , columns_(columns)
        , report_(report) {}

    std::vector<tsv_record> read() {
        std::vector<text_line> lines;
        const bool is_read = read_text_lines(path_, lines, report_);
        for (const text_line& line : lines) {
            take_line(line, split_at_tabs(line.text));
        }
        if (is_read && !has_header_) {
            report_.error(CHECK_TABLE, {path_, 0}, "has no line with the names of its columns");
        }
        return std::move(records_);
    }

private:
    void take_line(const text_line& line, const std::vector<std::string>& fields) {
        if (!has_header_) {
            has_header_ = true;
            take_header(line.place, fields);
        } else if (header_is_good_) {
            take_record(line, fields);
        }
    }

    void take_header(const source_place& place, const std::vector<std::string>& names) {
        header_is_good_ = true;
        position_.assign(columns_.size(), names.size());
        for (std::size_t i = 0; i < names.size(); ++i) {
            const auto column = std::find(columns_.begin(), columns_.end(), names[i]);
            if (column == columns_.end()) {
                fail_header(place, "unknown column \"" + names[i] + "\"");
                continue;
            }
            std::size_t& position = position_[static_cast<std::size_t>(column - columns_.begin())];
            if (position != names.size()) {
                fail_header(place, "column \"" + names[i] + "\" stands twice");
            }
            position = i;
        }
        for (std::size_t c = 0; c < columns_.size(); ++c) {
            if (position_[c] == names.size()) {
                fail_header(place, "column \"" + columns_[c] + "\" is missing");
            }
        }
        if (header_is_good_ && names[0] != columns_[0] && names[0] != "id" && names[0] != "row") {
            fail_header(place, "column \"" + names[0] +
                                   "\" stands first, where \"#\" starts a comment; put \"" + columns_[0] +
                                   "\" there");
        }
    }

    void fail_header(const source_place& place, const std::string& text) {
        header_is_good_ = false;
        report_.error(CHECK_TABLE, place, text);
    }

    void report_field_count(const text_line& line, const std::vector<std::string>& fields) {
        std::size_t extra_tab = 0; // the first tab too many
        for (std::size_t i = 0; i < columns_.size() && i < fields.size(); ++i) {
            extra_tab += fields[i].size() + (i == 0 ? 0 : 1);
        }
        std::vector<std::string> names(columns_.size());
        for (std::size_t c = 0; c < columns_.size(); ++c) {
            names[position_[c]] = columns_[c];
        }
        std::string form;
        for (const std::string& name : names) {
            form += (form.empty() ? "" : " TAB ") + name;
        }
        const std::size_t count = fields.size();
        const bool is_short = count < columns_.size();
        const std::size_t tabs = is_short ? columns_.size() - count : count - columns_.size();
        const std::string tabs_are = tabs == 1 ? "a tab is " : std::to_string(tabs) + " tabs are ";
        report_.error(
            CHECK_TABLE, is_short ? line.place : place_in(line.place, line.text, extra_tab),
            "has " + std::to_string(count) + (count == 1 ? " field" : " fields") + " instead of " +
                std::to_string(columns_.size()) + ": " + tabs_are +
                (is_short ? "missing; a line is " : "too many (\\t stands for one in a text); a line is ") +
                form);
    }

    void take_record(const text_line& line, const std::vector<std::string>& fields) {
        if (fields.size() != columns_.size()) {
            report_field_count(line, fields);
            return;
        }
        tsv_record record{line.place, {}, {}};
        for (const std::size_t position : position_) {
            std::size_t offset = position; // the tabs before the field
            for (std::size_t before = 0; before < position; ++before) {
                offset += fields[before].size();
            }
            std::string resolved;
            std::string fault;
            std::size_t fault_position = 0;
            if (!resolve_escapes(fields[position], resolved, fault, fault_position)) {
                report_.error(CHECK_ESCAPE, place_in(line.place, line.text, offset + fault_position), fault);
                return;
            }
            record.fields.push_back(std::move(resolved));
            record.columns.push_back(place_in(line.place, line.text, offset).column);
        }
        records_.push_back(std::move(record));
    }

    const std::string& path_;
    const std::vector<std::string>& columns_;
    diagnostics& report_;
    bool has_header_ = false;
    bool header_is_good_ = false;
    std::vector<std::size_t> position_; // where in a line each column stands
    std::vector<tsv_record> records_;
};

} // namespace

bool resolve_escapes(const std::string& field, std::string& resolved, std::string& fault,
                     std::size_t& position) {
    resolved.clear();
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            resolved += field[i];
            continue;
        }
        ++i;
        const char escape = i < field.size() ? field[i] : '\0';
        if (escape == 'n') {
            resolved += '\n';
        } else if (escape == 't') {
            resolved += '\t';
        } else if (escape == '\\') {
            resolved += '\\';
        } else {
            position = i - 1;
            fault = std::string("unknown escape \"\\") + (escape == '\0' ? "" : std::string(1, escape)) +
                    "\"; use \\n, \\t or \\\\";
            return false;
        }
    }
    return true;
}

bool read_number_field(const tsv_record& record, std::size_t field, const std::string& what,
                       diagnostics& report, std::int32_t& number) {
    const std::string& text = record.fields[field];
    const std::string fault = read_whole_number(text, number);
    if (!fault.empty()) {
        report.error(CHECK_NUMBER, record.place_of(field), what + " \"" + text + "\" " + fault);
    }
    return fault.empty();
}

bool ascending_numbers::take(const source_place& place, std::int32_t number, diagnostics& report) {
    const std::string text = what_ + ' ' + std::to_string(number) + " stands ";
    const std::int32_t last = lines_.empty() ? number : lines_.rbegin()->first;
    const auto [first, is_new] = lines_.emplace(number, place.line);
    if (!is_new) {
        report.error(check_, place, text + "in line " + std::to_string(first->second) + " already");
    } else if (number < last) {
        report.error(check_, place, text + "after " + std::to_string(last) + "; " + what_ + "s must ascend");
    }
    return is_new;
}

std::vector<tsv_record> read_tsv_table(const std::string& path, const std::vector<std::string>& columns,
                                       diagnostics& report) {
    return table_reader(path, columns, report).read();
}

} // namespace velarion
