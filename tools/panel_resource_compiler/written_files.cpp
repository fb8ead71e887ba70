#include "written_files.h"

#include "source_writer.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

const char LIST[] = "written_files.txt";

/** A list that was edited must not lead out of the folder. */
bool stays_inside(const fs::path& name) {
    return name.is_relative() && std::find(name.begin(), name.end(), "..") == name.end();
}

bool remove_file(const fs::path& path, std::string& fault) {
    std::error_code error;
    if (!fs::is_directory(fs::symlink_status(path, error))) {
        fs::remove(path, error);
    }
    const bool is_gone =
        !error || error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (!is_gone) {
        fault = path.string() + ": " + error.message();
    }
    return is_gone;
}

} // namespace

bool replace_written_files(const std::string& folder, const std::set<std::string>& names,
                           std::string& fault) {
    const std::string list = folder + '/' + LIST;
    std::ifstream earlier(list, std::ios::binary);
    for (std::string name; std::getline(earlier, name);) {
        if (names.count(name) == 0 && stays_inside(name) && !remove_file(fs::path(folder) / name, fault)) {
            return false;
        }
    }
    source_writer writer(list);
    for (const std::string& name : names) {
        if (name.find('\n') == std::string::npos) {
            writer.stream() << name << '\n';
        }
    }
    return writer.finish(fault);
}
