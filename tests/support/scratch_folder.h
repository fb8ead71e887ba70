#ifndef SCRATCH_FOLDER_H
#define SCRATCH_FOLDER_H

#include <string>

/** An empty folder below the build folder, gone with the object. */
class scratch_folder {
public:
    scratch_folder();
    ~scratch_folder();
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    std::string path(const std::string& name) const { return path_ + "/" + name; }
    /** Writes a file and the folders that it needs. */
    void write(const std::string& name, const std::string& contents) const;
    /** @return the contents; empty when there is no such file */
    std::string read(const std::string& name) const;

private:
    std::string path_;
};

#endif
