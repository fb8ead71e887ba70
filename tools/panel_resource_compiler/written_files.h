#ifndef WRITTEN_FILES_H
#define WRITTEN_FILES_H

#include <set>
#include <string>

namespace velarion {

/**
 * Removes from a folder the files that an earlier run wrote there and this one will not, and leaves the list
 * of this run's files, written_files.txt, for the next. Nothing is removed that the earlier list does not
 * name, and no folder. To be called before the files are written: what a run that broke off has written is
 * then listed.
 *
 * @param names  this run's files, named from the folder; one whose name holds a line break is not listed
 * @param fault  receives the reason when it fails
 */
bool replace_written_files(const std::string& folder, const std::set<std::string>& names, std::string& fault);

} // namespace velarion

#endif
