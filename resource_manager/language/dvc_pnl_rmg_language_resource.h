#ifndef DVC_PNL_RMG_LANGUAGE_RESOURCE_H
#define DVC_PNL_RMG_LANGUAGE_RESOURCE_H

#include "dvc_pnl_export.h"
#include "dvc_pnl_rmg_message_table.h"

#include <QFont>
#include <QString>

#include <string>
#include <vector>

namespace velarion {

class dvc_pnl_rmg_language_setting_manager;
class dvc_pnl_rmg_option_language_attribute_manager;
class dvc_pnl_rmg_standard_language_attribute_manager;

/**
 * The one object from which the panel's user interface gets its texts, its language, and the fonts,
 * attributes and files of the languages.
 *
 * Two selections are kept: the machine's standard language and a preferred language that overrides it
 * while one is set. A selection is a pair (language id, option language id); the second member counts
 * only while the first is DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION. The active selection is the
 * preferred one when its language id is not 0, else the standard one.
 *
 * A single instance for the process, without locks: create it, use it and delete it on the GUI thread.
 * Device settings are read at creation alone; later changes come through
 * dvc_pnl_rmg_set_standard_language().
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_language_resource {
public:
    static const std::string RESOURCE_SHEETEXTENSION_DIR; ///< where message data files are read

    /**
     * Creates the instance if there is none: links fonts, loads the option language packs, reads the
     * panel language from the device settings and applies its writing direction to the application.
     * A setting that cannot be read leaves its member of the selection at 0, and then no direction is
     * applied.
     *
     * Create it before any widget: applying the direction sends LayoutDirectionChange to the widgets that
     * exist, while dvc_pnl_rmg_get_instance() still returns null.
     *
     * @return the instance, owned by the class
     */
    static dvc_pnl_rmg_language_resource* dvc_pnl_rmg_create_instance();
    /** @return the instance, or null when there is none */
    static dvc_pnl_rmg_language_resource* dvc_pnl_rmg_get_instance();
    /** Destroys the instance, if there is one. */
    static void dvc_pnl_rmg_delete_instance();

    dvc_pnl_rmg_language_resource(const dvc_pnl_rmg_language_resource&) = delete;
    dvc_pnl_rmg_language_resource& operator=(const dvc_pnl_rmg_language_resource&) = delete;

    /**
     * The text of a message.
     *
     * A language that is neither standard nor a valid option language falls back to the standard
     * selection while a preferred language is set, and to English otherwise. There is no fall-back for a
     * single text: an empty text stays empty, and a missing one comes out as the message's symbolic name.
     *
     * While the environment variable TEST_ICON_MESSAGE exists, a missing message comes out as its key.
     *
     * @param key          a message id in decimal; any other text names a message data file; not null
     * @param language_id  a language id
     * @return the text with its placeholders and line breaks; never a null QString; empty when there is
     *         no such message
     */
    QString dvc_pnl_rmg_get_message(const char* key, int language_id);
    /** The text of a message in the language in force, dvc_pnl_rmg_get_language_id(). */
    QString dvc_pnl_rmg_get_message(const char* key);

    /**
     * Reads a message data file.
     *
     * @param file_name  appended to RESOURCE_SHEETEXTENSION_DIR as it stands, so it may reach into
     *                   subdirectories
     * @param text       receives the contents up to the first NUL, in front of what it holds; unchanged
     *                   on failure
     * @param error      0 when the name is null or empty; otherwise unchanged
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_INVALID_ARGUMENT for a null or empty name;
     *         DVC_PNL_RMG_RESULT_NOT_FOUND when the file cannot be opened or is a pipe or device;
     *         DVC_PNL_RMG_RESULT_IO_ERROR when it cannot be read, is empty or does not fit the memory
     */
    int dvc_pnl_rmg_get_message_data(const char* file_name, std::string& text, int& error);

