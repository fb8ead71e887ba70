#ifndef DVC_PNL_RMG_STANDARD_LANGUAGE_ATTRIBUTE_MANAGER_H
#define DVC_PNL_RMG_STANDARD_LANGUAGE_ATTRIBUTE_MANAGER_H

#include "dvc_pnl_export.h"

#include <QFont>

#include <string>

namespace velarion {

/**
 * Answers for the eight languages compiled into the library.
 *
 * Texts come as pointers into the constant tables: never to be freed, null when there is none. No
 * operation reports an error. The language resource owns the one instance; GUI thread only.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_standard_language_attribute_manager {
public:
    /** Where the files of all standard languages lie; the paths and names below it follow. */
    static const std::string BASE_PATH;
    static const std::string KEYMAP_FILE_PATH;
    static const std::string LANG_INFO_FILENAME;
    static const std::string PROHIBITION_INFO_FILENAME;

    /**
     * Makes the directory of font links, "/tmp/fonts", and its two fixed links, through the command
     * interpreter. A command that fails stops nothing: the directory may be there already, or a font
     * missing.
     */
    dvc_pnl_rmg_standard_language_attribute_manager();

    /** @return 8 */
    int get_size_of_standard_language_id_table();
    /** @return the value of get_size_of_standard_language_id_table() */
    int dvc_pnl_rmg_get_standard_language_number();

    /** @return standard_language_id_table */
    const int* get_standard_language_id_table();
    /** @return standard_language_id_table */
    const int* dvc_pnl_rmg_get_standard_language_id_array();

    /** @return the index of a language, 0 to 7; -1 when it is no standard language */
    int dvc_pnl_rmg_get_standard_language_index(int language_id);

    /**
     * The text of a row in a standard language.
     * @return the cell, which may be empty, or null in the last row; null when the language is no
     *         standard language or the row lies outside the table
     */
    const char* get_standard_message(int row, int language_id);
    /** As get_standard_message(). */
    const char* dvc_pnl_rmg_get_standard_message(int row, int language_id);

    /** @param index  0 to 7, which the caller guarantees */
    const char* get_standard_font_family(int index);
    /** @return the font family of a language; null when it is no standard language */
    const char* dvc_pnl_rmg_get_standard_font_family(int language_id);
    /** @return a font of the language's family; the application's font when it is no standard language */
    QFont dvc_pnl_rmg_get_font(int language_id);

    /**
     * Puts the directory of the keyboard files in front of a file name. All standard languages share
     * one directory: the language id is not used.
     *
     * @param first,second  receive 0
     * @param path          a file name, also empty, on entry; its full path on return
     */
    void get_keymap_file_param(int language_id, int& first, int& second, std::string& path);
    /** Replaces @p path by that of the language information file; otherwise as get_keymap_file_param(). */
    void get_language_info_file_param(int language_id, int& first, int& second, std::string& path);
    /** Replaces @p path by that of the prohibition information file; otherwise as get_keymap_file_param(). */
    void get_prohibition_info_file_param(int language_id, int& first, int& second, std::string& path);
};

} // namespace velarion

#endif
