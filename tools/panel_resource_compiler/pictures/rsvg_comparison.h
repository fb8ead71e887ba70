#ifndef RSVG_COMPARISON_H
#define RSVG_COMPARISON_H

#include "picture_folder.h"

#include <QString>

namespace velarion {

/**
 * Compares what the toolkit draws of each SVG picture with what rsvg-convert does, two at a time, tells the
 * progress on standard error, and reports those that differ by more than a share of their pixels.
 *
 * @param names  of the folder's pictures
 * @param sheet  receives the worst, ours, theirs and the difference beside each other; none when empty
 * @param fault  receives the reason when it fails
 */
bool compare_with_rsvg(const picture_folder& folder, const std::vector<std::string>& names,
                       const QString& sheet, diagnostics& report, std::string& fault);

} // namespace velarion

#endif
