#ifndef PICTURE_REQUESTS_H
#define PICTURE_REQUESTS_H

#include <QPixmap>
#include <QSize>
#include <QString>

namespace velarion {

/** How requests for pictures were answered. */
struct picture_counts {
    int hits = 0;     ///< from the cache
    int misses = 0;   ///< drawn or loaded
    int failures = 0; ///< no picture
};

/** Asks the image manager for pictures, and counts how it answers. GUI thread only. */
class picture_requests {
public:
    /**
     * As dvc_pnl_rmg_get_image().
     *
     * @param size        px; empty: the picture's own
     * @param found_name  receives the name under which the picture was found, empty on failure
     * @param was_cached  receives whether the cache had it
     */
    static int get_image(const QString& id, const QString& suffix, const QSize& size, QPixmap& pixmap,
                         QString& found_name, bool& was_cached);

    /** Pictures may be others from here on. */
    static void start_anew() { ++generation_; }
    /** Another one after each start_anew(). */
    static int generation() { return generation_; }

    static const picture_counts& counts() { return counts_; }
    static void set_counts(const picture_counts& counts) { counts_ = counts; }

    /** Whether the cache holds a file's picture at a size. */
    static bool is_cached(const QString& file_name, const QSize& size);

private:
    static bool is_answered_by_cache(const QString& id, const QString& suffix, const QSize& size);

    static picture_counts counts_;
    static int generation_;
};

} // namespace velarion

#endif
