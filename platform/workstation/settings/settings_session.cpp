#include "settings_session.h"

#include "replacement_file.h"
#include "settings_tables.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>

namespace velarion {

namespace {

constexpr int READ_WAIT = 2000;   // milliseconds that a reader waits for a change that is made in place
constexpr int WRITE_WAIT = 10000; // milliseconds that a writer waits for other writers
constexpr int MOST_LINKS = 40;
constexpr char BEING_CHANGED[] = "is being changed by another process; try again later";
constexpr const char* JOURNAL_SUFFIXES[] = {"-journal", "-wal"};

/** Calls @p attempt until it no longer returns PLATFORM_STORE_BUSY or the time is over. */
template <typename ATTEMPT> platform_code retry(int milliseconds, const ATTEMPT& attempt) {
    using clock = std::chrono::steady_clock;
    const clock::time_point end = clock::now() + std::chrono::milliseconds(milliseconds);
    platform_code code = attempt();
    while (code == PLATFORM_STORE_BUSY && clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        code = attempt();
    }
    return code;
}

/** @return the path that links at @p path lead to, whether or not something is there */
std::string without_links(const std::string& path) {
    std::error_code failure;
    std::filesystem::path resolved = path;
    for (int links = 0; links < MOST_LINKS; ++links) {
        const std::filesystem::path target = std::filesystem::read_symlink(resolved, failure);
        if (failure) {
            break;
        }
        resolved = resolved.parent_path() / target;
    }
    return resolved.string();
}

std::string folder_of(const std::string& file) {
    const std::string folder = std::filesystem::path(file).parent_path().string();
    return folder.empty() ? "." : folder;
}

int open_folder(const std::string& folder) {
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

/** @return whether a journal is of a change under way: a finished one is gone, empty or begins with zero */
bool is_unfinished(const std::string& journal) {
    const file_descriptor file(::open(journal.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    char first = 0;
    return file.get() < 0 ? errno != ENOENT : ::read(file.get(), &first, 1) == 1 && first != 0;
}

const char* reason_of(platform_code code) {
    switch (code) {
    case PLATFORM_NOT_DURABLE:
        return "is changed, but a loss of power may undo that: its folder did not reach the storage device";
    case PLATFORM_NO_SPACE:
        return "there is no room for the change; the earlier content is kept";
    case PLATFORM_ACCESS_DENIED:
        return "cannot be replaced, the earlier content is kept; check the rights of the file and its folder";
    default:
        return "cannot be written; the earlier content is kept";
    }
}

} // namespace

settings_session::settings_session(const std::string& file, std::string& fault)
    : file_(without_links(file))
    , fault_(fault)
    , holder_(file_, fault)
    , connection_(file_, fault) {}

settings_session::~settings_session() {
    unlock_folder();
}

platform_code settings_session::begin_reading() {
    const std::string earlier_fault = fault_;
    const platform_code code = retry(READ_WAIT, [&] { return begin_reading_once(); });
    if (code == PLATFORM_OK || code == PLATFORM_NOT_FOUND) {
        fault_ = earlier_fault; // of an attempt that another way made good
    }
    return code;
}

/**
 * A reader that is refused has met a program that changes the file in place, a file that needs such a
 * program's change undone, or a folder that SQLite cannot write its own files to. Only a change under way can
 * make what is in the file unfit to be read as it is.
 */
platform_code settings_session::begin_reading_once() {
    if (const platform_code failure = check_file()) {
        return failure;
    }
    const platform_code code = read_file(settings_access::READ);
    if (code != PLATFORM_STORE_BUSY && code != PLATFORM_ACCESS_DENIED) {
        return code;
    }
    if (!has_unfinished_change()) {
        return read_unchanged();
    }
    if (code == PLATFORM_STORE_BUSY) {
        return code;
    }
    if (const platform_code failure = lock_folder(0)) { // the change to be undone is to belong to this file
        return failure;
    }
    const platform_code undone = read_file(settings_access::WRITE);
    unlock_folder();
    return undone;
}

platform_code settings_session::read_file(settings_access access) {
    if (const platform_code failure = connection_.open(access, 0)) {
        return failure;
    }
    if (const platform_code failure = connection_.run("BEGIN", {})) {
        return failure;
    }
    return check_content();
}

/** What two readings have in common is of one time when no change was under way between them. */
platform_code settings_session::read_unchanged() {
    database_bytes first;
    if (const platform_code failure = read_whole(settings_access::READ_UNCHANGED, first)) {
        return failure;
    }
    if (has_unfinished_change()) {
        return fail(PLATFORM_STORE_BUSY, BEING_CHANGED);
    }
    database_bytes second;
    if (const platform_code failure = read_whole(settings_access::READ_UNCHANGED, second)) {
        return failure;
    }
    if (first.size != second.size ||
        std::memcmp(first.bytes.get(), second.bytes.get(), static_cast<std::size_t>(first.size)) != 0) {
        return fail(PLATFORM_STORE_BUSY, BEING_CHANGED);
    }
    if (const platform_code failure = connection_.open_copy(std::move(first))) {
        return failure;
    }
    return check_content();
}

platform_code settings_session::begin_writing() {
    if (const platform_code failure = lock_folder(WRITE_WAIT)) {
        return failure;
    }
    const platform_code code = check_file();
    if (code != PLATFORM_OK) {
        return code == PLATFORM_NOT_FOUND ? begin_anew() : code;
    }
    if (const platform_code failure = hold_file()) {
        return failure;
    }
    bool is_empty = false;
    if (const platform_code failure = check_tables(holder_, is_empty)) {
        return failure;
    }
    if (is_empty) {
        return begin_anew();
    }
    database_bytes content;
    if (const platform_code failure = holder_.serialize(content)) {
        return failure;
    }
    if (const platform_code failure = connection_.open_copy(std::move(content))) {
        return failure;
    }
    return check_structure(connection_);
}

platform_code settings_session::begin_anew() {
    const platform_code code = connection_.open_in_memory();
    return code == PLATFORM_OK ? make_tables(connection_) : code;
}

platform_code settings_session::commit() {
    return connection_.all_changed_rows() == 0 ? PLATFORM_OK : replace_file();
}

platform_code settings_session::read_whole(settings_access access, database_bytes& content) {
    const platform_code code = holder_.open(access, 0);
    return code == PLATFORM_OK ? holder_.serialize(content) : code;
}

platform_code settings_session::check_content() {
    bool is_empty = false;
    const platform_code code = check_tables(connection_, is_empty);
    return code == PLATFORM_OK && is_empty ? PLATFORM_NOT_FOUND : code;
}

platform_code settings_session::check_file() {
    struct stat status = {};
    if (::stat(file_.c_str(), &status) != 0) {
        const int error = errno;
        return error == ENOENT ? PLATFORM_NOT_FOUND
                               : fail(platform_code_of_errno(error), std::strerror(error));
    }
    return S_ISREG(status.st_mode)
               ? PLATFORM_OK
               : fail(PLATFORM_STORE_DAMAGED, "is not a file; move it away to start with the defaults");
}

platform_code settings_session::lock_folder(int wait) {
    folder_.reset(open_folder(folder_of(file_)));
    if (folder_.get() < 0) {
        const int error = errno;
        return fail(platform_code_of_errno(error),
                    std::string("its folder cannot be opened: ") + std::strerror(error));
    }
    return retry(wait, [&] {
        if (::flock(folder_.get(), LOCK_EX | LOCK_NB) == 0) {
            return PLATFORM_OK;
        }
        const int error = errno;
        return error == EWOULDBLOCK ? fail(PLATFORM_STORE_BUSY, BEING_CHANGED)
                                    : fail(platform_code_of_errno(error), std::strerror(error));
    });
}

/** Closing alone would leave the lock to a child process that was forked meanwhile, for the child's life. */
void settings_session::unlock_folder() {
    if (folder_.get() >= 0) {
        ::flock(folder_.get(), LOCK_UN);
    }
    folder_.reset();
}

/**
 * Other programs may hold the file that is to be replaced open. This undoes the change of one that died,
 * waits for one that is changing it, and lets none begin; readers go on. A write-ahead log would stay behind
 * and be taken for the new file's, so the file goes back to the other way first.
 */
platform_code settings_session::hold_file() {
    if (const platform_code failure = holder_.open(settings_access::WRITE, WRITE_WAIT)) {
        return failure;
    }
    const platform_code code = retry(WRITE_WAIT, [&] { // the change of mode itself does not wait
        return holder_.run("PRAGMA journal_mode = DELETE", {}, [&](const settings_row& row) {
            return row.text(0) == "delete" ? PLATFORM_OK : fail(PLATFORM_STORE_BUSY, BEING_CHANGED);
        });
    });
    return code == PLATFORM_OK ? holder_.run("BEGIN IMMEDIATE", {}) : code;
}

platform_code settings_session::replace_file() {
    database_bytes content;
    if (const platform_code failure = connection_.serialize(content)) {
        return failure;
    }
    file_place place;
    place.folder.reset(::fcntl(folder_.get(), F_DUPFD_CLOEXEC, 0));
    place.name = std::filesystem::path(file_).filename().string();
    std::unique_ptr<replacement_file> replacement;
    platform_code code = replacement_file::create(std::move(place), replacement);
    if (code == PLATFORM_OK) {
        prepare_replacement(*replacement, content);
        code = replacement->commit();
    }
    return code == PLATFORM_OK ? code : fail(code, reason_of(code));
}

/** A failure in here makes the replacement's commit() fail. */
void settings_session::prepare_replacement(replacement_file& replacement, const database_bytes& content) {
    std::size_t count = 0;
    static_cast<void>(replacement.write(content.bytes.get(), static_cast<std::size_t>(content.size), count));
    struct stat replaced = {};
    if (::stat(file_.c_str(), &replaced) == 0) {
        static_cast<void>(replacement.take_rights_of(replaced));
        return;
    }
    for (const char* suffix : JOURNAL_SUFFIXES) {
        ::unlink((file_ + suffix).c_str()); // without its file it would be taken for the new file's
    }
}

bool settings_session::has_unfinished_change() const {
    return std::any_of(std::begin(JOURNAL_SUFFIXES), std::end(JOURNAL_SUFFIXES),
                       [this](const char* suffix) { return is_unfinished(file_ + suffix); });
}

} // namespace velarion
