#ifndef PICTURE_FILES_CHECK_H
#define PICTURE_FILES_CHECK_H

#include "diagnostics.h"
#include "image_catalogue.h"

#include <QImage>
#include <QString>

#include <set>
#include <string>
#include <vector>

namespace velarion {

/** The file names of a picture folder, ascending. */
std::vector<std::string> picture_file_names(const std::string& folder);

/** A file name's parts: "d_" or not, the name without both, a state suffix such as "_on" or nothing, ".svg".
 */
struct picture_file_name {
    explicit picture_file_name(const std::string& file);

    std::string twin;
    std::string base;
    std::string state;
    std::string extension;
};

/**
 * Compares the image list with a picture folder and looks at each picture: rows without file, files without
 * row, missing states and darker twins, files that are the same, sizes that differ, and what cannot be drawn
 * as it is meant.
 *
 * @param subject  receives the name of the file that each finding is about, before it is reported
 */
void check_picture_files(const std::string& catalogue, const std::vector<catalogue_image>& images,
                         const std::string& folder, std::string& subject, diagnostics& report);

/** Draws a picture at its natural size, or null when it cannot be drawn. @param size  its natural size */
QImage draw_picture_file(const QString& path, int longest_side, QSize& size);

} // namespace velarion

#endif
