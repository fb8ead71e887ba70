#ifndef CONTACT_SHEET_H
#define CONTACT_SHEET_H

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

} // namespace velarion

#endif
