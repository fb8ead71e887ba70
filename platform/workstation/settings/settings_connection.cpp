#include "settings_connection.h"

#include <cstring>
#include <sqlite3.h>

namespace velarion {

namespace {

constexpr int MOST_STEPS = 20000000; // of one statement, against files whose pages lead in circles
constexpr int WRITE_VERSION = 18;    // place in a database's header
constexpr int READ_VERSION = 19;

struct end_statement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using statement_owner = std::unique_ptr<sqlite3_stmt, end_statement>;

platform_code code_of_database(int result) {
    switch (result & 0xff) { // the primary result
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL: // another program holds what recovers a write-ahead log
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

int prepare(sqlite3* database, const char* sql, const std::vector<sql_value>& values,
            statement_owner& statement) {
    sqlite3_stmt* prepared = nullptr;
    int result = sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr);
    statement.reset(prepared);
    for (std::size_t index = 0; result == SQLITE_OK && index < values.size(); ++index) {
        result = bind(prepared, static_cast<int>(index) + 1, values[index]);
    }
    return result;
}

/** @return the path as a URI that SQLite takes for the same file */
std::string uri_of(const std::string& path) {
    const char digits[] = "0123456789ABCDEF";
    std::string uri = path.compare(0, 1, "/") == 0 ? "file://" : "file:";
    for (const char c : path) {
        if (c == '?' || c == '#' || c == '%') {
            const unsigned int byte = static_cast<unsigned char>(c);
            uri += {'%', digits[byte / 16], digits[byte % 16]};
        } else {
            uri += c;
        }
    }
    return uri;
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

void database_bytes::release::operator()(unsigned char* bytes) const {
    sqlite3_free(bytes);
}

void settings_connection::close_database::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

settings_connection::settings_connection(const std::string& file, std::string& fault)
    : file_(file)
    , fault_(fault) {}

settings_connection::~settings_connection() = default;

platform_code settings_connection::open(settings_access access, int wait) {
    std::string name = uri_of(file_);
    name += access == settings_access::READ_UNCHANGED ? "?immutable=1" : "";
    const int flags = access == settings_access::WRITE ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    if (const platform_code failure = open(name.c_str(), flags | SQLITE_OPEN_URI)) {
        return failure;
    }
    if (access == settings_access::WRITE && sqlite3_db_readonly(database_.get(), nullptr) == 1) {
        return fail(PLATFORM_ACCESS_DENIED, "may only be read; check the rights of the file and its folder");
    }
    sqlite3_busy_timeout(database_.get(), wait);
    return PLATFORM_OK;
}

platform_code settings_connection::open_in_memory() {
    return open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY);
}

platform_code settings_connection::open_copy(database_bytes content) {
    if (const platform_code failure = open_in_memory()) {
        return failure;
    }
    // A database in memory has no write-ahead log; SQLite's documentation names these bytes for this purpose.
    for (const int version : {READ_VERSION, WRITE_VERSION}) {
        if (version < content.size) {
            content.bytes.get()[version] = 1;
        }
    }
    const int result =
        sqlite3_deserialize(database_.get(), "main", content.bytes.release(), content.size, content.size,
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
    return result == SQLITE_OK ? PLATFORM_OK : fail_by_database(result);
}

platform_code settings_connection::run(const char* sql, const std::vector<sql_value>& values,
                                       const take_row& take) {
    statement_owner statement;
    int result = prepare(database_.get(), sql, values, statement);
    if (result != SQLITE_OK) {
        return fail_by_database(result);
    }
    while ((result = sqlite3_step(statement.get())) == SQLITE_ROW) {
        if (const platform_code end = take ? take(settings_row(statement.get())) : PLATFORM_OK) {
            return end;
        }
    }
    return result == SQLITE_DONE ? PLATFORM_OK : fail_by_database(result);
}

platform_code settings_connection::serialize(database_bytes& bytes) {
    sqlite3_int64 size = 0;
    unsigned char* const serialized = sqlite3_serialize(database_.get(), "main", &size, 0);
    if (!serialized) {
        return fail(PLATFORM_IO_ERROR, "cannot be read whole; there may be too little memory");
    }
    bytes.bytes.reset(serialized);
    bytes.size = size;
    return PLATFORM_OK;
}

platform_code settings_connection::fail(platform_code code, const std::string& reason) {
    fault_ = "settings store " + file_ + ": " + reason;
    return code;
}

int settings_connection::changed_rows() const {
    return sqlite3_changes(database_.get());
}

int settings_connection::all_changed_rows() const {
    return sqlite3_total_changes(database_.get());
}

platform_code settings_connection::open(const char* name, int flags) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(name, &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) {
        return fail_by_database(result);
    }
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_progress_handler(
        opened, MOST_STEPS, [](void*) { return 1; }, nullptr);
    return PLATFORM_OK;
}

platform_code settings_connection::fail_by_database(int result) {
    const platform_code code = code_of_database(result);
    std::string reason = database_ ? sqlite3_errmsg(database_.get()) : sqlite3_errstr(result);
    const int primary = result & 0xff;
    const int error = database_ ? sqlite3_system_errno(database_.get()) : 0;
    if (error != 0 && (primary == SQLITE_CANTOPEN || primary == SQLITE_IOERR)) {
        reason += std::string(": ") + std::strerror(error);
    }
    if (code == PLATFORM_STORE_BUSY) {
        reason = "is locked by another process; try again later";
    } else if (code == PLATFORM_STORE_DAMAGED) {
        reason += "; move the file away to start with the defaults";
    } else if (code == PLATFORM_ACCESS_DENIED) {
        reason += "; check the rights of the file and its folder";
    }
    return fail(code, reason);
}

} // namespace velarion
