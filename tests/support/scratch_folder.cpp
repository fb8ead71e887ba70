#include "scratch_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

scratch_folder::scratch_folder()
    : path_(TEST_SCRATCH_PARENT "/scratch_XXXXXX") {
    if (mkdtemp(&path_[0]) == nullptr) {
        throw std::runtime_error(path_ + " cannot be made");
    }
}

scratch_folder::~scratch_folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void scratch_folder::write(const std::string& name, const std::string& contents) const {
    fs::create_directories(fs::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << contents;
}

std::string scratch_folder::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
