#ifndef IMAGE_CATALOGUE_H
#define IMAGE_CATALOGUE_H

#include "diagnostics.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velarion {

struct catalogue_image {
    std::int32_t id;
    std::string name;
    std::string file; ///< UTF-8; one blank, or one ideographic space, for an image without a picture
};

/** Whether a file name stands for "no picture". */
bool is_blank_file_name(const std::string& file);

/** What is wrong with the name of an image; empty when nothing is. */
std::string image_name_fault(const std::string& name);
/** What makes an image's file an error; empty when nothing does. */
std::string image_file_fault(const std::string& file);

/**
 * Reads images.tsv of a catalogue folder and checks it. The images are usable only when the report counts
 * no error.
 *
 * @return the images, ascending by id
 */
std::vector<catalogue_image> read_image_catalogue(const std::string& folder, diagnostics& report);

} // namespace velarion

#endif
