/*
 * The memory of a process after every text of one language was touched once: touch_texts ours|translator|none
 * prints its resident kilobytes. "none" does all but touch a text, so that the difference is what texts cost.
 */
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"

#include <QApplication>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace {

constexpr int GERMAN = 49;

template <typename TEXT_OF> int touch_all(TEXT_OF text_of) {
    int length = 0;
    char key[16];
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        std::snprintf(key, sizeof key, "%d", dvc_pnl_rmg_impl_message_table[i].message_id);
        length += text_of(key).size();
    }
    return length;
}

/** The kilobytes of a field of smaps_rollup. */
long rolled_up(const char* field) {
    std::ifstream rollup("/proc/self/smaps_rollup");
    std::string line;
    while (std::getline(rollup, line)) {
        if (line.compare(0, std::strlen(field), field) == 0) {
            return std::atol(line.c_str() + std::strlen(field));
        }
    }
    return -1;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string who = argc == 2 ? argv[1] : "";
    const char* const folder = std::getenv("PEER_CATALOGUES");
    velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    QTranslator translator;
    if (who == "ours") {
        auto& ours = *velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
        touch_all([&](const char* key) { return ours.dvc_pnl_rmg_get_message(key, GERMAN); });
    } else if (who == "translator") {
        if (!folder || !translator.load(QString::fromLocal8Bit(folder) + QLatin1String("/texts.qm"))) {
            std::fprintf(stderr, "touch_texts: PEER_CATALOGUES names no folder with texts.qm\n");
            return 3;
        }
        touch_all([&](const char* key) { return translator.translate("panel", key); });
    } else if (who != "none") {
        std::fprintf(stderr, "usage: touch_texts ours|translator|none\n");
        return 2;
    }
    std::printf("%ld %ld\n", rolled_up("Rss:"), rolled_up("Private_Dirty:"));
    velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    return 0;
}
