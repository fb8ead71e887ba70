// The image table: identifiers, types, and the keys of the cache.
#include "dvc_pnl_rmg_image_resource_manager.h"

#include "ascii_letters.h"
#include "dvc_pnl_utl_toolkit.h"
#include "id_directory.h"
#include "plain_number.h"

#include <cstring>
#include <limits>

namespace velarion {

namespace {

struct file_type {
    const char* letters; ///< of the extension, lower case
    int type;
};
constexpr file_type FILE_TYPES[] = {
    {"png", DVC_PNL_RMG_IMAGE_TYPE_STILL},
    {"gif", DVC_PNL_RMG_IMAGE_TYPE_MOVIE},
    {"svg", DVC_PNL_RMG_IMAGE_TYPE_STILL},
};
constexpr std::size_t EXTENSION_SIZE = 4; // with its dot

constexpr int LEAST_DIGITS = 6; // of an edge in a key

/** Writes a positive number of pixels and a hyphen. @return the place behind them */
char* write_edge(int pixels, char* at) {
    char digits[std::numeric_limits<int>::digits10 + 1];
    int count = 0;
    for (; pixels > 0 || count < LEAST_DIGITS; pixels /= 10) {
        digits[count++] = static_cast<char>('0' + pixels % 10);
    }
    while (count > 0) {
        *at++ = digits[--count];
    }
    *at++ = '-';
    return at;
}

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
    const char* const extension = !image.file_name ? nullptr : std::strrchr(image.file_name, '.');
    if (!extension || std::strlen(extension) != EXTENSION_SIZE) {
        return DVC_PNL_RMG_IMAGE_TYPE_NONE;
    }
    for (const file_type& known : FILE_TYPES) {
        if (are_letters(extension + 1, known.letters)) {
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
    int number = 0;
    if (!read_number(id, number)) {
        return judgement_image_type({NO_IMAGE_ID, nullptr, id});
    }
    return take_table_row(number);
}

/** Makes the row of a number the current image element. @return its type, or that there is none */
int dvc_pnl_rmg_image_resource_manager::take_table_row(int number) {
    const bool is_found = search_image_element({number, nullptr, nullptr}, current_image_);
    return is_found ? judgement_image_type(current_image_) : DVC_PNL_RMG_IMAGE_TYPE_NONE;
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
    key = image_key(name, width, height);
}

QString dvc_pnl_rmg_image_resource_manager::image_key(const QString& name, int width, int height) {
    if (!is_requested_size(width, height)) {
        return name;
    }
    char size[2 * (std::numeric_limits<int>::digits10 + 2) + 1];
    *write_edge(height, write_edge(width, size)) = '\0';
    QString key;
    key.reserve(static_cast<int>(sizeof size) + name.size());
    key += QLatin1String(size);
    key += name;
    return key;
}

} // namespace velarion
