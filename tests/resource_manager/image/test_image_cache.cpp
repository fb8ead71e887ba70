#include "dvc_pnl_rmg_image_cache.h"

#include <QPixmap>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace {

using velarion::dvc_pnl_rmg_image_cache;

/** A cache, and copies by which it shows whose pixmaps live. Holds for pixmaps of 16 and of 32 bits. */
class image_cache : public testing::Test {
protected:
    bool insert(const std::string& key, int kilobytes) {
        QPixmap* pixmap = new QPixmap(width_, kilobytes);
        pixmap->fill(Qt::transparent); // the same depth as the one that was measured
        witnesses_[key] = *pixmap;
        return cache_->dvc_pnl_rmg_image_insert(name(key), pixmap, 0);
    }
    /** The keys in the order of their names whose pixmaps live. */
    std::string living() const {
        std::string keys;
        for (const auto& witness : witnesses_) {
            keys += witness.second.isDetached() ? "" : witness.first;
        }
        return keys;
    }
    QPixmap* find(const std::string& key) { return cache_->dvc_pnl_rmg_image_get_pixmap(name(key)); }

    /** Pixels of one kilobyte. */
    static int measured_width() {
        QPixmap pixmap(1, 1);
        pixmap.fill(Qt::transparent);
        return 8 * 1024 / pixmap.depth();
    }
    static QString name(const std::string& key) { return QString::fromLatin1(key.c_str()); }

    std::unique_ptr<dvc_pnl_rmg_image_cache> cache_{new dvc_pnl_rmg_image_cache};
    std::map<std::string, QPixmap> witnesses_;
    const int width_ = measured_width();
};

} // namespace

TEST_F(image_cache, evicts_the_least_recently_used_and_no_more_than_needed) {
    cache_->dvc_pnl_rmg_set_cache_limit(10);
    for (const char* key : {"a", "b", "c"}) {
        EXPECT_TRUE(insert(key, 3));
    }
    EXPECT_NE(find("a"), nullptr);
    EXPECT_TRUE(cache_->contains(name("b"))); // looking in saves nothing
    EXPECT_TRUE(insert("d", 4));              // exactly fits once b is gone
    EXPECT_EQ(living(), "acd");
    EXPECT_FALSE(cache_->contains(name("b")));
    EXPECT_EQ(cache_->keys().size(), 3);
    EXPECT_EQ(cache_->bytes(), 10 * 1024);
    cache_->dvc_pnl_rmg_set_cache_limit(4);
    EXPECT_EQ(living(), "d");
    cache_.reset();
    EXPECT_EQ(living(), "");
}

TEST_F(image_cache, replaces_the_picture_of_a_key_also_by_one_that_it_refuses) {
    cache_->dvc_pnl_rmg_set_cache_limit(10);
    EXPECT_TRUE(insert("a", 9));
    const QPixmap old = witnesses_["a"];
    EXPECT_TRUE(insert("a", 4));
    EXPECT_TRUE(insert("b", 6)); // the old cost no longer counts
    EXPECT_TRUE(old.isDetached());
    EXPECT_EQ(find("a")->cacheKey(), witnesses_["a"].cacheKey());
    EXPECT_FALSE(insert("a", 11));
    EXPECT_EQ(living(), "b");
    EXPECT_EQ(find("a"), nullptr);
}

TEST_F(image_cache, leaves_pictures_to_the_caller_once_it_takes_no_more) {
    EXPECT_TRUE(insert("a", 16384)); // as large as the limit is at first
    EXPECT_FALSE(insert("b", 16385));
    cache_->dvc_pnl_rmg_set_no_cache();
    const std::unique_ptr<QPixmap> mine(new QPixmap(1, 1));
    const QPixmap witness = *mine;
    EXPECT_FALSE(cache_->dvc_pnl_rmg_image_insert(name("a"), mine.get(), 0));
    EXPECT_FALSE(witness.isDetached());
    EXPECT_EQ(living(), "a");
}

TEST_F(image_cache, keeps_every_limit_in_range) {
    EXPECT_TRUE(insert("a", 1));
    cache_->dvc_pnl_rmg_set_cache_limit(2147483647);
    EXPECT_EQ(cache_->dvc_pnl_rmg_get_cache_limit(), 2097151);
    cache_->dvc_pnl_rmg_set_cache_limit(-2147483647);
    EXPECT_EQ(cache_->dvc_pnl_rmg_get_cache_limit(), -2097152);
    EXPECT_EQ(living(), "");
}
