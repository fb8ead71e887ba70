#ifndef DVC_PNL_RMG_LANGUAGE_SETTING_MANAGER_H
#define DVC_PNL_RMG_LANGUAGE_SETTING_MANAGER_H

#include "dvc_pnl_export.h"

namespace velarion {

/**
 * Entry point for linking fonts again at run time. It has no effect: fonts are linked at start-up alone. The
 * language resource owns the one instance; without state, so any thread may call it.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_language_setting_manager {
public:
    dvc_pnl_rmg_language_setting_manager();
    ~dvc_pnl_rmg_language_setting_manager();

    /** @return 1 */
    int dvc_pnl_rmg_make_link_for_fonts();
};

} // namespace velarion

#endif
