#ifndef PICTURE_FOLDER_H
#define PICTURE_FOLDER_H

#include "diagnostics.h"

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velarion {

extern const std::array<std::string, 5> PICTURE_STATES; ///< "_on" and so on

/** A file name's parts: "d_" or not, the name without both, a state suffix such as "_on" or nothing, ".svg".
 */
struct picture_file_name {
    explicit picture_file_name(const std::string& file);

    std::string twin;
    std::string base;
    std::string state;
    std::string extension;
};

/** The pictures of a folder, by what their names say. */
struct picture_folder {
    explicit picture_folder(const std::string& folder);

    /** The file of a picture's variant. @param variant  as in variants */
    static std::string file_of(const std::string& picture, const std::string& variant);
    bool has(const std::string& picture, const std::string& variant) const;
    finding found(severity kind, const char* check, const std::string& file, const std::string& text,
                  std::size_t line = 0, std::size_t column = 0) const;

    std::string path;
    std::vector<std::string> names; ///< ascending, without the lists that a build leaves
    std::set<std::string> generic;  ///< that a build made without knowing what they show
    std::map<std::string, std::set<std::string>>
        variants; ///< "d_" or nothing, tab, state; by base and extension
};

} // namespace velarion

#endif
