#ifndef PICTURE_CHECKS_H
#define PICTURE_CHECKS_H

#include "image_catalogue.h"
#include "picture_folder.h"

namespace velarion {

/** Compares an image list with a folder: rows without file, or with a generic one, files without row. */
void check_image_rows(const std::string& catalogue, const std::vector<catalogue_image>& images,
                      const picture_folder& folder, diagnostics& report);

/** Looks for states and darker twins that pictures lack which others have that begin alike. */
void check_picture_variants(const picture_folder& folder, diagnostics& report);

/** Looks at each picture: files that are the same, sizes that differ, what cannot be drawn as it is meant. */
void check_picture_contents(const picture_folder& folder, diagnostics& report);

} // namespace velarion

#endif
