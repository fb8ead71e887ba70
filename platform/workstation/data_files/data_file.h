#ifndef DATA_FILE_H
#define DATA_FILE_H

#include "replacement_file.h"

#include <cstdint>
#include <memory>
#include <mutex>

namespace velarion {

/** One open file of the data-file store, for reading or for writing its whole content anew. Any thread. */
class data_file {
public:
    /** @param file  receives the open file; unchanged on failure */
    static platform_code open_for_reading(file_place place, std::shared_ptr<data_file>& file);
    /** @param file  receives the open file; unchanged on failure */
    static platform_code open_for_writing(file_place place, std::shared_ptr<data_file>& file);

    explicit data_file(file_descriptor reading);
    explicit data_file(std::unique_ptr<replacement_file> writing);

    /** Reads until @p size bytes or the end. @param count  receives the bytes read; 0 on failure */
    platform_code read(void* buffer, std::uint32_t size, std::uint32_t& count);
    /** Writes all of @p data. @param count  receives the bytes written. A failure makes close() fail. */
    platform_code write(const void* data, std::uint32_t size, std::uint32_t& count);
    /** Waits until what was written is on the storage device. A failure makes close() fail. */
    platform_code flush();
    /** Ends the use of the file and puts a written one in its place. @return as replacement_file::commit() */
    platform_code close();

private:
    std::mutex mutex_;
    file_descriptor reading_; // one of the two is there until close()
    std::unique_ptr<replacement_file> writing_;
};

} // namespace velarion

#endif
