/*
 * What an SVG picture costs at several sizes: drawn the first time, and from the cache, beside the toolkit
 * alone, its icons and librsvg. Cases are "svg_PX/who" and "svg_cached_PX/who". Runs in the sample device.
 *
 * PICTURE_SIZES names the sizes, px, with blanks between.
 */
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "measured_cases.h"
#include "picture_peers.h"

#include <QApplication>
#include <QCache>
#include <QIcon>
#include <QPixmapCache>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using velarion::add_case;
using velarion::dvc_pnl_rmg_image_resource_manager;
using velarion::keep;

const QString DRAWING_ID = QString::fromLatin1("2"); // always drawn at a size asked for
constexpr char DRAWING[] = "ico_globalnavi_quick.svg";
const QString CACHED_ID = QString::fromLatin1("87"); // kept in the cache at each size
constexpr char CACHED[] = "gra_component_background_setting_i.svg";
constexpr int MANY = 100;

void keep(const QPixmap& pixmap) {
    keep(static_cast<std::size_t>(pixmap.width()));
}

QString path_of(const char* file_name) {
    return QString::fromStdString(dvc_pnl_rmg_image_resource_manager::RESOURCE_DIR) +
           QString::fromLatin1(file_name);
}

QPixmap request(const QString& id, int edge) {
    QPixmap pixmap;
    auto& images = *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance();
    if (images.dvc_pnl_rmg_get_image(id, &pixmap, edge, edge) != 0) {
        throw std::runtime_error("the sample pictures are missing; run it through scripts/device-shell");
    }
    return pixmap;
}

void add_drawings(int edge) {
    const std::string work = "svg_" + std::to_string(edge);
    const QString path = path_of(DRAWING);
    add_case(work + "/ours", 1, [edge] { keep(request(DRAWING_ID, edge)); });
    add_case(work + "/floor", 1, [path, edge] { keep(velarion::draw(path, edge)); });
    add_case(work + "/icon", 1, QPixmapCache::clear, [path, edge] { keep(QIcon(path).pixmap(edge)); });
    add_case(work + "/librsvg", 1, [path, edge] { keep(velarion::draw_with_librsvg(path, edge)); });
}

void add_many(const std::string& name, const std::function<QPixmap()>& picture) {
    add_case(name, MANY, [picture] {
        for (int i = 0; i < MANY; ++i) {
            keep(picture());
        }
    });
}

void add_cached(int edge) {
    const std::string work = "svg_cached_" + std::to_string(edge);
    const QString path = path_of(CACHED);
    request(CACHED_ID, edge);
    add_many(work + "/ours", [edge] { return request(CACHED_ID, edge); });
    const auto bare = std::make_shared<QCache<QString, QPixmap>>();
    bare->insert(path, new QPixmap(velarion::draw(path, edge)));
    add_many(work + "/floor", [bare, path] { return *bare->object(path); });
    const QIcon icon(path);
    add_many(work + "/icon", [icon, edge] { return icon.pixmap(edge); });
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    int result = 3;
    try {
        dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance()->dvc_pnl_rmg_initialize();
        for (const QByteArray& size : qgetenv("PICTURE_SIZES").split(' ')) {
            add_drawings(size.toInt());
            add_cached(size.toInt());
        }
        result = velarion::run_cases(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_picture_sizes: %s\n", error.what());
    }
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    return result;
}
