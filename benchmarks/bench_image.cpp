/*
 * What pictures cost, as ratios to the least work that could deliver the same.
 * Run it through scripts/device-shell.
 */
#include "dvc_pnl_rmg_image_cache.h"
#include "dvc_pnl_rmg_image_resource_manager.h"

#include <QApplication>
#include <QCache>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using velarion::dvc_pnl_rmg_image_resource_manager;

constexpr int ROUNDS = 9;
constexpr int ICON_EDGE = 48;
constexpr int PICTURES = 400; // about what the cache holds at 96 by 96
constexpr int PICTURE_EDGE = 96;

/** The median time of a round in nanoseconds per item. */
double measure(int items, const std::function<void()>& round) {
    std::vector<double> times;
    for (int i = 0; i < ROUNDS; ++i) {
        const auto start = std::chrono::steady_clock::now();
        round();
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
        times.push_back(time.count() / items);
    }
    std::nth_element(times.begin(), times.begin() + ROUNDS / 2, times.end());
    return times[ROUNDS / 2];
}

void print_ratio(const char* what, double time, const char* floor_name, double floor_time) {
    std::printf("%-32s %10.0f ns  %5.2f x  %s (%.0f ns)\n", what, time, time / floor_time, floor_name,
                floor_time);
}

QString path_of(const char* file_name) {
    return QString::fromStdString(dvc_pnl_rmg_image_resource_manager::RESOURCE_DIR) +
           QString::fromLatin1(file_name);
}

/** What an SVG request cannot do without. An edge of 0 is the natural size. */
QPixmap draw(const QString& path, int edge) {
    QSvgRenderer renderer(path);
    QPixmap pixmap(edge > 0 ? QSize(edge, edge) : renderer.viewBox().size());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

std::vector<QString> navigation_icons() {
    std::vector<QString> paths;
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const char* file_name = dvc_pnl_rmg_impl_image_name_table[i].file_name;
        if (std::strstr(file_name, "ico_globalnavi")) {
            paths.push_back(path_of(file_name));
        }
    }
    return paths;
}

/** @return whether every picture was delivered */
bool bench_requests(dvc_pnl_rmg_image_resource_manager& images) {
    bool is_delivered = true;
    const auto request = [&](const char* id, int edge, int count) {
        return measure(count, [&, id, edge, count] {
            QPixmap pixmap;
            for (int i = 0; i < count; ++i) {
                is_delivered &=
                    images.dvc_pnl_rmg_get_image(QString::fromLatin1(id), &pixmap, edge, edge) == 0;
            }
        });
    };
    const int many = 10000;
    const int few = 100;
    const QPixmap icon = draw(path_of("ico_globalnavi_quick.svg"), 0);
    const double copy = measure(many, [&] {
        QPixmap pixmap;
        for (int i = 0; i < many; ++i) {
            pixmap = i % 2 == 0 ? icon : QPixmap();
        }
    });
    print_ratio("cached picture", request("2", 0, many), "its copy", copy);
    const double drawing = measure(few, [&] {
        for (int i = 0; i < few; ++i) {
            draw(path_of("ico_globalnavi_quick.svg"), ICON_EDGE);
        }
    });
    print_ratio("SVG request", request("2", ICON_EDGE, few), "bare renderer", drawing);
    const double loading = measure(few, [&] {
        for (int i = 0; i < few; ++i) {
            QPixmap(path_of("gra_help_1_1.png"))
                .scaled(ICON_EDGE, ICON_EDGE, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
    });
    print_ratio("bitmap request", request("1375", ICON_EDGE, few), "bare loading and scaling", loading);
    return is_delivered;
}

void bench_preload(dvc_pnl_rmg_image_resource_manager& images) {
    const std::vector<QString> paths = navigation_icons();
    const int repeats = 5;
    const double preload = measure(repeats, [&] {
        for (int i = 0; i < repeats; ++i) {
            images.dvc_pnl_rmg_initialize();
        }
    });
    const double drawing = measure(repeats, [&] {
        for (int i = 0; i < repeats; ++i) {
            std::vector<QPixmap> pixmaps;
            pixmaps.reserve(paths.size());
            for (const QString& path : paths) {
                pixmaps.push_back(draw(path, 0));
            }
        }
    });
    print_ratio("preload", preload, "bare drawing of its files", drawing);
}

void bench_cache() {
    std::vector<QString> keys;
    keys.reserve(PICTURES);
    for (int i = 0; i < PICTURES; ++i) {
        keys.push_back(QString::fromLatin1("000096-000096-ico_%1.svg").arg(i));
    }
    QPixmap picture(PICTURE_EDGE, PICTURE_EDGE);
    picture.fill(Qt::red);
    const int bytes = PICTURE_EDGE * PICTURE_EDGE * picture.depth() / 8;

    velarion::dvc_pnl_rmg_image_cache ours;
    QCache<QString, QPixmap> bare(ours.dvc_pnl_rmg_get_cache_limit() * 1024);
    const double our_insertion = measure(PICTURES, [&] {
        for (const QString& key : keys) {
            ours.dvc_pnl_rmg_image_insert(key, new QPixmap(picture), 0);
        }
    });
    const double bare_insertion = measure(PICTURES, [&] {
        for (const QString& key : keys) {
            bare.insert(key, new QPixmap(picture), bytes);
        }
    });
    print_ratio("cache insertion", our_insertion, "bare QCache", bare_insertion);
    qint64 found = 0;
    const double our_lookup = measure(PICTURES, [&] {
        for (const QString& key : keys) {
            found += ours.dvc_pnl_rmg_image_get_pixmap(key)->width();
        }
    });
    const double bare_lookup = measure(PICTURES, [&] {
        for (const QString& key : keys) {
            found -= bare.object(key)->width();
        }
    });
    print_ratio("cache lookup", our_lookup, found == 0 ? "bare QCache" : "(pictures differ)", bare_lookup);
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    dvc_pnl_rmg_image_resource_manager& images =
        *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance();
    bench_preload(images);
    const bool is_delivered = bench_requests(images);
    bench_cache();
    dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance();
    if (!is_delivered) {
        std::fprintf(stderr,
                     "bench_image: the sample pictures are missing; run it through scripts/device-shell\n");
    }
    return is_delivered ? 0 : 3;
}
