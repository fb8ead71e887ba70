#ifndef PO_FILE_H
#define PO_FILE_H

#include "exchange_document.h"

namespace velarion {

/**
 * Gettext PO: msgctxt is the row, msgid the English text; the names of messages stand in extracted comments.
 *
 * @param fault  receives why the contents could not be made
 */
bool write_po(const exchange_document& document, std::string& contents, std::string& fault);

/**
 * @param path      named in reports
 * @param contents  of the file
 * @return the document; usable only when the report counts no error
 */
exchange_document read_po(const std::string& path, std::string contents, diagnostics& report);

} // namespace velarion

#endif
