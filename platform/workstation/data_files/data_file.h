#ifndef DATA_FILE_H
#define DATA_FILE_H

#include "data_file_place.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace panel_platform {

/**
 * One open file of the data-file store. Any thread.
 *
 * A file that is written grows under a temporary name in its own folder and takes its place in close(); until
 * then, and after any failure to write, the earlier file stays as it was. A failure to bring the folder to
 * the storage device afterwards is told by close() too, with the new file in place.
 */
class data_file {
public:
    /** @param file  receives the open file; unchanged on failure */
    static int open_for_reading(DATA_FILE_PLACE place, std::shared_ptr<data_file>& file);
    /** @param file  receives the open file; unchanged on failure */
    static int open_for_writing(DATA_FILE_PLACE place, std::shared_ptr<data_file>& file);

    data_file(DATA_FILE_PLACE place, file_descriptor descriptor, std::string temporary_name);
    ~data_file(); ///< discards what was written but not closed
    data_file(const data_file&) = delete;
    data_file& operator=(const data_file&) = delete;

    /** Reads until @p size bytes or the end. @param count  receives the bytes read; 0 on failure */
    int read(void* buffer, std::uint32_t size, std::uint32_t& count);
    /** Writes all of @p data. @param count  receives the bytes written. A failure makes close() fail. */
    int write(const void* data, std::uint32_t size, std::uint32_t& count);
    /** Waits until what was written is on the storage device. A failure makes close() fail. */
    int flush();
    /** Ends the use of the file and puts a written one in its place. @return the first failure */
    int close();

private:
    bool is_writing() const { return !temporary_name_.empty(); }
    int commit();
    void discard();

    std::mutex mutex_;
    DATA_FILE_PLACE place_;
    file_descriptor descriptor_;
    std::string temporary_name_; // empty when reading
    int failure_;                // the first one while writing
};

} // namespace panel_platform

#endif
