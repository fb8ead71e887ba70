#ifndef DVC_PNL_RMG_IMAGE_NAME_TABLE_H
#define DVC_PNL_RMG_IMAGE_NAME_TABLE_H

#include "dvc_pnl_export.h"

#include <cstdint>

/**
 * The compiled-in pictures: constant data, made by panel_resource_compiler from the image list, readable
 * from any thread.
 */

/** One picture: its identifier, its symbolic name (unique) and its file in the image directory. */
struct DVC_PNL_RMG_IMPL_IMAGE_NAME {
    std::int32_t image_id;
    const char* image_name;
    const char* file_name; ///< a blank where there is no picture; several pictures may share a file
};

/** All pictures, ascending by identifier, without repetition; identifiers may have gaps. */
extern DVC_PNL_EXPORT const DVC_PNL_RMG_IMPL_IMAGE_NAME dvc_pnl_rmg_impl_image_name_table[];
/** The count of dvc_pnl_rmg_impl_image_name_table. */
extern DVC_PNL_EXPORT const int dvc_pnl_rmg_imple_image_name_table_size;

namespace velarion {

/** The identifier is not in the table, or its file name has no known extension. */
constexpr int DVC_PNL_RMG_IMAGE_TYPE_NONE = 0;
/** A still picture (".png", ".svg"), or an external identifier. */
constexpr int DVC_PNL_RMG_IMAGE_TYPE_STILL = 1;
/** An animated picture (".gif"). */
constexpr int DVC_PNL_RMG_IMAGE_TYPE_MOVIE = 2;

} // namespace velarion

#endif
