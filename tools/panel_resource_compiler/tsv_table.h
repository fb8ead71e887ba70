#ifndef TSV_TABLE_H
#define TSV_TABLE_H

#include "diagnostics.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velarion {

/** One record of a table. */
struct tsv_record {
    source_place place;
    std::vector<std::string> fields;  ///< in the order of the columns asked for, escapes resolved
    std::vector<std::size_t> columns; ///< where each field starts, as of source_place

    source_place place_of(std::size_t field) const { return {place.file, place.line, columns[field]}; }
};

/**
 * Reads a tab-separated table: UTF-8, one record a line, the names of the columns in the first line.
 * Empty lines and lines that start with "#" are comments. A field holds "\n" for a line break, "\t" for a
 * tab and "\\" for a backslash.
 *
 * @param columns  the columns the table must have; any other is an error, and so is a text that stands first
 * and is not the first of these: it could begin like a comment
 * @param report   receives every fault; a record with a fault is left out
 * @return the records in the order of the file
 */
std::vector<tsv_record> read_tsv_table(const std::string& path, const std::vector<std::string>& columns,
                                       diagnostics& report);

/**
 * Resolves the escapes of a field.
 *
 * @param fault,position  receive the reason, and where in the field it stands, when the result is false
 */
bool resolve_escapes(const std::string& field, std::string& resolved, std::string& fault,
                     std::size_t& position);

/** Reads a decimal number that fits 32 bits, without blanks or sign of plus; reports what is not one. */
bool read_number_field(const tsv_record& record, std::size_t field, const std::string& what,
                       diagnostics& report, std::int32_t& number);

/** Holds the numbers of a table's rows against each other: each stands once, and they ascend. */
class ascending_numbers {
public:
    /** @param what  "id" or "row" @param check  the name of the check */
    ascending_numbers(std::string what, const char* check)
        : what_(std::move(what))
        , check_(check) {}

    /** Reports a number that stands twice, or after a higher one. @return whether it stands for the first
     * time */
    bool take(const source_place& place, std::int32_t number, diagnostics& report);

private:
    std::string what_;
    const char* check_;
    std::map<std::int32_t, std::size_t> lines_; // by number
};

} // namespace velarion

#endif
