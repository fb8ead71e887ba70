#include "panel_host.h"

#include "device_tree.h"
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "panel_fonts.h"
#include "picture_requests.h"
#include "start_phases.h"

namespace velarion {

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
    picture_requests::start_anew();
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance()->dvc_pnl_rmg_initialize();
}

void panel_host::start_languages_anew() {
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    {
        const font_command_silence silence;
        dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    }
    load_panel_fonts();
}

} // namespace velarion
