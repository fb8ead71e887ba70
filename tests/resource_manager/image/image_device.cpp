#include "image_device.h"

#include <QBuffer>
#include <QPixmapCache>

#include <cstdlib>

const std::string IMAGES = image_manager::RESOURCE_DIR;
const std::string SHEETS = image_manager::RESOURCE_SHEETEXTENSION_DIR;

namespace {

const int UNTOUCHED = 3;

} // namespace

std::string svg_picture(int width, int height) {
    const std::string w = std::to_string(width);
    const std::string h = std::to_string(height);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + w + ' ' + h + "\"><rect width=\"" +
           std::to_string(width / 2) + "\" height=\"" + h + "\" fill=\"#00ff00\"/></svg>";
}

std::string png_picture(int width, int height, Qt::GlobalColor colour) {
    QPixmap pixmap(width, height);
    pixmap.fill(colour);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    pixmap.save(&buffer, "PNG");
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

image_answer image_device::request(const std::string& id, const std::string& suffix, int width, int height) {
    image_answer answer = {-1, "left over", QPixmap(UNTOUCHED, UNTOUCHED)};
    const qint64 key = answer.pixmap.cacheKey();
    answer.result =
        manager_->dvc_pnl_rmg_get_image(QString::fromUtf8(id.c_str()), &answer.pixmap,
                                        QString::fromUtf8(suffix.c_str()), answer.found_name, width, height);
    const bool is_placeholder = std::getenv("TEST_ICON_MESSAGE") != nullptr;
    EXPECT_EQ(answer.pixmap.cacheKey() == key, answer.result != 0 && !is_placeholder) << id;
    EXPECT_EQ(answer.found_name.empty(), answer.result != 0) << id;
    return answer;
}

std::string image_device::answer(const std::string& id, const std::string& suffix, int width, int height) {
    const image_answer answer = request(id, suffix, width, height);
    return std::to_string(answer.result) + ' ' + answer.found_name + ' ' +
           std::to_string(answer.pixmap.width()) + 'x' + std::to_string(answer.pixmap.height());
}

int image_device::register_image(const std::string& id, std::string bytes) {
    std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    return manager_->dvc_pnl_rmg_set_external_image(id, copy.data(), copy.size());
}

std::string image_device::current_file() {
    QString file;
    manager_->dvc_pnl_rmg_get_icon_file_mame(QString::fromLatin1("99999"), file);
    return file.toUtf8().constData();
}
