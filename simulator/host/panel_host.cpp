#include "panel_host.h"

#include "device_tree.h"
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "start_phases.h"

#include <QDir>
#include <QFont>
#include <QFontDatabase>

namespace velarion {

namespace {

constexpr char FONT_FOLDER[] = "/tmp/fonts/";

/** Families that the panel's fonts have, and what a workstation shows in their place. */
struct stand_in_font {
    const char* family;
    const char* stand_in;
};

constexpr stand_in_font STAND_INS[] = {{"Univers OTS", "Liberation Sans"},
                                       {"HeiseiKakuGothW5_JIS0213C", "VL PGothic"}};

/** What was loaded stays: a font that is in use may not go. */
void make_fonts_known() {
    static QStringList known;
    const QDir folder(QString::fromLatin1(FONT_FOLDER));
    for (const QString& name : folder.entryList({QStringLiteral("*.ttf")}, QDir::Files)) {
        if (!known.contains(name) && QFontDatabase::addApplicationFont(folder.filePath(name)) >= 0) {
            known.append(name);
        }
    }
    for (const stand_in_font& font : STAND_INS) {
        QFont::insertSubstitution(QLatin1String(font.family), QLatin1String(font.stand_in));
    }
}

} // namespace

panel_host::panel_host() {
    start_languages_anew();
    end_start_phase("language resource");
    start_images_anew();
    end_start_phase("images");
}

panel_host::~panel_host() {
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
}

void panel_host::start_images_anew() {
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance()->dvc_pnl_rmg_initialize();
}

void panel_host::start_languages_anew() {
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    {
        const font_command_silence silence;
        dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    }
    make_fonts_known();
}

} // namespace velarion
