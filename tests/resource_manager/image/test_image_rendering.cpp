#include "image_device.h"

#include <QImage>
#include <QMovie>
#include <QSvgRenderer>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace {

class image_rendering : public image_device {
protected:
    std::unique_ptr<QPixmap> render(const std::string& document, int width, int height) {
        return std::unique_ptr<QPixmap>(
            manager_->dvc_pnl_rmg_create_svg_image_data(QByteArray(document.c_str()), width, height));
    }
    QImage placeholder() {
        setenv("TEST_ICON_MESSAGE", "", 1);
        QPixmap pixmap(1, 1);
        manager_->get_error_image(&pixmap);
        return pixmap.toImage();
    }
};

bool is_plain(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

TEST_F(image_rendering, stretches_a_document_to_the_requested_or_its_natural_size) {
    const struct {
        int width;
        int height;
        QSize expected;
    } rows[] = {{0, 0, QSize(48, 24)},   {-1, 10, QSize(48, 24)}, {10, 0, QSize(48, 24)},
                {96, 96, QSize(96, 96)}, {5, 300, QSize(5, 300)}, {1, 1, QSize(1, 1)}};
    for (const auto& row : rows) {
        const std::unique_ptr<QPixmap> pixmap = render(svg_picture(48, 24), row.width, row.height);
        EXPECT_EQ(pixmap->size(), row.expected);
    }
    const QImage image = render(svg_picture(48, 24), 96, 96)->toImage();
    for (const int y : {0, 95}) { // painted to its middle, over its whole height
        EXPECT_EQ(image.pixel(0, y), 0xFF00FF00U);
        EXPECT_EQ(image.pixel(47, y), 0xFF00FF00U);
        EXPECT_EQ(qAlpha(image.pixel(48, y)), 0);
        EXPECT_EQ(qAlpha(image.pixel(95, y)), 0);
    }
}

TEST_F(image_rendering, gives_a_null_pixmap_for_what_is_no_document) {
    write_file(IMAGES + "broken.svg", svg_picture(8, 8).substr(0, 60));
    write_file(SHEETS + "elsewhere.svg", svg_picture(8, 8));
    for (const char* name : {"broken.svg", "elsewhere.svg", "missing.svg", ""}) {
        const std::unique_ptr<QPixmap> pixmap(
            manager_->dvc_pnl_rmg_create_svg_image_data(QString::fromLatin1(name), 8, 8));
        ASSERT_NE(pixmap, nullptr);
        EXPECT_TRUE(pixmap->isNull()) << name;
    }
    QSvgRenderer empty;
    const std::unique_ptr<QPixmap> pixmap(manager_->dvc_pnl_rmg_convert_svg_image_data(empty, 8, 8));
    EXPECT_TRUE(pixmap->isNull());
}

TEST_F(image_rendering, scales_in_place_when_both_sizes_are_positive) {
    QPixmap pixmap(10, 10);
    pixmap.fill(Qt::blue);
    const qint64 key = pixmap.cacheKey();
    manager_->dvc_pnl_rmg_qpixmap_size_convert(pixmap, 100, 0);
    manager_->dvc_pnl_rmg_qpixmap_size_convert(pixmap, -1, 100);
    EXPECT_EQ(pixmap.cacheKey(), key);
    manager_->dvc_pnl_rmg_qpixmap_size_convert(pixmap, 100, 50);
    EXPECT_EQ(pixmap.size(), QSize(100, 50));
    QPixmap null;
    manager_->dvc_pnl_rmg_qpixmap_size_convert(null, 100, 50);
    EXPECT_TRUE(null.isNull());
}

TEST_F(image_rendering, draws_the_placeholder_only_as_a_test_aid) {
    write_file(IMAGES + "ERROR_IMAGE.png", png_picture(100, 60, Qt::white));
    QPixmap null;
    manager_->get_error_image(&null);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(answer("none.png"), "2  3x3");
    const QImage unnamed = placeholder();
    EXPECT_EQ(unnamed.size(), QSize(100, 60));
    EXPECT_TRUE(is_plain(unnamed));
    EXPECT_EQ(answer("2", "", 30, 30), "4  100x60"); // the size asked for is not applied
    const QImage of_2 = placeholder();
    EXPECT_FALSE(is_plain(of_2));
    fs::remove(IMAGES + "ERROR_IMAGE.png");                // read once
    EXPECT_EQ(request("none.png").pixmap.toImage(), of_2); // a file identifier has no name of its own
    EXPECT_EQ(answer("99999"), "5  100x60");
    const QImage of_84 = request("84").pixmap.toImage();
    EXPECT_EQ(of_84, placeholder());
    EXPECT_NE(placeholder(), of_2);
}

TEST_F(image_rendering, leaves_out_the_placeholder_for_external_images) {
    write_file(IMAGES + "ERROR_IMAGE.png", png_picture(100, 60, Qt::white));
    setenv("TEST_ICON_MESSAGE", "1", 1);
    QPixmap pixmap(3, 3);
    const qint64 key = pixmap.cacheKey();
    EXPECT_EQ(manager_->dvc_pnl_rmg_get_image(QString::fromLatin1("ext:1"), &pixmap, 0, 0), 5);
    EXPECT_EQ(pixmap.cacheKey(), key);
}

TEST_F(image_rendering, gives_a_null_placeholder_for_good_when_its_file_is_missing_at_first) {
    EXPECT_TRUE(placeholder().isNull());
    write_file(IMAGES + "ERROR_IMAGE.png", png_picture(100, 4, Qt::white));
    EXPECT_TRUE(placeholder().isNull());
    image_manager::dvc_pnl_rmg_delete_instance();
    manager_ = image_manager::dvc_pnl_rmg_create_instance();
    EXPECT_EQ(placeholder().size(), QSize(100, 4)); // too low for any text
}

TEST_F(image_rendering, has_one_placeholder_movie_of_the_first_parent) {
    QObject first;
    QObject second;
    QMovie* movie = nullptr;
    QMovie* again = nullptr;
    manager_->get_error_movie(movie, &first);
    manager_->get_error_movie(again, &second);
    EXPECT_EQ(movie, again);
    EXPECT_EQ(movie->parent(), &first);
    EXPECT_EQ(movie->state(), QMovie::NotRunning);
    EXPECT_EQ(movie->fileName(), QString::fromLatin1((IMAGES + "ERROR_MOVIE.gif").c_str()));
}
