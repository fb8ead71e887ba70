#include "dvc_pnl_rmg_image_cache_entry.h"

#include <QPixmap>

namespace velarion {

dvc_pnl_rmg_image_cache_entry::dvc_pnl_rmg_image_cache_entry(QPixmap* pixmap)
    : pixmap_(pixmap) {}

dvc_pnl_rmg_image_cache_entry::~dvc_pnl_rmg_image_cache_entry() {
    delete pixmap_;
    pixmap_ = nullptr;
}

} // namespace velarion
