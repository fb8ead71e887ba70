#include "settings_tables.h"

#include <algorithm>
#include <cstddef>

namespace velarion {

namespace {

constexpr std::int64_t SCHEMA_VERSION = 1;
constexpr char START_ANEW[] = "; move the file away to start with the defaults";

constexpr const char* SCHEMA[] = {
    "CREATE TABLE setting (grp INTEGER NOT NULL, item INTEGER NOT NULL,"
    " width INTEGER NOT NULL CHECK (width IN (8, 16, 32)), name TEXT NOT NULL UNIQUE,"
    " value INTEGER NOT NULL CHECK (typeof(value) = 'integer' AND value >= 0 AND value < (1 << width)),"
    " PRIMARY KEY (grp, item))",
    "CREATE TABLE language_attribute (language_id INTEGER NOT NULL, attribute INTEGER NOT NULL,"
    " text TEXT NOT NULL CHECK (length(CAST(text AS BLOB)) <= 107), PRIMARY KEY (language_id, attribute))",
    "PRAGMA user_version = 1",
};

/** A table with the columns that its statements use; the key's first, in their order. */
struct expected_table {
    const char* kind; // asks what the name belongs to
    const char* columns;
    std::vector<std::string> names;
};

const std::vector<expected_table>& expected_tables() {
    static const std::vector<expected_table> tables = {
        {"PRAGMA main.table_list('setting')",
         "PRAGMA main.table_xinfo('setting')",
         {"grp", "item", "width", "name", "value"}},
        {"PRAGMA main.table_list('language_attribute')",
         "PRAGMA main.table_xinfo('language_attribute')",
         {"language_id", "attribute", "text"}},
    };
    return tables;
}

platform_code read_number(settings_connection& connection, const char* sql, std::int64_t& number) {
    return connection.run(sql, {}, [&](const settings_row& row) {
        return row.integer(0, number)
                   ? PLATFORM_OK
                   : connection.fail(PLATFORM_STORE_DAMAGED, std::string("has no version") + START_ANEW);
    });
}

/** @param is_plain  receives whether the name belongs to a table that keeps what it shows */
platform_code check_kind(settings_connection& connection, const expected_table& table, bool& is_plain) {
    return connection.run(table.kind, {}, [&](const settings_row& row) {
        is_plain = row.text(0) == "main" && row.text(2) == "table";
        return PLATFORM_OK;
    });
}

/** @param is_fit  receives whether the table has its columns and its key, and computes none */
platform_code check_columns(settings_connection& connection, const expected_table& table, bool& is_fit) {
    constexpr std::ptrdiff_t KEY_COLUMNS = 2;
    std::size_t found = 0;
    is_fit = true;
    const platform_code code = connection.run(table.columns, {}, [&](const settings_row& row) {
        std::int64_t key = -1;
        std::int64_t hidden = -1;
        const auto name = std::find(table.names.begin(), table.names.end(), row.text(1));
        const std::ptrdiff_t place = name - table.names.begin();
        found += name != table.names.end() ? 1U : 0U;
        is_fit = is_fit && row.integer(5, key) && key == (place < KEY_COLUMNS ? place + 1 : 0) &&
                 row.integer(6, hidden) && hidden == 0;
        return PLATFORM_OK;
    });
    is_fit = is_fit && found == table.names.size();
    return code;
}

platform_code check_table(settings_connection& connection, const expected_table& table) {
    bool is_plain = false;
    if (const platform_code failure = check_kind(connection, table, is_plain)) {
        return failure;
    }
    bool is_fit = false;
    if (is_plain) {
        if (const platform_code failure = check_columns(connection, table, is_fit)) {
            return failure;
        }
    }
    return is_fit ? PLATFORM_OK
                  : connection.fail(PLATFORM_STORE_DAMAGED,
                                    std::string("holds other tables than a settings store") + START_ANEW);
}

} // namespace

platform_code make_tables(settings_connection& connection) {
    for (const char* statement : SCHEMA) {
        if (const platform_code failure = connection.run(statement, {})) {
            return failure;
        }
    }
    return PLATFORM_OK;
}

platform_code check_tables(settings_connection& connection, bool& is_empty) {
    std::int64_t version = 0;
    std::int64_t objects = 0;
    std::int64_t triggers = 0;
    if (const platform_code failure = read_number(connection, "PRAGMA user_version", version)) {
        return failure;
    }
    if (const platform_code failure =
            read_number(connection, "SELECT count(*) FROM sqlite_master", objects)) {
        return failure;
    }
    is_empty = version == 0 && objects == 0;
    if (is_empty) {
        return PLATFORM_OK;
    }
    if (version != SCHEMA_VERSION) {
        return connection.fail(PLATFORM_STORE_DAMAGED, "has schema version " + std::to_string(version) +
                                                           " instead of " + std::to_string(SCHEMA_VERSION) +
                                                           START_ANEW);
    }
    if (const platform_code failure =
            read_number(connection, "SELECT count(*) FROM sqlite_master WHERE type = 'trigger'", triggers)) {
        return failure;
    }
    if (triggers > 0) {
        return connection.fail(PLATFORM_STORE_DAMAGED, std::string("holds triggers") + START_ANEW);
    }
    for (const expected_table& table : expected_tables()) {
        if (const platform_code failure = check_table(connection, table)) {
            return failure;
        }
    }
    return PLATFORM_OK;
}

platform_code check_structure(settings_connection& connection) {
    if (const platform_code failure = connection.run("PRAGMA ignore_check_constraints = 1", {})) {
        return failure;
    }
    const platform_code code = connection.run("PRAGMA integrity_check(1)", {}, [&](const settings_row& row) {
        return row.text(0) == "ok" ? PLATFORM_OK
                                   : connection.fail(PLATFORM_STORE_DAMAGED,
                                                     std::string("has damaged pages or indices and is not "
                                                                 "changed") +
                                                         START_ANEW);
    });
    return code == PLATFORM_OK ? connection.run("PRAGMA ignore_check_constraints = 0", {}) : code;
}

} // namespace velarion
