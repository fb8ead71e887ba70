#ifndef MOVIE_WRITER_H
#define MOVIE_WRITER_H

#include "output_folder.h"

#include <QImage>
#include <string>
#include <vector>

namespace velarion {

/**
 * Writes pictures of one size as a GIF that runs for ever.
 *
 * @param frames  at least one; wholly transparent pixels stay transparent, all others become opaque
 * @param delay   of each frame, in hundredths of a second
 * @param fault   receives the reason when it fails
 */
bool write_movie(const output_folder& output, const std::string& name, const std::vector<QImage>& frames,
                 int delay, std::string& fault);

} // namespace velarion

#endif
