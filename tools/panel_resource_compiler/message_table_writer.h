#ifndef MESSAGE_TABLE_WRITER_H
#define MESSAGE_TABLE_WRITER_H

#include "message_catalogue.h"

#include <string>

namespace velarion {

/**
 * Writes the message id table and the text table as two C++ sources, message_id_table.cpp and
 * message_text_table.cpp, into a folder.
 *
 * @param fault  receives the reason when it fails
 */
bool write_message_tables(const message_catalogue& catalogue, const std::string& folder, std::string& fault);

} // namespace velarion

#endif
