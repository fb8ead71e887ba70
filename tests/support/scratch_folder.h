#ifndef SCRATCH_FOLDER_H
#define SCRATCH_FOLDER_H

#include <string>

/** Writes a file and the folders that it needs. Throws std::runtime_error when that fails. */
void write_file(const std::string& path, const std::string& contents);
/** @return the contents; empty when there is no such file */
std::string file_contents(const std::string& path);

/** An empty folder below the build folder, gone with the object. */
class scratch_folder {
public:
    scratch_folder();
    ~scratch_folder();
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    std::string path(const std::string& name) const { return path_ + "/" + name; }
    void write(const std::string& name, const std::string& contents) const {
        write_file(path(name), contents);
    }
    std::string read(const std::string& name) const { return file_contents(path(name)); }

private:
    std::string path_;
};

#endif