    /**
     * Searches the message id table.
     *
     * @param key    only its message_id is used
     * @param found  receives the record; unchanged when there is none
     * @return whether a record has the id
     */
    static bool search_message_element(const DVC_PNL_RMG_IMPL_MESSAGE& key, DVC_PNL_RMG_IMPL_MESSAGE& found);
    /** Orders two DVC_PNL_RMG_IMPL_MESSAGE records by id: -1, 0 or 1. */
    static int compare(const void* first, const void* second);

    /** Sets the standard selection; applies its direction unless a preferred language is set. */
    void dvc_pnl_rmg_set_standard_language(int language_id, int option_language_id);
    /** Sets the preferred selection and applies the direction; a language id of 0 ends it. */
    void dvc_pnl_rmg_set_preferred_language(int language_id, int option_language_id);
    /** Ends the preferred language and applies the direction. */
    void dvc_pnl_rmg_cancel_preferred_language_id();
    /** @return whether a preferred language is set */
    bool dvc_pnl_rmg_is_preferred_language();
    /**
     * @param language_id,option_language_id  receive the active selection
     * @return whether it is the preferred one
     */
    bool dvc_pnl_rmg_get_active_language(int& language_id, int& option_language_id);

    /**
     * The language in force.
     *
     * When the active selection names an option language that is not installed, English becomes the
     * standard language and the preferred language ends, for good.
     *
     * @return a language id; 0 when no selection was made
     */
    int dvc_pnl_rmg_get_language_id();

    /** @return the direction of the active selection: 1 left to right, 0 right to left */
    int dvc_pnl_rmg_get_layout_direction();
    /** Applies the direction of the active selection to the application. */
    void dvc_pnl_rmg_set_language_layout_direction();
    /** @return the direction of an option language, 1 or 0; 1 when it is not valid */
    int dvc_pnl_rmg_get_option_layout_direction(int language_id);

    /** As the operations of dvc_pnl_rmg_standard_language_attribute_manager. */
    int dvc_pnl_rmg_get_standard_language_number();
    const int* dvc_pnl_rmg_get_standard_language_id_array();
    int dvc_pnl_rmg_get_standard_language_index(int language_id);

    /** As the operations of dvc_pnl_rmg_option_language_attribute_manager. */
    bool dvc_pnl_rmg_is_valid_option_language(int language_id);
    void dvc_pnl_rmg_get_option_language_id_array(std::vector<int>& ids);
    bool dvc_pnl_rmg_convert_opt_lang_no_to_language_id(int number, int& language_id);
    void dvc_pnl_rmg_get_option_language_path(int language_id, std::string& path);

    /**
     * @return a font of the language's family; the application's font for an option language whose pack tells
     *         none; English's for an id that is no language
     */
    QFont dvc_pnl_rmg_get_font(int language_id);
    /** @return the font of the language in force */
    QFont dvc_pnl_rmg_get_font();
    /** @return the font family, borrowed; English's for an id that is no language; null when a pack has none
     */
    const char* dvc_pnl_rmg_get_font_name(int language_id);
    /** @param family  receives the font family; the empty text when the id is no standard language */
    void dvc_pnl_rmg_get_standard_font_family(int language_id, std::string& family);
    /** @return the pack's font family, borrowed; null when language, pack or family is missing */
    const char* dvc_pnl_rmg_get_option_font_family(int language_id);
    /** As the operation of dvc_pnl_rmg_language_setting_manager: no effect. @return 1 */
    int dvc_pnl_rmg_make_link_for_fonts();

