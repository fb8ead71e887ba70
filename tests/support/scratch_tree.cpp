#include "scratch_tree.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr const char* DEVICE_FOLDERS[] = {"/mnt/optlang", "/mnt/sheetext", "/tmp/fonts",
                                          "/usr/local/vuk_app"};

void empty_device() {
    for (const char* folder : DEVICE_FOLDERS) {
        if (fs::exists(folder)) {
            for (const auto& entry : fs::directory_iterator(folder)) {
                fs::remove_all(entry.path());
            }
        }
    }
}

} // namespace

void scratch_tree::SetUp() {
    if (!std::getenv("PANEL_DEVICE_SCRATCH")) {
        FAIL() << "run this test through scripts/device-shell --scratch";
    }
    platform_.reset();
    unsetenv("TEST_ICON_MESSAGE");
    empty_device();
}

void scratch_tree::TearDown() {
    platform_.reset();
    unsetenv("TEST_ICON_MESSAGE");
}
