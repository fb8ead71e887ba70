#include "dvc_pnl_rmg_image_cache.h"

#include <QPixmap>
#include <QPixmapCache>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace {

using velarion::dvc_pnl_rmg_image_cache;

/** A pixmap is a row of 256 pixels of 32 bits for each kilobyte it costs. */
const int PIXELS_PER_KILOBYTE = 256;

/** A cache, and copies by which it shows whose pixmaps live. */
class image_cache : public testing::Test {
protected:
    bool insert(const std::string& key, int width, int height) {
        QPixmap* pixmap = new QPixmap(width, height);
        witnesses_[key] = *pixmap;
        return cache_->dvc_pnl_rmg_image_insert(name(key), pixmap, 0);
    }
    bool insert_kilobytes(const std::string& key, int kilobytes) {
        return insert(key, PIXELS_PER_KILOBYTE, kilobytes);
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
    bool holds(const std::string& key, const QPixmap& pixmap) {
        return find(key) != nullptr && find(key)->cacheKey() == pixmap.cacheKey();
    }

    static QString name(const std::string& key) { return QString::fromLatin1(key.c_str()); }

    std::unique_ptr<dvc_pnl_rmg_image_cache> cache_{new dvc_pnl_rmg_image_cache};
    std::map<std::string, QPixmap> witnesses_;
};

} // namespace

TEST_F(image_cache, evicts_the_least_recently_used_and_no_more_than_needed) {
    cache_->dvc_pnl_rmg_set_cache_limit(10);
    for (const char* key : {"a", "b", "c"}) {
        EXPECT_TRUE(insert_kilobytes(key, 3));
    }
    EXPECT_NE(find("a"), nullptr);
    EXPECT_TRUE(insert_kilobytes("d", 4)); // exactly fits once b is gone
    EXPECT_EQ(living(), "acd");
    EXPECT_EQ(find("b"), nullptr);
    EXPECT_TRUE(insert_kilobytes("e", 1));
    EXPECT_EQ(living(), "ade");
    cache_->dvc_pnl_rmg_set_cache_limit(4);
    EXPECT_EQ(living(), "e");
    cache_.reset();
    EXPECT_EQ(living(), "");
}

TEST_F(image_cache, replaces_the_picture_of_a_key_also_by_one_that_it_refuses) {
    cache_->dvc_pnl_rmg_set_cache_limit(10);
    EXPECT_TRUE(insert_kilobytes("a", 9));
    const QPixmap old = witnesses_["a"];
    EXPECT_TRUE(insert_kilobytes("a", 4));
    EXPECT_TRUE(insert_kilobytes("b", 6)); // the old cost no longer counts
    EXPECT_EQ(living(), "ab");
    EXPECT_TRUE(holds("a", witnesses_["a"]));
    EXPECT_TRUE(old.isDetached());
    EXPECT_FALSE(insert_kilobytes("a", 11));
    EXPECT_EQ(living(), "b");
    EXPECT_EQ(find("a"), nullptr);
}

TEST_F(image_cache, takes_a_picture_as_large_as_the_limit) {
    EXPECT_EQ(cache_->dvc_pnl_rmg_get_cache_limit(), 16384);
    EXPECT_EQ(QPixmapCache::cacheLimit(), 16777216);
    EXPECT_TRUE(insert("icon", 48, 48));
    EXPECT_TRUE(insert("whole", 2048, 2048));
    EXPECT_EQ(living(), "whole");
    EXPECT_FALSE(insert("more", 2048, 2049));
    EXPECT_EQ(living(), "whole");
    EXPECT_TRUE(cache_->dvc_pnl_rmg_image_insert(name("null"), new QPixmap, 0));
    EXPECT_TRUE(holds("null", QPixmap()));
}

TEST_F(image_cache, leaves_pictures_to_the_caller_once_it_takes_no_more) {
    EXPECT_TRUE(insert_kilobytes("a", 1));
    cache_->dvc_pnl_rmg_set_no_cache();
    const std::unique_ptr<QPixmap> mine(new QPixmap(1, 1));
    const QPixmap witness = *mine;
    EXPECT_FALSE(cache_->dvc_pnl_rmg_image_insert(name("a"), mine.get(), 0));
    EXPECT_FALSE(witness.isDetached());
    EXPECT_TRUE(holds("a", witnesses_["a"]));
    EXPECT_EQ(cache_->dvc_pnl_rmg_get_cache_limit(), 16384);
}

TEST_F(image_cache, keeps_every_limit_in_range) {
    const struct {
        int kilobytes;
        int limit;
        const char* living;
    } rows[] = {{2097151, 2097151, "a"},    {2147483647, 2097151, "a"}, {1, 1, "a"}, {0, 0, ""}, {-1, -1, ""},
                {-2147483647, -2097152, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.kilobytes);
        cache_->dvc_pnl_rmg_set_cache_limit(16384);
        EXPECT_TRUE(insert_kilobytes("a", 1));
        cache_->dvc_pnl_rmg_set_cache_limit(row.kilobytes);
        EXPECT_EQ(cache_->dvc_pnl_rmg_get_cache_limit(), row.limit);
        EXPECT_EQ(living(), row.living);
    }
}
