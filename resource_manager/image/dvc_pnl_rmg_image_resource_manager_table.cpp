// The image table: identifiers, types, and the keys of the cache.
#include "dvc_pnl_rmg_image_resource_manager.h"

#include "dvc_pnl_utl_toolkit.h"
#include "id_directory.h"
#include "plain_number.h"

#include <cstdio>
#include <cstring>

namespace velarion {

namespace {

struct file_type {
    const char* extension;
    int type;
};
constexpr file_type FILE_TYPES[] = {
    {".png", DVC_PNL_RMG_IMAGE_TYPE_STILL},
    {".gif", DVC_PNL_RMG_IMAGE_TYPE_MOVIE},
    {".svg", DVC_PNL_RMG_IMAGE_TYPE_STILL},
};

} // namespace

int dvc_pnl_rmg_image_resource_manager::compare_element(const void* first, const void* second) {
    const std::int32_t left = static_cast<const DVC_PNL_RMG_IMPL_IMAGE_NAME*>(first)->image_id;
    const std::int32_t right = static_cast<const DVC_PNL_RMG_IMPL_IMAGE_NAME*>(second)->image_id;
    return left < right ? -1 : (left > right ? 1 : 0);
}

bool dvc_pnl_rmg_image_resource_manager::search_image_element(const DVC_PNL_RMG_IMPL_IMAGE_NAME& key,
                                                              DVC_PNL_RMG_IMPL_IMAGE_NAME& found) {
    // Never freed: a host may still ask while its own objects are destroyed.
    static const auto& directory =
        *new id_directory<DVC_PNL_RMG_IMPL_IMAGE_NAME, &DVC_PNL_RMG_IMPL_IMAGE_NAME::image_id>(
            dvc_pnl_rmg_impl_image_name_table,
            static_cast<std::size_t>(dvc_pnl_rmg_imple_image_name_table_size));
    const DVC_PNL_RMG_IMPL_IMAGE_NAME* row = directory.find(key.image_id);
    if (!row) {
        return false;
    }
    found = *row;
    return true;
}

int dvc_pnl_rmg_image_resource_manager::judgement_image_type(const DVC_PNL_RMG_IMPL_IMAGE_NAME& image) {
    const QString name = dvc_pnl_utl_from_8bit(image.file_name).toLower();
    for (const file_type& known : FILE_TYPES) {
        if (name.endsWith(QLatin1String(known.extension))) {
            return known.type;
        }
    }
    return DVC_PNL_RMG_IMAGE_TYPE_NONE;
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_search_image_id_info(const char* id) {
    if (!id) {
        return DVC_PNL_RMG_IMAGE_TYPE_NONE;
    }
    if (std::strchr(id, EXTERNAL_MARK)) {
        external_name_ = std::string(id); // a copy first: id may be the name itself
        current_image_ = {NO_IMAGE_ID, nullptr, external_name_.c_str()};
        return DVC_PNL_RMG_IMAGE_TYPE_STILL;
    }
    DVC_PNL_RMG_IMPL_IMAGE_NAME wanted = {NO_IMAGE_ID, nullptr, id};
    int number = 0;
    if (!read_number(id, number)) {
        return judgement_image_type(wanted);
    }
    wanted.image_id = number;
    if (!search_image_element(wanted, current_image_)) {
        return DVC_PNL_RMG_IMAGE_TYPE_NONE;
    }
    return judgement_image_type(current_image_);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_image_type(const char* id) {
    return dvc_pnl_rmg_search_image_id_info(id);
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_icon_file_mame(const QString& id, QString& file) {
    dvc_pnl_rmg_search_image_id_info(id.toUtf8().constData());
    file = dvc_pnl_utl_from_8bit(current_image_.file_name);
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_image_id(QString name, int width, int height,
                                                                     QString& key) {
    key = name;
    if (is_requested_size(width, height)) {
        char size[32];
        std::snprintf(size, sizeof size, "%06d-%06d-", width, height);
        key.prepend(QString::fromLatin1(size));
    }
}

} // namespace velarion
