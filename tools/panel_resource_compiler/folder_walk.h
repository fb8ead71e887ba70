#ifndef FOLDER_WALK_H
#define FOLDER_WALK_H

#include <filesystem>
#include <string>
#include <vector>

namespace velarion {

/** What keeps a folder from being read as a whole. */
struct folder_fault {
    std::string path;
    std::string text;
};

/**
 * The files below a folder, in the order of their paths; links are followed.
 *
 * @param faults  receives pipes, devices, links to nothing, links to a folder above them, and what cannot be
 *                listed; with more than 10,000 entries, as links to folders beside them can make, it ends
 * there
 * @return paths that begin with @p folder; none when there is no such folder
 */
std::vector<std::filesystem::path> files_below(const std::filesystem::path& folder,
                                               std::vector<folder_fault>& faults);

} // namespace velarion

#endif
