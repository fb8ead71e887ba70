#ifndef DVC_PNL_RMG_XML_ELEMENT_H
#define DVC_PNL_RMG_XML_ELEMENT_H

#include <string_view>

namespace velarion {

/** Element names of the resource documents; upper and lower case count. Constant: for any thread. */
struct DVC_PNL_RMG_XML_ELEMENT {
    static constexpr std::string_view MESSAGE_DATA = "message_data";               ///< one message entry
    static constexpr std::string_view IMPLEMENTATION_ID = "implementation_id";     ///< its key
    static constexpr std::string_view MESSAGE_TABLE_INDEX = "message_table_index"; ///< its value, decimal
    static constexpr std::string_view IMAGE_DATA = "image_data";                   ///< one image entry
    static constexpr std::string_view IMPLEMENTATION_FILENAME = "implementation_filename"; ///< its key
    static constexpr std::string_view IMAGE_FILENAME = "image_filename";                   ///< its value
    /** The rest of the vocabulary; dvc_pnl_rmg_xml_parameter ignores them. */
    static constexpr std::string_view RESOURCE_MESSAGE = "resource_message";
    static constexpr std::string_view MESSAGE_ID = "message_id";
    static constexpr std::string_view IMAGE_ID = "image_id";
};

} // namespace velarion

#endif