    /**
     * Names a keyboard file of the standard languages.
     *
     * @param first,second  receive 0
     * @param path          a file name on entry; its full path on return
     */
    void dvc_pnl_rmg_get_static_char_file_param(int& first, int& second, std::string& path);
    /**
     * Names a keyboard file: of its pack for a valid option language, of the standard languages for every
     * other id, and for 86 and 886 unless dvc_pnl_rmg_is_convert_enable_by_destination().
     *
     * @param first,second  receive 0
     * @param path          a file name on entry; its full path on return
     */
    void dvc_pnl_rmg_get_keymap_file_param(int language_id, int& first, int& second, std::string& path);
    /**
     * Names the language information file: of its pack for a valid option language, of the standard
     * languages for every other id.
     *
     * @param first,second  receive 0
     * @param path          receives the full path
     */
    void dvc_pnl_rmg_get_language_info_file_param(int language_id, int& first, int& second,
                                                  std::string& path);
    /** Names the prohibition information file; otherwise as the operation above. */
    void dvc_pnl_rmg_get_prohibition_info_file_param(int language_id, int& first, int& second,
                                                     std::string& path);

    /**
     * Reads an attribute of a language from the device settings.
     *
     * @param attribute  a number of the device settings
     * @param value      receives 1 when its text is "YES", otherwise 0, also on failure
     * @return whether it could be read
     */
    bool dvc_pnl_rmg_get_language_attribute(int language_id, int attribute, int& value);
    /** Reads an attribute of the language in force. */
    bool dvc_pnl_rmg_get_language_attribute(int attribute, int& value);
    /** @return whether the machine's destination code is 3, 4, 6, 7 or 8; false when it cannot be read */
    bool dvc_pnl_rmg_is_convert_enable_by_destination();

    /**
     * Stores a message data file in the data-file store, which dvc_pnl_rmg_get_message_data() does not
     * read.
     *
     * @param data   @p size bytes; may be null when there are none
     * @param size   more than 32 bits hold gives DVC_PNL_RMG_RESULT_IO_ERROR with error 0
     * @param error  receives the platform's code of the call that failed, otherwise 0
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_INVALID_ARGUMENT for a null or empty name or
     *         null data of a size; DVC_PNL_RMG_RESULT_IO_ERROR when a call of the store failed
     */
    int dvc_pnl_rmg_set_message_data(const char* file_name, const char* data, unsigned long size, int& error);
    /**
     * @param error  receives the platform's code when there is no such file; 0 for a null or empty name
     * @return whether the store has the file
     */
    bool dvc_pnl_rmg_is_exist_data_file(const char* file_name, int& error);
    /**
     * Removes a file from the store.
     *
     * @param error  receives the platform's code of the call that failed, otherwise 0
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_INVALID_ARGUMENT for a null or empty name;
     *         DVC_PNL_RMG_RESULT_NOT_FOUND when there is no such file; DVC_PNL_RMG_RESULT_IO_ERROR when it
     *         cannot be removed
     */
    int dvc_pnl_rmg_remove_data_file(const char* file_name, int& error);
    /**
     * Keeps a path for dvc_pnl_rmg_get_machine_data_file(); the class itself makes no use of it.
     *
     * @param error  receives 0
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_NOT_FOUND for a null or empty path, which leaves
     *         the one before
     */
    int dvc_pnl_rmg_set_machine_specific_path(const char* path, int& error);
    /** @return the path, owned by the instance; empty until one is set */
    const char* dvc_pnl_rmg_get_machine_data_file();

private:
    dvc_pnl_rmg_language_resource();
    ~dvc_pnl_rmg_language_resource();

    void initialize_language_information();
    [[gnu::cold]] QString text_of_file(const char* key);
    QString find_text(const char* key, int language_id);
    const char* choose_text(int row, int language_id);
    bool get_text_in(int row, int language_id, const char*& text);

    static dvc_pnl_rmg_language_resource* instance_;

    QString resource_dir_;
    std::string machine_data_file_;
    int data_area_;
    int data_group_;
    dvc_pnl_rmg_standard_language_attribute_manager* standard_language_manager_;
    dvc_pnl_rmg_option_language_attribute_manager* option_language_manager_;
    dvc_pnl_rmg_language_setting_manager* language_setting_manager_;
    int standard_language_id_;
    int standard_option_language_id_;
    int preferred_language_id_;
    int preferred_option_language_id_;
};

} // namespace velarion

#endif
