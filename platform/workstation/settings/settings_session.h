#ifndef SETTINGS_SESSION_H
#define SETTINGS_SESSION_H

#include "file_descriptor.h"
#include "settings_connection.h"

#include <string>

namespace velarion {

class replacement_file;

/**
 * One transaction on the settings file, which is opened for one operation and closed after it, so that a
 * change by another process, or a replaced file, is seen at once. One thread.
 *
 * A change is made in a copy, which takes the file's place as a whole. The file that readers have open is
 * never touched, so they wait for no writer, and a writer that dies or has no room leaves the earlier file.
 * Locks of SQLite keep programs apart that change the file in place.
 *
 * Every operation tells in the fault text what is wrong and what to do.
 */
class settings_session {
public:
    /** @param file   path of the settings file; what a link there leads to is used and replaced
     *  @param fault  receives the text of a failure; borrowed, and unchanged otherwise */
    settings_session(const std::string& file, std::string& fault);
    ~settings_session();
    settings_session(const settings_session&) = delete;
    settings_session& operator=(const settings_session&) = delete;

    /** @return PLATFORM_NOT_FOUND, without a fault text, while nothing is stored yet */
    platform_code begin_reading();
    /** Waits for other writers. A missing file is one without rows. */
    platform_code begin_writing();
    /** Stores what was changed. @return PLATFORM_NOT_DURABLE when it is stored, unless power is lost soon */
    platform_code commit();

    /** @return what runs the statements of the transaction */
    settings_connection& connection() { return connection_; }
    /** Sets the fault text. @return @p code */
    platform_code fail(platform_code code, const std::string& reason) {
        return connection_.fail(code, reason);
    }

private:
    platform_code check_file();
    platform_code check_content();
    platform_code read_whole(settings_access access, database_bytes& content);
    platform_code begin_reading_once();
    platform_code read_file(settings_access access);
    platform_code read_unchanged();
    platform_code lock_folder(int wait);
    void unlock_folder();
    platform_code hold_file();
    platform_code begin_anew();
    platform_code replace_file();
    void prepare_replacement(replacement_file& replacement, const database_bytes& content);
    bool has_unfinished_change() const;

    const std::string file_; // no link
    std::string& fault_;
    file_descriptor folder_;     // locked against other writers
    settings_connection holder_; // keeps other programs from changing the file that is to be replaced
    settings_connection connection_;
};

} // namespace velarion

#endif
