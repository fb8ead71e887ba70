#include "dvc_pnl_rmg_language_setting_manager.h"

namespace velarion {

dvc_pnl_rmg_language_setting_manager::dvc_pnl_rmg_language_setting_manager() {}

dvc_pnl_rmg_language_setting_manager::~dvc_pnl_rmg_language_setting_manager() {}

int dvc_pnl_rmg_language_setting_manager::dvc_pnl_rmg_make_link_for_fonts() {
    return 1;
}

} // namespace velarion
