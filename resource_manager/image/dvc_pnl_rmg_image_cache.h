#ifndef DVC_PNL_RMG_IMAGE_CACHE_H
#define DVC_PNL_RMG_IMAGE_CACHE_H

#include "dvc_pnl_export.h"
#include "dvc_pnl_rmg_image_cache_entry.h"

#include <QCache>
#include <QPixmap>
#include <QString>
#include <QStringList>

namespace velarion {

/**
 * Keeps rendered pictures under a text key, up to a limit in bytes; the least recently used go first.
 *
 * A picture costs width * height * depth / 8 bytes, a null pixmap nothing. Insertion and a successful
 * lookup make a picture the most recently used one. No locks, and lookups move pictures too: GUI thread
 * only.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_image_cache {
public:
    /** An empty cache of 16 MiB that takes pictures; also sets the toolkit's own pixmap cache limit. */
    dvc_pnl_rmg_image_cache();
    /** Deletes every cached pixmap. */
    ~dvc_pnl_rmg_image_cache();
    dvc_pnl_rmg_image_cache(const dvc_pnl_rmg_image_cache&) = delete;
    dvc_pnl_rmg_image_cache& operator=(const dvc_pnl_rmg_image_cache&) = delete;

    /**
     * Hands a picture over to the cache, in place of the one under the same key.
     *
     * @param pixmap  from the heap and not null; the cache owns it from here on whatever the result,
     *                except after dvc_pnl_rmg_set_no_cache(): then it stays the caller's
     * @param cost    not used
     * @return whether it is cached; a picture larger than the limit is deleted at once, and the old one
     *         under its key is gone too
     */
    bool dvc_pnl_rmg_image_insert(const QString& key, QPixmap* pixmap, int cost);

    /** @return the cached picture, the cache's own and valid until the next insertion or limit; or null */
    DVC_PNL_EXPORT QPixmap* dvc_pnl_rmg_image_get_pixmap(const QString& key) const {
        const dvc_pnl_rmg_image_cache_entry* entry = cache_.object(key);
        return !entry ? nullptr : entry->get_pixmap();
    }

    /** Takes no further pictures, for good. What is cached stays. */
    void dvc_pnl_rmg_set_no_cache();

    /**
     * Sets the limit and drops pictures until the rest fits.
     *
     * @param kilobytes  units of 1024 bytes; zero and less drop everything; the limit is at most
     *                   2147483647 bytes, which any value above 2097151 gives
     */
    void dvc_pnl_rmg_set_cache_limit(int kilobytes);
    /** @return the limit in units of 1024 bytes, truncated toward zero */
    int dvc_pnl_rmg_get_cache_limit();

    /** @return whether there is a picture under the key; unlike a lookup, it moves nothing */
    bool contains(const QString& key) const;
    /** @return every key, in no particular order; moves nothing */
    QStringList keys() const;
    /** @return what the cached pictures cost together, in bytes */
    int bytes() const;

private:
    int cache_enable_;
    QCache<QString, dvc_pnl_rmg_image_cache_entry> cache_;
};

} // namespace velarion

#endif
