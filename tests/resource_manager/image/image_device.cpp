#include "image_device.h"

#include <QBuffer>
#include <QImage>
#include <QPixmapCache>

#include <cstdlib>

const std::string IMAGES = image_manager::RESOURCE_DIR;
const std::string SHEETS = image_manager::RESOURCE_SHEETEXTENSION_DIR;

std::string svg_document(const std::string& content, const std::string& view_box) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "viewBox=\"" +
           view_box + "\">" + content + "</svg>";
}

std::string png_picture(int width, int height) {
    QImage image(width, height, QImage::Format_Mono);
    image.fill(1);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::string(buffer.data().constData(), static_cast<std::size_t>(buffer.data().size()));
}

void image_device::SetUp() {
    scratch_tree::SetUp();
    if (!HasFatalFailure()) {
        QPixmapCache::clear();
        manager_ = image_manager::dvc_pnl_rmg_create_instance();
    }
}

void image_device::TearDown() {
    image_manager::dvc_pnl_rmg_delete_instance();
    scratch_tree::TearDown();
}

std::string image_device::answer(const std::string& id, const std::string& suffix, int width, int height) {
    pixmap_ = QPixmap(3, 3);
    const qint64 key = pixmap_.cacheKey();
    std::string found_name = "left over";
    const int result =
        manager_->dvc_pnl_rmg_get_image(QString::fromUtf8(id.c_str()), &pixmap_,
                                        QString::fromUtf8(suffix.c_str()), found_name, width, height);
    const bool is_placeholder = std::getenv("TEST_ICON_MESSAGE") != nullptr;
    EXPECT_EQ(pixmap_.cacheKey() == key, result != 0 && !is_placeholder) << id;
    EXPECT_EQ(found_name.empty(), result != 0) << id;
    return std::to_string(result) + ' ' + found_name + ' ' + std::to_string(pixmap_.width()) + 'x' +
           std::to_string(pixmap_.height());
}

int image_device::register_image(const std::string& id, std::string bytes) {
    std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    return manager_->dvc_pnl_rmg_set_external_image(id, copy.data(), copy.size());
}
