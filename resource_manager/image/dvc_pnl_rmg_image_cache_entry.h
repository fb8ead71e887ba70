#ifndef DVC_PNL_RMG_IMAGE_CACHE_ENTRY_H
#define DVC_PNL_RMG_IMAGE_CACHE_ENTRY_H

#include "dvc_pnl_export.h"

#include <cstddef>

class QPixmap;

namespace velarion {

/** One cached picture. Made and destroyed by dvc_pnl_rmg_image_cache alone; GUI thread only. */
class DVC_PNL_EXPORT dvc_pnl_rmg_image_cache_entry {
public:
    /** @param pixmap  owned by the entry from here on; may be null */
    explicit dvc_pnl_rmg_image_cache_entry(QPixmap* pixmap);
    /** Deletes the pixmap. */
    ~dvc_pnl_rmg_image_cache_entry();
    dvc_pnl_rmg_image_cache_entry(const dvc_pnl_rmg_image_cache_entry&) = delete;
    dvc_pnl_rmg_image_cache_entry& operator=(const dvc_pnl_rmg_image_cache_entry&) = delete;

    /** @return the pixmap, still owned by the entry */
    QPixmap* get_pixmap() const { return pixmap_; }

    /** Takes the memory of the entry that went last: a full cache drops one for each that it takes. */
    static void* operator new(std::size_t size);
    static void operator delete(void* memory, std::size_t size);

private:
    QPixmap* pixmap_;
};

} // namespace velarion

#endif
