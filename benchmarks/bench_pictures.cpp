/*
 * What a picture costs beside the least work that could deliver the same, and beside the toolkit's icons and
 * pixmap cache and librsvg. Runs in the sample device (scripts/device-shell).
 */
#include "dvc_pnl_rmg_image_cache.h"
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "measured_cases.h"
#include "picture_peers.h"

#include <QApplication>
#include <QCache>
#include <QIcon>
#include <QPixmapCache>

#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using velarion::add_case;
using velarion::draw;
using velarion::draw_with_librsvg;
using velarion::dvc_pnl_rmg_image_resource_manager;
using velarion::keep;

constexpr int ICON_EDGE = 48;
constexpr int MANY = 1000;
constexpr int PICTURES = 400; // about what the cache holds at 96 by 96
constexpr int PICTURE_EDGE = 96;
const QString DRAWING_ID = QString::fromLatin1("2");
const QString SIZED_ID = QString::fromLatin1("87"); // kept in the cache at each size
const QString BITMAP_ID = QString::fromLatin1("1375");
constexpr char DRAWING[] = "ico_globalnavi_quick.svg";
constexpr char BITMAP[] = "gra_help_1_1.png";

QString path_of(const char* file_name) {
    return QString::fromUtf8(dvc_pnl_rmg_image_resource_manager::RESOURCE_DIR.c_str()) +
           QString::fromLatin1(file_name);
}

