#ifndef FIT_SHEET_H
#define FIT_SHEET_H

#include "report_boxes.h"

namespace velarion {

/**
 * Draws texts that do not fit with their boxes, what is outside in red, into FOLDER/fit-LANGUAGE-01.png and
 * so on, and tells the files on standard error, and where the texts are too many to draw them all. Sheets of
 * the language that an earlier run left behind these are removed.
 *
 * @param fault  receives the reason when it fails
 */
bool write_fit_sheets(const std::string& folder, const std::string& language,
                      const std::vector<misfit>& misfits, std::string& fault);

} // namespace velarion

#endif
