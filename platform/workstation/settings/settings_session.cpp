#include "settings_session.h"

#include "platform_codes.h"

#include <cerrno>
#include <cstring>
#include <sqlite3.h>
#include <sys/stat.h>

namespace panel_platform {

namespace {

const int READ_WAIT = 2000;   // milliseconds that a reader waits for another process
const int WRITE_WAIT = 10000; // milliseconds that a writer waits
const std::int64_t SCHEMA_VERSION = 1;
const char START_ANEW[] = "; move the file away to start with the defaults";

const char* const SCHEMA[] = {
    "CREATE TABLE setting (grp INTEGER NOT NULL, item INTEGER NOT NULL,"
    " width INTEGER NOT NULL CHECK (width IN (8, 16, 32)), name TEXT NOT NULL UNIQUE,"
    " value INTEGER NOT NULL CHECK (typeof(value) = 'integer' AND value >= 0 AND value < (1 << width)),"
    " PRIMARY KEY (grp, item))",
    "CREATE TABLE language_attribute (language_id INTEGER NOT NULL, attribute INTEGER NOT NULL,"
    " text TEXT NOT NULL CHECK (length(CAST(text AS BLOB)) <= 107), PRIMARY KEY (language_id, attribute))",
    "PRAGMA user_version = 1",
};

int code_of_database(int result) {
    switch (result & 0xff) { // the primary result
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return PLATFORM_STORE_BUSY;
    case SQLITE_FULL:
        return PLATFORM_NO_SPACE;
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return PLATFORM_ACCESS_DENIED;
    case SQLITE_IOERR:
    case SQLITE_NOMEM:
        return PLATFORM_IO_ERROR;
    default:
        return PLATFORM_STORE_DAMAGED;
    }
}

int bind(sqlite3_stmt* statement, int index, const sql_value& value) {
    if (const std::int64_t* number = std::get_if<std::int64_t>(&value)) {
        return sqlite3_bind_int64(statement, index, *number);
    }
    const std::string& text = std::get<std::string>(value);
    return sqlite3_bind_text64(statement, index, text.data(), text.size(), nullptr, SQLITE_UTF8);
}

int bind_all(sqlite3_stmt* statement, const std::vector<sql_value>& values) {
    int result = SQLITE_OK;
    for (std::size_t index = 0; result == SQLITE_OK && index < values.size(); ++index) {
        result = bind(statement, static_cast<int>(index) + 1, values[index]);
    }
    return result;
}

int take_number(const settings_row& row, std::int64_t& number) {
    return row.integer(0, number) ? PLATFORM_OK : PLATFORM_STORE_DAMAGED;
}

} // namespace

bool settings_row::integer(int column, std::int64_t& value) const {
    if (sqlite3_column_type(statement_, column) != SQLITE_INTEGER) {
        return false;
    }
    value = sqlite3_column_int64(statement_, column);
    return true;
}

std::string settings_row::text(int column) const {
    const void* const bytes = sqlite3_column_blob(statement_, column);
    const int length = sqlite3_column_bytes(statement_, column);
    return bytes ? std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(length)) : "";
}

settings_session::settings_session(const std::string& file, std::string& fault)
    : file_(file)
    , fault_(fault)
    , database_(nullptr) {}

settings_session::~settings_session() {
    sqlite3_close(database_);
}

int settings_session::begin_reading() {
    struct stat status = {};
    if (::stat(file_.c_str(), &status) != 0) {
        const int error = errno;
        return error == ENOENT ? static_cast<int>(PLATFORM_NOT_FOUND)
                               : fail(platform_code_of_errno(error), std::strerror(error));
    }
    if (!S_ISREG(status.st_mode)) {
        return fail(PLATFORM_STORE_DAMAGED, std::string("is not a file") + START_ANEW);
    }
    // Opened for writing all the same: a writer that died may have left changes to be undone first.
    int code = open(SQLITE_OPEN_READWRITE, READ_WAIT);
    if (code == PLATFORM_OK) {
        code = run("BEGIN", {});
    }
    bool is_empty = false;
    if (code == PLATFORM_OK) {
        code = read_schema(is_empty);
    }
    return code == PLATFORM_OK && is_empty ? static_cast<int>(PLATFORM_NOT_FOUND) : code;
}

int settings_session::begin_writing() {
    int code = open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, WRITE_WAIT);
    if (code == PLATFORM_OK) {
        code = run("BEGIN IMMEDIATE", {});
    }
    bool is_empty = false;
    if (code == PLATFORM_OK) {
        code = read_schema(is_empty);
    }
    if (code != PLATFORM_OK || !is_empty) {
        return code;
    }
    for (const char* statement : SCHEMA) {
        code = code == PLATFORM_OK ? run(statement, {}) : code;
    }
    return code;
}

int settings_session::commit() {
    return run("COMMIT", {});
}

int settings_session::run(const char* sql, const std::vector<sql_value>& values,
                          const std::function<int(const settings_row&)>& take) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
    if (result == SQLITE_OK) {
        result = bind_all(statement, values);
    }
    int code = PLATFORM_OK;
    if (result == SQLITE_OK) {
        result = sqlite3_step(statement);
        while (result == SQLITE_ROW && code == PLATFORM_OK) {
            code = take ? take(settings_row(statement)) : static_cast<int>(PLATFORM_OK);
            result = code == PLATFORM_OK ? sqlite3_step(statement) : result;
        }
    }
    if (result != SQLITE_DONE && code == PLATFORM_OK) {
        code = fail_by_database(result);
    }
    sqlite3_finalize(statement);
    return code;
}

int settings_session::fail(int code, const std::string& reason) {
    fault_ = "settings store " + file_ + ": " + reason;
    return code;
}

int settings_session::changed_rows() const {
    return sqlite3_changes(database_);
}

int settings_session::open(int flags, int wait) {
    const int result = sqlite3_open_v2(file_.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK) {
        return fail_by_database(result);
    }
    sqlite3_busy_timeout(database_, wait);
    return PLATFORM_OK;
}

int settings_session::read_schema(bool& is_empty) {
    std::int64_t version = 0;
    std::int64_t objects = 0;
    int code =
        run("PRAGMA user_version", {}, [&](const settings_row& row) { return take_number(row, version); });
    if (code == PLATFORM_OK) {
        code = run("SELECT count(*) FROM sqlite_master", {},
                   [&](const settings_row& row) { return take_number(row, objects); });
    }
    if (code != PLATFORM_OK) {
        return code;
    }
    is_empty = version == 0 && objects == 0; // a file whose first writer has not committed yet
    if (version == SCHEMA_VERSION || is_empty) {
        return PLATFORM_OK;
    }
    return fail(PLATFORM_STORE_DAMAGED, "has schema version " + std::to_string(version) + " instead of " +
                                            std::to_string(SCHEMA_VERSION) + START_ANEW);
}

int settings_session::fail_by_database(int result) {
    const int code = code_of_database(result);
    std::string reason = database_ ? sqlite3_errmsg(database_) : sqlite3_errstr(result);
    if (code == PLATFORM_STORE_BUSY) {
        reason += " by another process; try again later";
    } else if (code == PLATFORM_STORE_DAMAGED) {
        reason += START_ANEW;
    } else if (code == PLATFORM_ACCESS_DENIED) {
        reason += "; check the rights of the file and its folder";
    }
    return fail(code, reason);
}

} // namespace panel_platform
