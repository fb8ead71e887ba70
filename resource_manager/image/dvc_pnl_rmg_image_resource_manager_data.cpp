// What the host stores and hands over: the machine-specific path, data files, external images.
#include "dvc_pnl_rmg_image_resource_manager.h"

#include "dvc_pnl_rmg_data_file_access.h"
#include "dvc_pnl_rmg_image_inspection.h"
#include "dvc_pnl_rmg_property.h"

#include <limits>
#include <utility>

namespace velarion {

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_set_machine_specific_path(const char* path, int& error) {
    error = 0;
    if (!path || *path == '\0') {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    machine_data_file_ = std::string(path); // a copy first: path may be the stored one
    return DVC_PNL_RMG_RESULT_OK;
}

const char* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_machine_data_file() {
    return machine_data_file_.c_str();
}

bool dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_is_exist_data_file(const char* name, int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).exists(name, error);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_remove_data_file(const char* name, int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).remove(name, error);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_set_image_data(const char* name,
                                                                   const unsigned char* bytes,
                                                                   unsigned long count, int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).write(name, bytes, count, error);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_image_data(const char* name,
                                                                   std::vector<unsigned char>& data,
                                                                   int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).read(name, data, error);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_set_external_image(const std::string& id,
                                                                       unsigned char* bytes,
                                                                       unsigned long count) {
    if (!bytes || count > static_cast<unsigned long>(std::numeric_limits<int>::max())) {
        return DVC_PNL_RMG_RESULT_IMAGE_ERROR;
    }
    const int size = static_cast<int>(count);
    const QByteArray encoded =
        QByteArray::fromRawData(static_cast<const char*>(static_cast<void*>(bytes)), size);
    QPixmap picture;
    if (!dvc_pnl_rmg_load_image(encoded, picture)) {
        return DVC_PNL_RMG_RESULT_IMAGE_ERROR;
    }
    const bool is_added = external_images_.insert(std::make_pair(id, picture)).second;
    return is_added ? DVC_PNL_RMG_RESULT_OK : DVC_PNL_RMG_RESULT_IMAGE_ERROR;
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_clear_external_image(const std::string& id) {
    external_images_.erase(id);
}

} // namespace velarion
