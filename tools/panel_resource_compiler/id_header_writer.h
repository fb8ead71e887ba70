#ifndef ID_HEADER_WRITER_H
#define ID_HEADER_WRITER_H

#include "image_catalogue.h"
#include "message_catalogue.h"

#include <string>
#include <vector>

namespace velarion {

/**
 * A C++ header with a constant for each message and image, which holds its id as the library's operations
 * take it: "constexpr char MSG_NORMAL_TITLE_COPY[] = "1";". Characters of a name that no identifier has
 * become
 * "_". Names that are then the same, or a keyword, get the id behind them, all of them, "NAME_12" and for
 * images "NAME_IMAGE_12": whoever wrote the plain name before the second came learns of it from the compiler.
 */
std::string id_header(const std::vector<catalogue_message>& messages,
                      const std::vector<catalogue_image>& images);

} // namespace velarion

#endif
