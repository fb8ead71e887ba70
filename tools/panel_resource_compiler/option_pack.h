#ifndef OPTION_PACK_H
#define OPTION_PACK_H

#include "message_catalogue.h"

#include <map>
#include <string>
#include <vector>

/** Name of the warning class for fonts of a pack that are not installed. */
extern const char WARNING_FONTS[];

/** One option language in its source form, checked. */
struct option_pack {
    int language_id = 0;
    std::string font_family;
    bool is_right_to_left = false;
    std::vector<std::string> font_files;       ///< absolute paths
    std::map<std::int32_t, std::string> texts; ///< by row; rows without an entry have no text
    std::string keymap_folder;                 ///< empty when the pack has no keyboard files
};

/**
 * Reads a pack folder, named like its language id:
 * - pack.conf: lines "key = value": "font_family", "direction" ("ltr" or "rtl"), and a "font" line, with an
 *   absolute path, for each font file;
 * - texts.tsv: columns row and text, the rows ascending;
 * - keymap/: optional; files for the pack's keyboard directory.
 *
 * @param catalogue  the standard languages: rows and placeholders must agree with it
 */
option_pack read_option_pack(const std::string& folder, const message_catalogue& catalogue,
                             diagnostics& report);

/**
 * Writes the source of the pack's library, option_pack.cpp, and the pack's other files below
 * tree/panel/, as they are to lie in the pack's directory on the device; fonts become links. What an earlier
 * call wrote below tree/panel/ and this one does not is removed.
 *
 * @param fault  receives the reason when it fails
 */
bool write_option_pack(const option_pack& pack, const std::string& folder, std::string& fault);

#endif
