#ifndef REPLACEMENT_FILE_H
#define REPLACEMENT_FILE_H

#include "file_descriptor.h"
#include "platform_codes.h"

#include <cstddef>
#include <memory>
#include <string>
#include <sys/stat.h>

namespace velarion {

/** Names that start so belong to unfinished files; no store shows or takes such a name. */
constexpr char TEMPORARY_PREFIX[] = ".panel_platform_tmp.";

/** Where a file is or will be: its folder, held open, and its name in it. */
struct file_place {
    file_descriptor folder;
    std::string name;
};

/**
 * A file's new content. It grows under a temporary name in the file's folder, made exclusively, and takes the
 * file's place as a whole; until then, and after any failure to write, the earlier file stays as it was.
 * One thread at a time.
 */
class replacement_file {
public:
    /**
     * Starts an empty replacement (mode 0600) and removes those whose writers died.
     * @param file  receives it; unchanged on failure
     */
    static platform_code create(file_place place, std::unique_ptr<replacement_file>& file);

    ~replacement_file(); ///< discards what was not committed
    replacement_file(const replacement_file&) = delete;
    replacement_file& operator=(const replacement_file&) = delete;

    /** Appends all of @p data. @param count  receives the bytes written. A failure makes commit() fail. */
    platform_code write(const void* data, std::size_t size, std::size_t& count);
    /** Waits until what was written is on the storage device. A failure makes commit() fail. */
    platform_code sync();
    /** Takes over owner, group and mode of the file that is replaced. A failure makes commit() fail. */
    platform_code take_rights_of(const struct stat& replaced);
    /**
     * Puts the content in the file's place.
     * @return the first failure, with the earlier file kept; PLATFORM_NOT_DURABLE when the new content is in
     *         place and only the folder did not reach the storage device
     */
    platform_code commit();

private:
    explicit replacement_file(file_place place);
    platform_code make();
    platform_code note(platform_code code);

    file_place place_;
    file_descriptor file_;
    std::string temporary_name_; // empty when there is none
    platform_code failure_;      // the first one
};

} // namespace velarion

#endif
