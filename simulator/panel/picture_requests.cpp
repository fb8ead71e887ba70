#include "picture_requests.h"

#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_image_cache.h"
#include "dvc_pnl_rmg_image_resource_manager.h"

#include <string>

namespace velarion {

namespace {

dvc_pnl_rmg_image_resource_manager& images() {
    return *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance();
}

} // namespace

picture_counts picture_requests::counts_;
int picture_requests::generation_ = 0;

int picture_requests::get_image(const QString& id, const QString& suffix, const QSize& size, QPixmap& pixmap,
                                QString& found_name, bool& was_cached) {
    was_cached = is_answered_by_cache(id, suffix, size);
    std::string found;
    const int result =
        images().dvc_pnl_rmg_get_image(id, &pixmap, suffix, found, size.width(), size.height());
    found_name = QString::fromUtf8(found.c_str());
    ++(result != DVC_PNL_RMG_IMAGE_OK ? counts_.failures : was_cached ? counts_.hits : counts_.misses);
    return result;
}

bool picture_requests::is_cached(const QString& file_name, const QSize& size) {
    QString key;
    images().dvc_pnl_rmg_create_image_id(file_name, size.width(), size.height(), key);
    return images().cache().contains(key);
}

/** Only numbers are looked for in the cache. */
bool picture_requests::is_answered_by_cache(const QString& id, const QString& suffix, const QSize& size) {
    DVC_PNL_RMG_IMPL_IMAGE_NAME wanted = {0, nullptr, nullptr};
    DVC_PNL_RMG_IMPL_IMAGE_NAME row;
    if (!dvc_pnl_common_utility::string_to_int(id.toStdString(), wanted.image_id) ||
        !images().search_image_element(wanted, row)) {
        return false;
    }
    const QString name = images().get_image_name_with_state_suffix(QString::fromUtf8(row.file_name), suffix);
    const QString darker =
        QString::fromStdString(dvc_pnl_rmg_image_resource_manager::DARKER_IMAGE_NAME_PREFIX) + name;
    return is_cached(name, size) || is_cached(darker, size);
}

} // namespace velarion
