#include "tsv_table.h"

#include <algorithm>
#include <charconv>
#include <fstream>

namespace {

const char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

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

bool resolve_escapes(const std::string& field, std::string& resolved, std::string& fault) {
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
            fault = std::string("unknown escape \"\\") + (escape == '\0' ? "" : std::string(1, escape)) +
                    "\"; use \\n, \\t or \\\\";
            return false;
        }
    }
    return true;
}

/** The number of continuation bytes that a lead byte asks for, or -1. */
int continuation_count(unsigned char lead) {
    if (lead < 0x80) {
        return 0;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 1;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 2;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : -1;
}

/** The second byte rules out overlong forms, surrogates and code points above U+10FFFF. */
bool is_second_byte(unsigned char lead, unsigned char second) {
    switch (lead) {
    case 0xE0:
        return second >= 0xA0 && second <= 0xBF;
    case 0xED:
        return second >= 0x80 && second <= 0x9F;
    case 0xF0:
        return second >= 0x90 && second <= 0xBF;
    case 0xF4:
        return second >= 0x80 && second <= 0x8F;
    default:
        return (second & 0xC0) == 0x80;
    }
}

class table_reader {
public:
    table_reader(const std::string& path, const std::vector<std::string>& columns, diagnostics& report)
        : path_(path)
        , columns_(columns)
        , report_(report) {}

    std::vector<tsv_record> read() {
        std::ifstream file(path_, std::ios::binary);
        if (!file) {
            report_.error({path_, 0}, "cannot be opened for reading");
            return {};
        }
        std::string line;
        for (std::size_t number = 1; std::getline(file, line); ++number) {
            take_line({path_, number}, line);
        }
        if (file.bad()) {
            report_.error({path_, 0}, "cannot be read");
        } else if (!has_header_) {
            report_.error({path_, 0}, "has no line with the names of its columns");
        }
        return std::move(records_);
    }

private:
    void take_line(const source_place& place, std::string& line) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (place.line == 1 && line.compare(0, 3, BYTE_ORDER_MARK) == 0) {
            line.erase(0, 3);
        }
        if (line.empty() || line[0] == '#') {
            return;
        }
        if (!is_valid_utf8(line) || line.find('\0') != std::string::npos) {
            report_.error(place, "is not valid UTF-8 text");
            return;
        }
        if (!has_header_) {
            has_header_ = true;
            take_header(place, split_at_tabs(line));
        } else if (header_is_good_) {
            take_record(place, split_at_tabs(line));
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
    }

    void fail_header(const source_place& place, const std::string& text) {
        header_is_good_ = false;
        report_.error(place, text);
    }

    void take_record(const source_place& place, const std::vector<std::string>& fields) {
        if (fields.size() != columns_.size()) {
            report_.error(place, "has " + std::to_string(fields.size()) + " fields instead of " +
                                     std::to_string(columns_.size()));
            return;
        }
        tsv_record record{place, {}};
        for (const std::size_t position : position_) {
            std::string resolved;
            std::string fault;
            if (!resolve_escapes(fields[position], resolved, fault)) {
                report_.error(place, fault);
                return;
            }
            record.fields.push_back(std::move(resolved));
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

bool is_valid_utf8(const std::string& text) {
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        const int count = continuation_count(lead);
        if (count < 0 || i + static_cast<std::size_t>(count) >= text.size()) {
            return false;
        }
        for (int k = 1; k <= count; ++k) {
            const unsigned char byte = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if (k == 1 ? !is_second_byte(lead, byte) : (byte & 0xC0) != 0x80) {
                return false;
            }
        }
        i += static_cast<std::size_t>(count) + 1;
    }
    return true;
}

bool read_number_field(const tsv_record& record, std::size_t field, const std::string& what,
                       diagnostics& report, std::int32_t& number) {
    const std::string& text = record.fields[field];
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (text.empty() || result.ec != std::errc() || result.ptr != end) {
        report.error(record.place, what + " \"" + text + "\" is not a whole number");
        return false;
    }
    return true;
}

std::vector<tsv_record> read_tsv_table(const std::string& path, const std::vector<std::string>& columns,
                                       diagnostics& report) {
    return table_reader(path, columns, report).read();
}
