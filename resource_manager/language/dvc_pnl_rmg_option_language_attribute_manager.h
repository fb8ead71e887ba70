#ifndef DVC_PNL_RMG_OPTION_LANGUAGE_ATTRIBUTE_MANAGER_H
#define DVC_PNL_RMG_OPTION_LANGUAGE_ATTRIBUTE_MANAGER_H

#include "dvc_pnl_export.h"

#include <QFont>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velarion {

/**
 * Answers for the option languages: up to five language packs, named by five slots of the device
 * settings.
 *
 * A language is valid when a slot names it, whether or not its pack loads: without a pack its texts and
 * its font family come out null. A pack's library is not loaded when it is cut short or no regular file.
 * Texts belong to the pack and are to be copied at once. No operation reports an error. The language
 * resource owns the one instance; GUI thread only.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_option_language_attribute_manager {
public:
    static const std::uint32_t OPTION_LANGUAGE_MEMBER[5]; ///< setting ids of the slots 1 to 5
    static const int OPTION_LANGUAGE_MEMBER_NUM;          ///< number of slots
    /**
     * A pack lies in the folder of its language id below OPT_BASE_PATH; the paths and names that follow are
     * in there, but for TMP_FONTS_PATH, where fonts are linked.
     */
    static const std::string OPT_BASE_PATH;
    static const std::string NAME_LIB_OPT_LANG;
    static const std::string OPT_FONTS_PATH;
    static const std::string TMP_FONTS_PATH;
    static const std::string KEYMAP_FILE_PATH;
    static const std::string LANG_INFO_FILENAME;
    static const std::string PROHIBITION_INFO_FILENAME;
    static const std::string OPT_ATTRIBUTE_FILE;
    static const char* const FONT_FILE_EXT;
    static const char* const SYMBOL_IS_VALID_OPT_LANG;
    static const char* const SYMBOL_GET_OPT_MESSAGE;
    static const char* const SYMBOL_GET_OPT_FONT_FAMILY;

    /** The functions that a pack's library exports under the three symbols above. */
    using VALID_FUNCTION = int (*)(int language_id);
    using MESSAGE_FUNCTION = const char* (*)(long row, int language_id);
    using FONT_FAMILY_FUNCTION = const char* (*)(int, int language_id);

    /** Reads the slots, loads the packs and links their fonts into "/tmp/fonts/", which must exist. */
    dvc_pnl_rmg_option_language_attribute_manager();

    /**
     * Reads the slots and loads the packs anew. Libraries loaded before stay loaded; fonts are not linked.
     */
    void dvc_pnl_rmg_initialize_option_language();

    /**
     * Links every font file of a directory into "/tmp/fonts/", replacing files and links of the same name. A
     * font that lies in "/tmp/fonts/" itself, or is a link to its own place there, is left alone.
     *
     * Font files are regular files, or links to such, whose names end in ".ttf" in any letter case
     * after at least one character.
     *
     * @param directory  ends in "/"; links nothing when it cannot be read
     */
    void make_link_for_fonts(std::string& directory);

    /** @return whether a slot names the language */
    bool dvc_pnl_rmg_is_valid_option_language(int language_id);

    /** Appends the valid language ids in ascending order; what @p ids held stays in front. */
    void dvc_pnl_rmg_get_option_language_id_array(std::vector<int>& ids);

    /**
     * Finds the language of a slot.
     *
     * @param number       1 to 5; a slot whose language a later slot names too counts as empty
     * @param language_id  receives the language id; unchanged when there is none
     * @return whether there is one
     */
    bool dvc_pnl_rmg_convert_opt_lang_no_to_language_id(int number, int& language_id);

    /** @return the pack's UTF-8 text of a row; null when language, pack or text is missing */
    const char* dvc_pnl_rmg_get_option_message(int row, int language_id);
    /** @return the pack's font family; null when language, pack or family is missing */
    const char* dvc_pnl_rmg_get_option_font_family(int language_id);
    /** @return a font of the language's family; the application's font when there is none */
    QFont dvc_pnl_rmg_get_font(int language_id);

    /** @param path  receives the pack's directory, ending in "/"; the empty text when not valid */
    void get_option_language_path(int language_id, std::string& path);

    /**
     * Reads the writing direction from the pack's attribute file.
     * @return 0 (right to left) when the file has a line "il_ae=" with a value other than "1";
     *         otherwise 1 (left to right), also without file, pack or language
     */
    int get_option_language_layout_direction(int language_id);

    /**
     * Puts the directory of the pack's keyboard files in front of a file name.
     *
     * @param first,second  receive 0
     * @param path          a file name on entry; its full path on return; unchanged when the language is
     *                      not valid
     */
    void get_keymap_file_param(int language_id, int& first, int& second, std::string& path);
    /** Replaces @p path by that of the language information file; otherwise as get_keymap_file_param(). */
    void get_language_info_file_param(int language_id, int& first, int& second, std::string& path);
    /** Replaces @p path by that of the prohibition information file; otherwise as get_keymap_file_param(). */
    void get_prohibition_info_file_param(int language_id, int& first, int& second, std::string& path);

private:
    void load_pack(int slot, const std::string& directory);
    bool get_slot_index(int language_id, int& slot) const;

    std::map<int, VALID_FUNCTION> valid_function_map_;             // by slot index, 0 to 4
    std::map<int, MESSAGE_FUNCTION> message_function_map_;         // by slot index
    std::map<int, FONT_FAMILY_FUNCTION> font_family_function_map_; // by slot index
    std::map<int, int> language_number_map_;                       // slot number, 1 to 5, by language id
    std::map<int, std::string> language_path_map_;                 // pack directory by language id
};

} // namespace velarion

#endif
