#include "scratch_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

void write_file(const std::string& path, const std::string& contents) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << contents;
    if (!file.flush()) {
        throw std::runtime_error(path + " cannot be written");
    }
}

std::string file_contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

scratch_folder::scratch_folder()
    : path_(TEST_SCRATCH_PARENT "/scratch_XXXXXX") {
    if (!mkdtemp(&path_[0])) {
        throw std::runtime_error(path_ + " cannot be made");
    }
}

scratch_folder::~scratch_folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}
