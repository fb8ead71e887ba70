#ifndef DVC_PNL_RMG_LANGUAGE_RESOURCE_H
#define DVC_PNL_RMG_LANGUAGE_RESOURCE_H

#include "dvc_pnl_export.h"
#include "dvc_pnl_rmg_message_table.h"

#include <QString>

#include <string>
#include <vector>

namespace velarion {

class dvc_pnl_rmg_language_setting_manager;
class dvc_pnl_rmg_option_language_attribute_manager;
class dvc_pnl_rmg_standard_language_attribute_manager;

/**
 * The one object from which the panel's user interface gets its texts and its language.
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
    static const std::string RESOURCE_SHEETEXTENSION_DIR;

    /**
     * Creates the instance if there is none: links fonts, loads the option language packs, reads the
     * panel language from the device settings and applies its writing direction to the application.
     * Settings that cannot be read leave the selection at 0.
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
     * @param file_name  appended to the directory as it stands, so it may reach into subdirectories
     * @param text       receives the contents up to the first NUL, in front of what it holds; unchanged
     *                   on failure
     * @param error      0 when the name is null or empty; otherwise unchanged
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_INVALID_ARGUMENT for a null or empty name;
     *         DVC_PNL_RMG_RESULT_NOT_FOUND when the file cannot be opened; DVC_PNL_RMG_RESULT_IO_ERROR
     *         when it cannot be read or is empty
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

    /** As the operation of dvc_pnl_rmg_language_setting_manager: no effect. @return 1 */
    int dvc_pnl_rmg_make_link_for_fonts();

private:
    dvc_pnl_rmg_language_resource();
    ~dvc_pnl_rmg_language_resource();

    void initialize_language_information();
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
