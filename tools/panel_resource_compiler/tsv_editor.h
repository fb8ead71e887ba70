#ifndef TSV_EDITOR_H
#define TSV_EDITOR_H

#include "diagnostics.h"
#include "file_replacement.h"

#include <cstddef>
#include <list>
#include <map>
#include <string>
#include <vector>

namespace velarion {

/**
 * A tab-separated table for changing: what is not changed stays byte for byte, comments, empty lines, line
 * ends and the order of the columns included. The first of the columns asked for is the key: a number, by
 * which rows ascend, or a text.
 *
 * Fields are given and delivered in the order of the columns asked for, without escapes.
 */
class tsv_editor {
public:
    /** @param columns  as read_tsv_table() takes them */
    tsv_editor(std::string path, std::vector<std::string> columns);
    tsv_editor(tsv_editor&&) = default;
    tsv_editor& operator=(tsv_editor&&) = default;

    /**
     * Reads the table. A file that is not there is an empty table, which save() makes when it got a row.
     *
     * @param report  receives every fault, as of read_tsv_table()
     * @return whether nothing was reported; the table is usable only then
     */
    bool read(diagnostics& report);

    const std::string& path() const { return path_; }
    bool has(const std::string& key) const { return rows_.count(key) != 0; }
    /** @return the fields of a key's first row; none when it has no row */
    std::vector<std::string> fields(const std::string& key) const;
    /** The number of a key's line in the file as it was read; 0 for a row that was put in, or none. */
    std::size_t line_of(const std::string& key) const;
    /** The different keys, ascending. */
    std::vector<std::string> keys() const;

    /**
     * Replaces a key's row, or puts one in behind the row with the next lower key. Fields hold no CR.
     *
     * @param fields  one for each column
     */
    void put(const std::vector<std::string>& fields);
    /** Removes a key's row; comments stay. @return whether there was one */
    bool remove(const std::string& key);
    /** A field as a table holds it. */
    static std::string escaped(const std::string& field);

    /** Brings the rows into ascending order; comments and empty lines go with the row below them. */
    void sort();

    bool is_sorted() const;
    bool is_changed() const;
    /** Whether read() found no file. */
    bool is_new() const { return is_new_; }
    std::string contents() const;
    /** Gives what changed to a replacement of files. */
    void save(file_replacement& files) const;

private:
    struct line {
        std::string text; ///< with its end
        std::vector<std::string> fields;
        std::size_t number; ///< in the file as it was read, from 1; 0 for a new line
    };

    /** Numbers by their value, texts behind them. */
    struct key_order {
        bool operator()(const std::string& a, const std::string& b) const;
    };

    void take_header();
    void index();
    std::string format(const std::vector<std::string>& fields, const std::string& end) const;

    std::string path_;
    std::vector<std::string> columns_;
    std::vector<std::size_t> order_; ///< for each column of the file, its index in columns_
    std::string old_contents_;
    bool is_new_ = false;
    std::string line_end_ = "\n";
    std::list<line> lines_;
    std::list<line>::iterator header_; ///< the line with the names of the columns
    std::map<std::string, std::list<line>::iterator, key_order> rows_;
};

} // namespace velarion

#endif
