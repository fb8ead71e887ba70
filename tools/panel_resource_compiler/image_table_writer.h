#ifndef IMAGE_TABLE_WRITER_H
#define IMAGE_TABLE_WRITER_H

#include "image_catalogue.h"

#include <string>
#include <vector>

namespace velarion {

/**
 * Writes the image table as a C++ source, image_name_table.cpp, into a folder.
 *
 * @param fault  receives the reason when it fails
 */
bool write_image_table(const std::vector<catalogue_image>& images, const std::string& folder,
                       std::string& fault);

} // namespace velarion

#endif
