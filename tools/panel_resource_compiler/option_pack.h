#ifndef OPTION_PACK_H
#define OPTION_PACK_H

#include "message_catalogue.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace velarion {

/** One option language in its source form, checked. */
struct option_pack {
    int language_id = 0;
    std::string font_family;
    bool is_right_to_left = false;
    std::vector<std::string> font_files;       ///< absolute paths
    std::map<std::int32_t, std::string> texts; ///< by row; rows without an entry have no text
    std::set<std::int32_t> filled_rows;        ///< whose texts fill_option_pack() gave
    text_file source;                          ///< where they stand
    std::string keymap_folder;
    std::set<std::string> keymap_files; ///< named from keymap_folder
};

/**
 * Reads a pack folder, named like its language id; a "/" at the end of its path does not count:
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
 * Gives a text to the rows that have none, so that the panel shows no names of messages: row 1 the empty
 * text, every other row that a message shows, or that has an English text, the English one.
 *
 * @return how many rows got one
 */
std::size_t fill_option_pack(const message_catalogue& catalogue, option_pack& pack);

/**
 * Writes the source of the pack's library, option_pack.cpp, and the pack's other files below
 * tree/panel/, as they are to lie in the pack's directory on the device; fonts become links. One of them,
 * attr/filled_rows.txt, lists the filled rows, one a line, for who looks for what is not translated. What an
 * earlier call wrote below tree/panel/ and this one does not is removed.
 *
 * @param fault  receives the reason when it fails
 */
bool write_option_pack(const option_pack& pack, const std::string& folder, std::string& fault);

} // namespace velarion

#endif
