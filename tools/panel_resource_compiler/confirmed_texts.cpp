#include "confirmed_texts.h"

#include "checks.h"
#include "tsv_table.h"

#include <algorithm>
#include <cstdio>

namespace velarion {

namespace {

// FNV-1a with 64 bits, whose halves are laid over each other.
constexpr std::uint64_t FNV_BASIS = 14695981039346656037U;
constexpr std::uint64_t FNV_PRIME = 1099511628211U;
constexpr std::size_t HASH_DIGITS = 8;

bool is_hash(const std::string& text) {
    return text.size() == HASH_DIGITS && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

/** Whether the records of a file are rows in ascending order and hashes. */
bool check_records(const std::string& path, const std::vector<std::string>& columns, diagnostics& report) {
    const std::size_t errors_before = report.error_count();
    ascending_numbers rows("row", CHECK_ROW);
    for (const tsv_record& record : read_tsv_table(path, columns, report)) {
        std::int32_t row = 0;
        if (!read_number_field(record, 0, "row", report, row)) {
            continue;
        }
        rows.take(record.place_of(0), row, report);
        if (!is_hash(record.fields[1])) {
            report.error(CHECK_NUMBER, record.place_of(1),
                         "\"" + record.fields[1] + "\" is no hash of 8 hexadecimal digits; remove the line");
        }
    }
    return report.error_count() == errors_before;
}

} // namespace

std::string english_hash(const std::string& english) {
    std::uint64_t hash = FNV_BASIS;
    for (const char c : english) {
        hash = (hash ^ static_cast<unsigned char>(c)) * FNV_PRIME;
    }
    char digits[HASH_DIGITS + 1];
    std::snprintf(digits, sizeof digits, "%08x",
                  static_cast<unsigned int>((hash ^ (hash >> 32U)) & 0xFFFFFFFFU));
    return digits;
}

confirmed_texts::confirmed_texts(const std::string& catalogue, const std::string& language)
    : table_(catalogue + "/confirmed/" + language + ".tsv", {"row", "english"}) {}

bool confirmed_texts::read(diagnostics& report) {
    return table_.read(report) &&
           (table_.is_new() || check_records(table_.path(), {"row", "english"}, report));
}

confirmation confirmed_texts::state(std::int32_t row, const std::string& english) const {
    const std::vector<std::string> fields = table_.fields(std::to_string(row));
    if (fields.empty()) {
        return confirmation::NONE;
    }
    return fields[1] == english_hash(english) ? confirmation::CURRENT : confirmation::STALE;
}

void confirmed_texts::confirm(std::int32_t row, const std::string& english) {
    table_.put({std::to_string(row), english_hash(english)});
}

} // namespace velarion
