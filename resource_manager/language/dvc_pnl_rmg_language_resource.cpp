#include "dvc_pnl_rmg_language_resource.h"

#include "dvc_pnl_rmg_data_file_access.h"
#include "dvc_pnl_rmg_language_setting_manager.h"
#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "dvc_pnl_utl_toolkit.h"
#include "file_guard.h"
#include "id_directory.h"
#include "plain_number.h"
#include "settings_store.h"

#include <QApplication>

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>

namespace velarion {

namespace {

constexpr int LEFT_TO_RIGHT = 1;
constexpr int RIGHT_TO_LEFT = 0;
constexpr std::int32_t LAST_ID_WITH_ROW = 65535; ///< those beyond it are searched for

using FILE_POINTER = std::unique_ptr<FILE, int (*)(FILE*)>;

/** What a key without a message comes out as. */
[[gnu::cold]] QString missing_message(const char* key) {
    return dvc_pnl_utl_from_8bit(!std::getenv(DVC_PNL_RMG_TEST_AID) ? "" : key);
}

// Neither directory nor rows are ever freed: a host may still ask while its own objects are destroyed.
using MESSAGE_DIRECTORY = id_directory<DVC_PNL_RMG_IMPL_MESSAGE, &DVC_PNL_RMG_IMPL_MESSAGE::message_id>;
[[gnu::cold]] const MESSAGE_DIRECTORY& make_message_directory() {
    return *new MESSAGE_DIRECTORY(dvc_pnl_rmg_impl_message_table,
                                  static_cast<std::size_t>(dvc_pnl_rmg_imple_message_table_size));
}

/** The row of each message by its id; 0 for an id that none has. */
using ROWS = std::vector<std::uint16_t>;
static_assert(DVC_PNL_RMG_STANDARD_MESSAGE_ROWS - 1 <= std::numeric_limits<ROWS::value_type>::max(), "");
[[gnu::cold]] const ROWS& make_rows() {
    auto rows = std::make_unique<ROWS>();
    const int count = dvc_pnl_rmg_imple_message_table_size;
    const std::int32_t last_id = count > 0 ? dvc_pnl_rmg_impl_message_table[count - 1].message_id : 0;
    rows->reserve(static_cast<std::size_t>(std::clamp(last_id, 0, LAST_ID_WITH_ROW)) + 1);
    for (int i = 0; i < count; ++i) {
        const DVC_PNL_RMG_IMPL_MESSAGE& message = dvc_pnl_rmg_impl_message_table[i];
        if (message.message_id >= 0 && message.message_id <= LAST_ID_WITH_ROW) {
            rows->resize(static_cast<std::size_t>(message.message_id) + 1);
            rows->back() = static_cast<ROWS::value_type>(message.message_table_index);
        }
    }
    return *rows.release();
}

/** @return the record, or null */
const DVC_PNL_RMG_IMPL_MESSAGE* find_message(std::int32_t id) {
    static const MESSAGE_DIRECTORY& directory = make_message_directory();
    return directory.find(id);
}

/** @return the row of a message, in one step for nearly every id; 0 when it takes find_message() to tell */
int row_of_message(std::int32_t id) {
    static const ROWS& rows = make_rows();
    const std::size_t place = static_cast<std::uint32_t>(id);
    return place < rows.size() ? rows[place] : 0;
}

/** @return whether the file has a size that a text can have */
bool get_file_size(const char* path, std::size_t& size) {
    struct stat status;
    if (stat(path, &status) != 0 || status.st_size < 0 ||
        static_cast<unsigned long long>(status.st_size) > std::string().max_size()) {
        return false;
    }
    size = static_cast<std::size_t>(status.st_size);
    return true;
}

bool read_setting(std::uint32_t item, int& value) {
    std::uint16_t stored = 0;
    if (ent_set_get_status(SETTING_GROUP, item, &stored) != 0) {
        return false;
    }
    value = stored;
    return true;
}

} // namespace

const std::string dvc_pnl_rmg_language_resource::RESOURCE_SHEETEXTENSION_DIR = "/mnt/sheetext/";
dvc_pnl_rmg_language_resource* dvc_pnl_rmg_language_resource::instance_ = nullptr;

dvc_pnl_rmg_language_resource* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance() {
    if (!instance_) {
        instance_ = new dvc_pnl_rmg_language_resource;
    }
    return instance_;
}

dvc_pnl_rmg_language_resource* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance() {
    return instance_;
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance() {
    delete instance_;
    instance_ = nullptr;
}

dvc_pnl_rmg_language_resource::dvc_pnl_rmg_language_resource()
    : resource_dir_(dvc_pnl_utl_from_8bit(RESOURCE_SHEETEXTENSION_DIR.c_str()))
    , data_area_(DVC_PNL_RMG_DATA_AREA)
    , data_group_(DVC_PNL_RMG_DATA_GROUP)
    , standard_language_manager_(nullptr)
    , option_language_manager_(nullptr)
    , language_setting_manager_(nullptr)
    , standard_language_id_(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET)
    , standard_option_language_id_(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET)
    , preferred_language_id_(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET)
    , preferred_option_language_id_(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET) {
    // The standard manager makes the font directory that the option manager fills.
    standard_language_manager_ = new dvc_pnl_rmg_standard_language_attribute_manager;
    option_language_manager_ = new dvc_pnl_rmg_option_language_attribute_manager;
    language_setting_manager_ = new dvc_pnl_rmg_language_setting_manager;
    initialize_language_information();
}

dvc_pnl_rmg_language_resource::~dvc_pnl_rmg_language_resource() {
    delete standard_language_manager_;
    delete option_language_manager_;
    delete language_setting_manager_;
}

void dvc_pnl_rmg_language_resource::initialize_language_information() {
    if (!read_setting(SETTING_PANEL_LANGUAGE, standard_language_id_)) {
        return;
    }
    if (standard_language_id_ == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION &&
        !read_setting(SETTING_PANEL_OPTION_LANGUAGE, standard_option_language_id_)) {
        return;
    }
    dvc_pnl_rmg_set_language_layout_direction();
}

QString dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_message(const char* key, int language_id) {
    int id = 0;
    const char* const rest = read_plain_digits(key, id);
    if (rest && *rest == '\0') {
        const int row = row_of_message(id);
        const char* text =
            row != 0 ? standard_language_manager_->get_standard_message(row, language_id) : nullptr;
        if (text) {
            return QString::fromUtf8(text);
        }
    }
    return find_text(key, language_id);
}

QString dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_message(const char* key) {
    return dvc_pnl_rmg_get_message(key, dvc_pnl_rmg_get_language_id());
}

/** The text of a message by every step: what most keys need not. */
QString dvc_pnl_rmg_language_resource::find_text(const char* key, int language_id) {
    int id = 0;
    if (!read_number(key, id)) {
        return text_of_file(key);
    }
    const DVC_PNL_RMG_IMPL_MESSAGE* message = find_message(id);
    if (!message) {
        return missing_message(key);
    }
    const char* text = choose_text(message->message_table_index, language_id);
    return text ? QString::fromUtf8(text) : dvc_pnl_utl_from_8bit(message->message_name);
}

/** The contents of the message data file that a key names. */
QString dvc_pnl_rmg_language_resource::text_of_file(const char* key) {
    std::string text;
    int error = 0;
    const int result = dvc_pnl_rmg_get_message_data(key, text, error);
    return result == DVC_PNL_RMG_RESULT_OK ? dvc_pnl_utl_from_8bit(text.c_str()) : missing_message(key);
}

/** The text of a row, null when there is none, in the language or in the one that stands in for it. */
const char* dvc_pnl_rmg_language_resource::choose_text(int row, int language_id) {
    const char* text = nullptr;
    if (get_text_in(row, language_id, text)) {
        return text;
    }
    if (dvc_pnl_rmg_is_preferred_language()) {
        const int machine_language_id = standard_language_id_ == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION
                                            ? standard_option_language_id_
                                            : standard_language_id_;
        if (get_text_in(row, machine_language_id, text)) {
            return text;
        }
    }
    return standard_language_manager_->dvc_pnl_rmg_get_standard_message(
        row, DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH);
}

/** @return whether the language is known; @p text then receives its text of the row, or null. */
bool dvc_pnl_rmg_language_resource::get_text_in(int row, int language_id, const char*& text) {
    if (dvc_pnl_rmg_get_standard_language_index(language_id) != -1) {
        text = standard_language_manager_->dvc_pnl_rmg_get_standard_message(row, language_id);
        return true;
    }
    if (dvc_pnl_rmg_is_valid_option_language(language_id)) {
        text = option_language_manager_->dvc_pnl_rmg_get_option_message(row, language_id);
        return true;
    }
    return false;
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_message_data(const char* file_name, std::string& text,
                                                                int& error) {
    if (!file_name || *file_name == '\0') {
        error = 0;
        return DVC_PNL_RMG_RESULT_INVALID_ARGUMENT;
    }
    const std::string path = resource_dir_.toUtf8().constData() + std::string(file_name);
    if (is_special_file(path.c_str())) {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    const FILE_POINTER file(std::fopen(path.c_str(), "r"), std::fclose);
    if (!file) {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    std::size_t size = 0;
    if (!get_file_size(path.c_str(), size)) {
        return DVC_PNL_RMG_RESULT_IO_ERROR;
    }
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[size + 1]);
    const std::size_t count = buffer ? std::fread(buffer.get(), 1, size, file.get()) : 0;
    if (count == 0) {
        return DVC_PNL_RMG_RESULT_IO_ERROR;
    }
    buffer[count] = '\0';
    text.insert(0, buffer.get());
    return DVC_PNL_RMG_RESULT_OK;
}

bool dvc_pnl_rmg_language_resource::search_message_element(const DVC_PNL_RMG_IMPL_MESSAGE& key,
                                                           DVC_PNL_RMG_IMPL_MESSAGE& found) {
    const DVC_PNL_RMG_IMPL_MESSAGE* message = find_message(key.message_id);
    if (!message) {
        return false;
    }
    found = *message;
    return true;
}

int dvc_pnl_rmg_language_resource::compare(const void* first, const void* second) {
    const std::int32_t a = static_cast<const DVC_PNL_RMG_IMPL_MESSAGE*>(first)->message_id;
    const std::int32_t b = static_cast<const DVC_PNL_RMG_IMPL_MESSAGE*>(second)->message_id;
    if (a == b) {
        return 0;
    }
    return a < b ? -1 : 1;
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_set_standard_language(int language_id,
                                                                      int option_language_id) {
    standard_language_id_ = language_id;
    standard_option_language_id_ = option_language_id;
    if (!dvc_pnl_rmg_is_preferred_language()) {
        dvc_pnl_rmg_set_language_layout_direction();
    }
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_set_preferred_language(int language_id,
                                                                       int option_language_id) {
    preferred_language_id_ = language_id;
    preferred_option_language_id_ = option_language_id;
    dvc_pnl_rmg_set_language_layout_direction();
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_cancel_preferred_language_id() {
    dvc_pnl_rmg_set_preferred_language(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET,
                                       DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET);
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_is_preferred_language() {
    return preferred_language_id_ != DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET;
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_active_language(int& language_id,
                                                                    int& option_language_id) {
    const bool preferred = dvc_pnl_rmg_is_preferred_language();
    language_id = preferred ? preferred_language_id_ : standard_language_id_;
    option_language_id = preferred ? preferred_option_language_id_ : standard_option_language_id_;
    return preferred;
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_language_id() {
    int language_id = 0;
    int option_language_id = 0;
    dvc_pnl_rmg_get_active_language(language_id, option_language_id);
    if (language_id != DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION) {
        return language_id;
    }
    if (dvc_pnl_rmg_is_valid_option_language(option_language_id)) {
        return option_language_id;
    }
    dvc_pnl_rmg_cancel_preferred_language_id();
    standard_language_id_ = DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH;
    dvc_pnl_rmg_set_language_layout_direction();
    return DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH;
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_layout_direction() {
    int language_id = 0;
    int option_language_id = 0;
    dvc_pnl_rmg_get_active_language(language_id, option_language_id);
    if (language_id != DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION) {
        return LEFT_TO_RIGHT;
    }
    return option_language_manager_->get_option_language_layout_direction(option_language_id);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_set_language_layout_direction() {
    const bool right_to_left = dvc_pnl_rmg_get_layout_direction() == RIGHT_TO_LEFT;
    QApplication::setLayoutDirection(right_to_left ? Qt::RightToLeft : Qt::LeftToRight);
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_option_layout_direction(int language_id) {
    if (!dvc_pnl_rmg_is_valid_option_language(language_id)) {
        return LEFT_TO_RIGHT;
    }
    return option_language_manager_->get_option_language_layout_direction(language_id);
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_standard_language_number() {
    return standard_language_manager_->dvc_pnl_rmg_get_standard_language_number();
}

const int* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_standard_language_id_array() {
    return standard_language_manager_->dvc_pnl_rmg_get_standard_language_id_array();
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_standard_language_index(int language_id) {
    return standard_language_manager_->dvc_pnl_rmg_get_standard_language_index(language_id);
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_is_valid_option_language(int language_id) {
    return option_language_manager_->dvc_pnl_rmg_is_valid_option_language(language_id);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_option_language_id_array(std::vector<int>& ids) {
    option_language_manager_->dvc_pnl_rmg_get_option_language_id_array(ids);
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_convert_opt_lang_no_to_language_id(int number,
                                                                                   int& language_id) {
    return option_language_manager_->dvc_pnl_rmg_convert_opt_lang_no_to_language_id(number, language_id);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_option_language_path(int language_id, std::string& path) {
    option_language_manager_->get_option_language_path(language_id, path);
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_make_link_for_fonts() {
    return language_setting_manager_->dvc_pnl_rmg_make_link_for_fonts();
}

} // namespace velarion
