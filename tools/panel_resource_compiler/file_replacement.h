#ifndef FILE_REPLACEMENT_H
#define FILE_REPLACEMENT_H

#include <iosfwd>
#include <string>
#include <vector>

namespace velarion {

/**
 * Replaces files of a catalogue together: every new one is written in full beside the old one, as NAME.new,
 * before the first takes its place. So a fault on the way, or a process that is ended there, leaves whole
 * files: all old ones, or, when a rename fails, a report of those that are in place. A link is followed: the
 * file that it names is replaced. The permissions stay.
 */
class file_replacement {
public:
    /**
     * Takes a file into the work; one that stays as it is takes no part.
     *
     * @param old_contents  as they were read; the file is not replaced when it holds something else by then
     * @param is_new        the file is not there yet; it is made, and the folders that it needs
     */
    void add(const std::string& path, std::string old_contents, std::string new_contents,
             bool is_new = false);

    bool is_empty() const { return files_.empty(); }

    /** Writes what commit() would change, as a unified diff. */
    void write_diff(std::ostream& output) const;

    /** @param fault  receives what failed, where and what to do. @return whether all files are in place */
    bool commit(std::string& fault) const;

private:
    struct entry {
        std::string path;
        std::string old_contents;
        std::string new_contents;
        bool is_new;
    };

    std::vector<entry> files_;
};

/** Reads a whole file. @return false, with the reason in @p fault, when that fails or it is no file of texts
 */
bool read_whole_file(const std::string& path, std::string& contents, std::string& fault);
bool read_standard_input(std::string& contents, std::string& fault);

} // namespace velarion

#endif
