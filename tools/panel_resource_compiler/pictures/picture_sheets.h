#ifndef PICTURE_SHEETS_H
#define PICTURE_SHEETS_H

#include "diagnostics.h"

#include <QString>

#include <string>
#include <vector>

namespace velarion {

/**
 * Draws pictures side by side on the panel's dark ground and on a light one; many fill FILE-01.png and so on.
 *
 * @param fault  receives the reason when it fails
 */
bool write_contact_sheet(const std::string& folder, const std::vector<std::string>& names,
                         const QString& file, std::string& fault);

/**
 * Compares what the toolkit draws of each SVG picture with what rsvg-convert does, two at a time, tells the
 * progress on standard error, and reports those that differ by more than a share of their pixels.
 *
 * @param subject  receives the name of the file that each finding is about
 * @param sheet    receives the worst, ours, theirs and the difference beside each other; none when empty
 */
bool compare_with_rsvg(const std::string& folder, const std::vector<std::string>& names, const QString& sheet,
                       std::string& subject, diagnostics& report, std::string& fault);

} // namespace velarion

#endif
