#ifndef TOUCHED_MEMORY_H
#define TOUCHED_MEMORY_H

#include <string>
#include <vector>

namespace velarion {

/**
 * The ids of all messages, from the file texts.keys of a folder.
 *
 * @throws std::runtime_error the file is not there
 */
std::vector<std::string> message_keys(const std::string& folder);

/** Prints the kilobytes of this process that are resident, and those that are its own. */
void print_memory();

} // namespace velarion

#endif