QPixmap scaled(const QPixmap& picture, int edge) {
    return picture.scaled(edge, edge, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void request(dvc_pnl_rmg_image_resource_manager& images, const QString& id, int edge) {
    QPixmap pixmap;
    if (images.dvc_pnl_rmg_get_image(id, &pixmap, edge, edge) != 0) {
        throw std::runtime_error("the sample pictures are missing; run it through scripts/device-shell");
    }
    keep(static_cast<std::size_t>(pixmap.width()));
}

void add_drawings(dvc_pnl_rmg_image_resource_manager& images) {
    const QString path = path_of(DRAWING);
    add_case("svg_first/ours", 1, [&images] { request(images, DRAWING_ID, ICON_EDGE); });
    add_case("svg_first/floor", 1, [path] { keep(std::size_t(draw(path, ICON_EDGE).width())); });
    add_case("svg_first/icon", 1, QPixmapCache::clear,
             [path] { keep(std::size_t(QIcon(path).pixmap(ICON_EDGE).width())); });
    add_case("svg_first/librsvg", 1,
             [path] { keep(std::size_t(draw_with_librsvg(path, ICON_EDGE).width())); });
}

void add_hits(const std::string& work, dvc_pnl_rmg_image_resource_manager& images, const QString& id,
              const QString& key, int edge) {
    QPixmap picture;
    images.dvc_pnl_rmg_get_image(id, &picture, edge, edge); // is in the cache from here on
    add_case(work + "/ours", MANY, [&images, id, edge] {
        for (int i = 0; i < MANY; ++i) {
            request(images, id, edge);
        }
    });
    auto bare = std::make_shared<QCache<QString, QPixmap>>();
    bare->insert(key, new QPixmap(picture));
    add_case(work + "/floor", MANY, [bare, key] {
        for (int i = 0; i < MANY; ++i) {
            const QPixmap pixmap = *bare->object(key);
            keep(static_cast<std::size_t>(pixmap.width()));
        }
    });
}

void add_cached(dvc_pnl_rmg_image_resource_manager& images) {
    const QPixmap picture = draw(path_of(DRAWING), 0);
    const QString key = QString::fromLatin1(DRAWING);
    add_hits("picture_cached", images, DRAWING_ID, key, 0);
    add_hits("picture_cached_sized", images, SIZED_ID,
             QString::fromLatin1("000048-000048-gra_component_background_setting_i.svg"), ICON_EDGE);
    QPixmapCache::insert(key, picture);
    add_case("picture_cached/pixmap_cache", MANY, [key, picture] {
        for (int i = 0; i < MANY; ++i) {
            QPixmap pixmap;
            if (!QPixmapCache::find(key, &pixmap)) {
                QPixmapCache::insert(key, picture);
            }
            keep(static_cast<std::size_t>(pixmap.width()));
        }
    });
    const QIcon icon(path_of(DRAWING));
    add_case("picture_cached/icon", MANY, [icon, size = picture.size()] {
        for (int i = 0; i < MANY; ++i) {
            keep(static_cast<std::size_t>(icon.pixmap(size).width()));
        }
    });
}

void add_bitmaps(dvc_pnl_rmg_image_resource_manager& images, const std::string& work,
                 const std::function<void()>& prepare) {
    const QString path = path_of(BITMAP);
    add_case(work + "/ours", 1, prepare, [&images] { request(images, BITMAP_ID, ICON_EDGE); });
    add_case(work + "/floor", 1, prepare, [path] {
        QPixmap picture;
        picture.load(path);
        keep(static_cast<std::size_t>(scaled(picture, ICON_EDGE).width()));
    });
}

void add_preload(dvc_pnl_rmg_image_resource_manager& images) {
    std::vector<QString> paths;
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const char* file_name = dvc_pnl_rmg_impl_image_name_table[i].file_name;
        if (std::strstr(file_name, "ico_globalnavi")) {
            paths.push_back(path_of(file_name));
        }
    }
    add_case("preload/ours", 1, [&images] { images.dvc_pnl_rmg_initialize(); });
    add_case("preload/floor", 1, [paths] {
        std::vector<QPixmap> pixmaps;
        pixmaps.reserve(paths.size());
        for (const QString& path : paths) {
            pixmaps.push_back(draw(path, 0));
        }
        keep(pixmaps.size());
    });
}

void add_cache() {
    std::vector<QString> keys;
    for (int i = 0; i < PICTURES; ++i) {
        keys.push_back(QString::fromLatin1("000096-000096-ico_%1.svg").arg(i));
    }
    QPixmap picture(PICTURE_EDGE, PICTURE_EDGE);
    picture.fill(Qt::red);
    const int bytes = PICTURE_EDGE * PICTURE_EDGE * picture.depth() / 8;
    auto ours = std::make_shared<velarion::dvc_pnl_rmg_image_cache>();
    auto bare = std::make_shared<QCache<QString, QPixmap>>(ours->dvc_pnl_rmg_get_cache_limit() * 1024);
    add_case("cache_insertion/ours", PICTURES, [ours, keys, picture] {
        for (const QString& key : keys) {
            ours->dvc_pnl_rmg_image_insert(key, new QPixmap(picture), 0);
        }
    });
    add_case("cache_insertion/floor", PICTURES, [bare, keys, picture, bytes] {
        for (const QString& key : keys) {
            bare->insert(key, new QPixmap(picture), bytes);
        }
    });
    for (const QString& key : keys) {
        ours->dvc_pnl_rmg_image_insert(key, new QPixmap(picture), 0);
        bare->insert(key, new QPixmap(picture), bytes);
    }
    add_case("cache_lookup/ours", PICTURES, [ours, keys] {
        for (const QString& key : keys) {
            keep(static_cast<std::size_t>(ours->dvc_pnl_rmg_image_get_pixmap(key)->width()));
        }
    });
    add_case("cache_lookup/floor", PICTURES, [bare, keys] {
        for (const QString& key : keys) {
            keep(static_cast<std::size_t>(bare->object(key)->width()));
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    int result = 3;
    try {
        auto& images = *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance();
        images.dvc_pnl_rmg_initialize();
        add_drawings(images);
        add_cached(images);
        add_bitmaps(images, "bitmap", [] { QPixmapCache::clear(); });
        add_bitmaps(images, "bitmap_warm", nullptr);
        add_preload(images);
        add_cache();
        result = velarion::run_cases(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_pictures: %s\n", error.what());
    }
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    return result;
}
