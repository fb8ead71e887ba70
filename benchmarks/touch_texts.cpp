/*
 * The memory of a process of the library after every text of one language was touched once: touch_texts all
 * prints it. "none" does all but touch a text. PEER_CATALOGUES names the folder with the keys.
 */
#include "dvc_pnl_rmg_language_resource.h"
#include "touched_memory.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

constexpr int GERMAN = 49;

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string what = argc == 2 ? argv[1] : "";
    if (what != "all" && what != "none") {
        std::fprintf(stderr, "usage: touch_texts all|none\n");
        return 2;
    }
    try {
        const char* const folder = std::getenv("PEER_CATALOGUES");
        const auto keys = velarion::message_keys(folder ? folder : ".");
        // cppcheck-suppress variableScope ; it is there without a text being touched, too
        auto& texts = *velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
        if (what == "all") {
            for (const std::string& key : keys) {
                static_cast<void>(texts.dvc_pnl_rmg_get_message(key.c_str(), GERMAN));
            }
        }
        velarion::print_memory();
        velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "touch_texts: %s\n", error.what());
        return 3;
    }
    return 0;
}
