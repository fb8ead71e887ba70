#ifndef OUTPUT_FOLDER_H
#define OUTPUT_FOLDER_H

#include <string>

namespace velarion {

/**
 * A folder that results are written to. Nothing outside of it is written or removed: names lead below it, and
 * a link in a name's folders is an error and never followed. Links in the folder's own path are.
 *
 * A file or link appears under its name as a whole. Until then it is NAME.new beside it, made exclusively;
 * what an earlier run left under that name is removed.
 *
 * Operations return false when they fail; fault then names the place and what to do.
 */
class output_folder {
public:
    /** @param path  made when missing */
    explicit output_folder(const std::string& path)
        : path_(path) {}

    /** Makes the folder, and those on its way, when missing. */
    bool make(std::string& fault) const;

    /** Writes a file and the folders that it needs. What has the name is replaced, unless it is a folder that
     * holds something. */
    bool write(const std::string& name, const std::string& contents, std::string& fault) const;

    /** Makes a symbolic link; otherwise as write(). */
    bool link(const std::string& name, const std::string& target, std::string& fault) const;

    /** Removes a file or link. What is not there, behind a link or a folder stays, which is no failure. */
    bool remove(const std::string& name, std::string& fault) const;

    /** @return the contents of a file; empty when it is missing, a link or no regular file */
    std::string read(const std::string& name) const;

private:
    std::string path_;
};

/**
 * Writes a single file that the user named, as a whole and in place of an earlier one; its folder is made
 * when missing, and a link is followed. A file that holds the contents already is not touched, so that a
 * build finds nothing to do. A pipe or device is written to.
 */
bool write_named_file(const std::string& path, const std::string& contents, std::string& fault);

} // namespace velarion

#endif
