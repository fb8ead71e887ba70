#include "dvc_pnl_rmg_message_table.h"

const std::int32_t standard_language_id_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {
    81, // Japanese
    1,  // English
    49, // German
    33, // French
    34, // Spanish
    39, // Italian
    31, // Dutch
    7,  // Russian
};

const char* const standard_font_family_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {
    "HeiseiKakuGothW5_JIS0213C",
    "Univers OTS",
    "Univers OTS",
    "Univers OTS",
    "Univers OTS",
    "Univers OTS",
    "Univers OTS",
    "Univers OTS",
};

const std::int32_t language_japanese[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {1};

const char* const standard_message_xml_file_table[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {
    "message_data", "message_data", "message_data", "message_data",
    "message_data", "message_data", "message_data", "message_data",
};
