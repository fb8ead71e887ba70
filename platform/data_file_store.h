#ifndef DATA_FILE_STORE_H
#define DATA_FILE_STORE_H

#include "panel_platform_export.h"

#include <cstdint>

/**
 * The platform's data-file store: files named by a storage area, a group in it, and a file name.
 *
 * Every operation returns 0 on success and a platform code otherwise. Any thread. A name is a relative path,
 * ended by NUL, without "." and ".." components; folders in it are made when a file is written.
 */

typedef void* DVU_DIO_HANDLE;

struct DVU_DIO_STATUS {
    std::uint32_t size; ///< bytes
};

extern "C" {

/**
 * Opens a file.
 * @param mode    0: for reading; 1: for writing its whole content anew, which takes the place of the earlier
 *                content when dvu_dio_fclose() succeeds
 * @param handle  receives the handle, to be closed by dvu_dio_fclose(); unchanged on failure
 */
PANEL_PLATFORM_EXPORT int dvu_dio_fopen(int area, int group, const char* name, int mode,
                                        DVU_DIO_HANDLE* handle);
/** Reads up to @p size bytes. @param count  receives the bytes read; 0 at the end of the file and on failure
 */
PANEL_PLATFORM_EXPORT int dvu_dio_fread(void* buffer, std::uint32_t size, DVU_DIO_HANDLE handle,
                                        std::uint32_t* count);
/** Writes @p size bytes. @param count  receives the bytes written, @p size unless it fails */
PANEL_PLATFORM_EXPORT int dvu_dio_fwrite(const void* data, std::uint32_t size, DVU_DIO_HANDLE handle,
                                         std::uint32_t* count);
/** Brings what was written to the storage device. */
PANEL_PLATFORM_EXPORT int dvu_dio_fflush(DVU_DIO_HANDLE handle);
/**
 * Closes a file and releases the handle, also on failure. A file open for writing then keeps its earlier
 * content, with one exception: on a workstation code 25 says that the new content is in place and every
 * reader sees it, but a loss of power may bring the earlier content back.
 */
PANEL_PLATFORM_EXPORT int dvu_dio_fclose(DVU_DIO_HANDLE handle);
/** @return 0 when the name belongs to a file */
PANEL_PLATFORM_EXPORT int dvu_dio_existfile(int area, int group, const char* name);
/** Removes a file. On failure it is still there; on a workstation code 25 says that it is gone, but may be
 * back after a loss of power. */
PANEL_PLATFORM_EXPORT int dvu_dio_remove(int area, int group, const char* name);
/** @param status  receives the file's status; unchanged on failure */
PANEL_PLATFORM_EXPORT int dvu_dio_stat(int area, int group, const char* name, DVU_DIO_STATUS* status);
}

#endif
