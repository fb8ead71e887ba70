#ifndef DVC_PNL_RMG_MESSAGE_TABLE_H
#define DVC_PNL_RMG_MESSAGE_TABLE_H

#include "dvc_pnl_export.h"

#include <cstdint>

/**
 * The compiled-in messages: constant data, made by panel_resource_compiler from the catalogue, readable
 * from any thread. Texts are UTF-8, lines end in LF, "%1" to "%9" are placeholders for the caller.
 */

/** One message: its id, its symbolic name (informative, not unique) and the row of its texts. */
struct DVC_PNL_RMG_IMPL_MESSAGE {
    std::int32_t message_id;
    const char* message_name;
    std::int32_t message_table_index;
};

constexpr int DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT = 8;
constexpr int DVC_PNL_RMG_STANDARD_MESSAGE_ROWS = 22000;

/** All messages, ascending by id, without repetition. */
extern DVC_PNL_EXPORT const DVC_PNL_RMG_IMPL_MESSAGE dvc_pnl_rmg_impl_message_table[];
/** The count of dvc_pnl_rmg_impl_message_table. */
extern DVC_PNL_EXPORT const int dvc_pnl_rmg_imple_message_table_size;

/**
 * The texts: column i is the language of index i. Rows 0 and 1 hold the empty text; the cells of the
 * last row, and of no other, are null.
 */
extern DVC_PNL_EXPORT const char* const standard_language_message_table[DVC_PNL_RMG_STANDARD_MESSAGE_ROWS]
                                                                       [DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];

/** Language ids by index. */
extern DVC_PNL_EXPORT const std::int32_t standard_language_id_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];
/** Font families by index. */
extern DVC_PNL_EXPORT const char* const standard_font_family_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];
/** 1 at the index of Japanese, 0 elsewhere. For the host. */
extern DVC_PNL_EXPORT const std::int32_t language_japanese[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];
/** Names of the message documents by index. For the host. */
extern DVC_PNL_EXPORT const char* const standard_message_xml_file_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];

#endif
