#ifndef SETTINGS_CONNECTION_H
#define SETTINGS_CONNECTION_H

#include "platform_codes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace velarion {

/** What a statement's placeholders take. */
using sql_value = std::variant<std::int64_t, std::string>;

/** The row that a query stands on. */
class settings_row {
public:
    explicit settings_row(sqlite3_stmt* statement)
        : statement_(statement) {}

    /** @param value  receives the column; unchanged on failure. @return whether it holds an integer */
    bool integer(int column, std::int64_t& value) const;
    /** @return the column's bytes; empty when it holds none */
    std::string text(int column) const;

private:
    sqlite3_stmt* statement_;
};

using take_row = std::function<platform_code(const settings_row&)>;

/** How a settings file is opened. */
enum class settings_access {
    READ,           ///< beside other programs; nothing is written, not even to undo an unfinished change
    READ_UNCHANGED, ///< without a lock, when no other program changes the file
    WRITE           ///< undoes an unfinished change of another program
};

/** A database's bytes, as a file holds them. */
struct database_bytes {
    struct release {
        void operator()(unsigned char* bytes) const;
    };
    std::unique_ptr<unsigned char, release> bytes;
    std::int64_t size = 0;
};

/**
 * A connection to a settings file, or to a copy of one in memory. What the file says of itself is not
 * trusted: no trigger, view or function of it runs. One thread.
 *
 * An operation that fails tells in the fault text what is wrong and what to do.
 */
class settings_connection {
public:
    /** @param file   named in fault texts
     *  @param fault  receives the text of a failure; borrowed, and unchanged otherwise */
    settings_connection(const std::string& file, std::string& fault);
    ~settings_connection(); ///< undoes what was not committed
    settings_connection(const settings_connection&) = delete;
    settings_connection& operator=(const settings_connection&) = delete;

    /** @param wait  milliseconds that each statement waits for other programs */
    platform_code open(settings_access access, int wait);
    /** Starts an empty database in memory. */
    platform_code open_in_memory();
    /** Opens a database in memory with the content of a file. */
    platform_code open_copy(database_bytes content);

    /** Runs one statement. @param take  gets each row; a code other than PLATFORM_OK from it ends the query
     */
    platform_code run(const char* sql, const std::vector<sql_value>& values, const take_row& take = {});
    /** @param bytes  receives what a file of this database holds; unchanged on failure */
    platform_code serialize(database_bytes& bytes);

    /** Sets the fault text. @return @p code */
    platform_code fail(platform_code code, const std::string& reason);
    /** @return rows added, changed or removed by the last statement */
    int changed_rows() const;
    /** @return rows added, changed or removed since the opening */
    int all_changed_rows() const;

private:
    struct close_database {
        void operator()(sqlite3* database) const;
    };
    platform_code open(const char* name, int flags);
    platform_code fail_by_database(int result);

    const std::string& file_;
    std::string& fault_;
    std::unique_ptr<sqlite3, close_database> database_;
};

} // namespace velarion

#endif
