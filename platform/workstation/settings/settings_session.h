#ifndef SETTINGS_SESSION_H
#define SETTINGS_SESSION_H

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace panel_platform {

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

/**
 * One transaction on the file of the settings store: opened for one operation and closed after it,
 * so that a change by another process, or a replaced file, is seen at once. One thread.
 *
 * Every operation returns PLATFORM_OK or a code, and tells in the fault text what is wrong and what to do.
 */
class settings_session {
public:
    /** @param fault  receives the text of a failure; borrowed, and unchanged otherwise */
    settings_session(const std::string& file, std::string& fault);
    ~settings_session(); ///< undoes what was not committed
    settings_session(const settings_session&) = delete;
    settings_session& operator=(const settings_session&) = delete;

    /** @return PLATFORM_NOT_FOUND, without a fault text, while nothing is stored yet */
    int begin_reading();
    /** Makes the file and its tables when they are missing. */
    int begin_writing();
    int commit();

    /** Runs one statement. @param take  gets each row; a code other than PLATFORM_OK from it ends the query
     */
    int run(const char* sql, const std::vector<sql_value>& values,
            const std::function<int(const settings_row&)>& take = {});

    /** Sets the fault text. @return @p code */
    int fail(int code, const std::string& reason);
    /** @return rows added, changed or removed by the last statement */
    int changed_rows() const;

private:
    int open(int flags, int wait);
    int read_schema(bool& is_empty);
    int fail_by_database(int result);

    const std::string& file_;
    std::string& fault_;
    sqlite3* database_;
};

} // namespace panel_platform

#endif
