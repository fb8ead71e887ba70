/*
 * The same as touch_texts in a process that does not load the library and has the texts of the toolkit's
 * translator. Toolkit and platform are those of touch_texts, a setting is read too.
 */
#include "dvc_pnl_rmg_setting_id.h"
#include "settings_store.h"
#include "touched_memory.h"

#include <QApplication>
#include <QTranslator>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string what = argc == 2 ? argv[1] : "";
    if (what != "all" && what != "none") {
        std::fprintf(stderr, "usage: touch_translator all|none\n");
        return 2;
    }
    try {
        const char* const folder = std::getenv("PEER_CATALOGUES");
        const auto keys = velarion::message_keys(folder ? folder : ".");
        std::uint64_t setting = 0;
        ent_set_get_status(velarion::SETTING_GROUP, velarion::SETTING_PANEL_LANGUAGE, &setting);
        QTranslator translator;
        if (what == "all") {
            if (!translator.load(QString::fromLocal8Bit(folder) + QLatin1String("/texts.qm"))) {
                throw std::runtime_error("texts.qm cannot be loaded");
            }
            for (const std::string& key : keys) {
                static_cast<void>(translator.translate("panel", key.c_str()));
            }
        }
        velarion::print_memory();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "touch_translator: %s\n", error.what());
        return 3;
    }
    return 0;
}
