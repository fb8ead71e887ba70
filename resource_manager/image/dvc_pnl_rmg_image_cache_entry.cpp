#include "dvc_pnl_rmg_image_cache_entry.h"

#include <QPixmap>

#include <new>

namespace velarion {

namespace {

void* spare_memory = nullptr; // of one entry

} // namespace

dvc_pnl_rmg_image_cache_entry::dvc_pnl_rmg_image_cache_entry(QPixmap* pixmap)
    : pixmap_(pixmap) {}

dvc_pnl_rmg_image_cache_entry::~dvc_pnl_rmg_image_cache_entry() {
    delete pixmap_;
    pixmap_ = nullptr;
}

void* dvc_pnl_rmg_image_cache_entry::operator new(std::size_t size) {
    void* const memory = spare_memory;
    if (!memory || size != sizeof(dvc_pnl_rmg_image_cache_entry)) {
        return ::operator new(size);
    }
    spare_memory = nullptr;
    return memory;
}

void dvc_pnl_rmg_image_cache_entry::operator delete(void* memory, std::size_t size) {
    if (spare_memory || size != sizeof(dvc_pnl_rmg_image_cache_entry)) {
        ::operator delete(memory);
        return;
    }
    spare_memory = memory;
}

} // namespace velarion
