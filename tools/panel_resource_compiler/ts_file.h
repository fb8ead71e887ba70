#ifndef TS_FILE_H
#define TS_FILE_H

#include "exchange_document.h"

namespace velarion {

/**
 * Qt Linguist TS: the comment of a message is its row, the source the English text; contexts are the groups
 * of messages, whose names stand in extra comments.
 */
std::string write_ts(const exchange_document& document);

/**
 * @param path      named in reports
 * @param contents  of the file
 * @return the document; usable only when the report counts no error
 */
exchange_document read_ts(const std::string& path, const std::string& contents, diagnostics& report);

} // namespace velarion

#endif
