#ifndef DATA_FILE_PLACE_H
#define DATA_FILE_PLACE_H

#include "replacement_file.h"

#include <sys/stat.h>

namespace velarion {

/**
 * Finds the place of a data file without following a symbolic link below the platform folder.
 *
 * @param name          relative path of one or more components, none of them empty, "." or ".."
 * @param make_folders  whether missing folders are made (mode 0700) or are PLATFORM_NOT_FOUND
 * @param place         receives the place; unchanged on failure. The file itself need not exist.
 * @return PLATFORM_OK, PLATFORM_INVALID_ARGUMENT (null name), PLATFORM_NAME_REFUSED, PLATFORM_NO_FOLDER
 *         or the code of the operating system's failure
 */
platform_code find_data_file_place(int area, int group, const char* name, bool make_folders,
                                   file_place& place);

/**
 * Reads the status of the file at a place.
 * @param status  undefined on failure
 * @return PLATFORM_OK for a plain file, PLATFORM_NOT_A_FILE for anything else that is there, or why not
 */
platform_code read_data_file_status(const file_place& place, struct stat& status);

} // namespace velarion

#endif
