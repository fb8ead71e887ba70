#include "dvc_pnl_rmg_image_cache.h"

#include "saturated.h"

#include <QPixmap>
#include <QPixmapCache>

#include <cstdint>

namespace velarion {

namespace {

constexpr int DEFAULT_LIMIT = 16777216;
constexpr int BYTES_PER_KILOBYTE = 1024;
constexpr int BITS_PER_BYTE = 8;

/** Exports what callers take from the header, for those that link to it. */
[[gnu::used]] QPixmap* (dvc_pnl_rmg_image_cache::*const EXPORTED)(const QString&) const =
    &dvc_pnl_rmg_image_cache::dvc_pnl_rmg_image_get_pixmap;

/** Equals the sum in 32 bits wherever that does not overflow. */
int cost_of(const QPixmap& pixmap) {
    const std::int64_t pixels = static_cast<std::int64_t>(pixmap.width()) * pixmap.height();
    return saturated(pixels * pixmap.depth() / BITS_PER_BYTE);
}

} // namespace

dvc_pnl_rmg_image_cache::dvc_pnl_rmg_image_cache()
    : cache_enable_(1)
    , cache_(DEFAULT_LIMIT) {
    // Counted in kilobytes there: in effect no limit.
    QPixmapCache::setCacheLimit(DEFAULT_LIMIT);
}

dvc_pnl_rmg_image_cache::~dvc_pnl_rmg_image_cache() {}

bool dvc_pnl_rmg_image_cache::dvc_pnl_rmg_image_insert(const QString& key, QPixmap* pixmap, int) {
    if (cache_enable_ == 0) {
        return false;
    }
    const int cost = cost_of(*pixmap);
    return cache_.insert(key, new dvc_pnl_rmg_image_cache_entry(pixmap), cost);
}

void dvc_pnl_rmg_image_cache::dvc_pnl_rmg_set_no_cache() {
    cache_enable_ = 0;
}

void dvc_pnl_rmg_image_cache::dvc_pnl_rmg_set_cache_limit(int kilobytes) {
    cache_.setMaxCost(saturated(static_cast<std::int64_t>(kilobytes) * BYTES_PER_KILOBYTE));
}

int dvc_pnl_rmg_image_cache::dvc_pnl_rmg_get_cache_limit() {
    return cache_.maxCost() / BYTES_PER_KILOBYTE;
}

bool dvc_pnl_rmg_image_cache::contains(const QString& key) const {
    return cache_.contains(key);
}

QStringList dvc_pnl_rmg_image_cache::keys() const {
    return QStringList(cache_.keys());
}

int dvc_pnl_rmg_image_cache::bytes() const {
    return cache_.totalCost();
}

} // namespace velarion
