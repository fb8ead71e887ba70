#include "dvc_pnl_rmg_property.h"
#include "language_device.h"

#include <QApplication>

using namespace velarion;

namespace {

const std::string STANDARD_KEYS = "/usr/local/vuk_plp/lib/keydata/";
const std::string PACK_KEYS_86 = "/mnt/optlang/86/panel/keymap/";
const std::string PACK_KEYS_886 = "/mnt/optlang/886/panel/keymap/";
const std::string PACK_KEYS_972 = "/mnt/optlang/972/panel/keymap/";
const char* const NO_NAMES[] = {nullptr, ""};
const int OLD_ERROR = 4711;
const int CODE = 99;

class language_files : public language_device {
protected:
    /** The path that an operation makes of "kb.txt"; both numbers must come out as 0. */
    template <typename OPERATION, typename... ID> static std::string path_of(OPERATION operation, ID... id) {
        int first = 7;
        int second = 7;
        std::string path = "kb.txt";
        (create().*operation)(id..., first, second, path);
        EXPECT_EQ(first, 0);
        EXPECT_EQ(second, 0);
        return path;
    }

    /** The names of the store's calls, in their order. */
    std::vector<std::string> store_calls() const {
        std::vector<std::string> names;
        for (const FAKE_CALL& call : platform_.calls()) {
            if (call.function.rfind("dvu_dio_", 0) == 0) {
                names.push_back(call.function.substr(8));
            }
        }
        return names;
    }
};

} // namespace

TEST_F(language_files, fonts_of_standard_option_and_unknown_languages) {
    set_slot(1, 86);
    set_slot(2, 886);
    install_pack(86);
    resource& language = create();
    QApplication::setFont(QFont(QLatin1String("Application")));
    const struct {
        const char* name;
        int id;
        const char* font_name;
        const char* family;
    } rows[] = {
        {"standard", 81, "HeiseiKakuGothW5_JIS0213C", "HeiseiKakuGothW5_JIS0213C"},
        {"option", 86, "Pack Sans", "Pack Sans"},
        {"option without a pack", 886, nullptr, "Application"},
        {"unknown", 44, "Univers OTS", "Univers OTS"},
        {"unset", 0, "Univers OTS", "Univers OTS"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(language.dvc_pnl_rmg_get_font_name(row.id), row.font_name);
        EXPECT_EQ(language.dvc_pnl_rmg_get_font(row.id).family(), QString::fromLatin1(row.family));
    }
    language.dvc_pnl_rmg_set_preferred_language(999, 86);
    EXPECT_EQ(language.dvc_pnl_rmg_get_font().family(), QString::fromLatin1("Pack Sans"));
    std::string family = "old";
    language.dvc_pnl_rmg_get_standard_font_family(86, family);
    EXPECT_EQ(family, "");
}

TEST_F(language_files, keyboard_files_follow_the_language_and_for_chinese_the_destination) {
    set_slot(1, 86);
    set_slot(2, 972);
    set_slot(3, 886);
    const struct {
        int id;
        std::uint32_t destination;
        std::string keymap_folder;
        std::string information_folder;
    } rows[] = {
        {49, 3, STANDARD_KEYS, STANDARD_KEYS},  {44, 3, STANDARD_KEYS, STANDARD_KEYS},
        {972, 5, PACK_KEYS_972, PACK_KEYS_972}, {86, 3, PACK_KEYS_86, PACK_KEYS_86},
        {86, 5, STANDARD_KEYS, PACK_KEYS_86},   {886, 2, STANDARD_KEYS, PACK_KEYS_886},
        {886, 8, PACK_KEYS_886, PACK_KEYS_886},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.id) + " with destination " + std::to_string(row.destination));
        set_item(SETTING_DESTINATION, row.destination, 8);
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_keymap_file_param, row.id),
                  row.keymap_folder + "kb.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_language_info_file_param, row.id),
                  row.information_folder + "lang_info.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_prohibition_info_file_param, row.id),
                  row.information_folder + "proh_info.txt");
    }
    EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_static_char_file_param), STANDARD_KEYS + "kb.txt");
}

TEST_F(language_files, conversion_is_enabled_by_five_destinations) {
    resource& language = create();
    EXPECT_FALSE(language.dvc_pnl_rmg_is_convert_enable_by_destination()) << "cannot be read";
    for (std::uint32_t code = 0; code <= 255; ++code) {
        set_item(SETTING_DESTINATION, code, 8);
        const bool expected = code == 3 || code == 4 || (code >= 6 && code <= 8);
        EXPECT_EQ(language.dvc_pnl_rmg_is_convert_enable_by_destination(), expected) << code;
    }
}

TEST_F(language_files, an_attribute_is_set_by_exactly_yes) {
    set_item(SETTING_PANEL_LANGUAGE, 49);
    resource& language = create();
    int value = 7;
    EXPECT_FALSE(language.dvc_pnl_rmg_get_language_attribute(8, value));
    EXPECT_EQ(value, 0);
    const std::string cut_to_the_buffer(500, 'Y');
    for (const std::string& text :
         {std::string("YES"), std::string("yes"), std::string("YES "), std::string(), cut_to_the_buffer}) {
        platform_.set_attribute(49, 3, text);
        value = 7;
        EXPECT_TRUE(language.dvc_pnl_rmg_get_language_attribute(3, value)) << text;
        EXPECT_EQ(value, text == "YES" ? 1 : 0) << text;
    }
}

TEST_F(language_files, a_data_file_is_stored_found_and_removed) {
    resource& language = create();
    int error = OLD_ERROR;
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("note", "a\0b", 3, error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, "note", stored));
    EXPECT_EQ(stored, std::string("a\0b", 3));
    error = OLD_ERROR;
    EXPECT_TRUE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, 0);
    error = OLD_ERROR;
    EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file("note", error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, FAKE_FAILURE);
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("empty", nullptr, 0, error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_TRUE(platform_.get_file(4, 33, "empty", stored));
    EXPECT_EQ(stored, "");
    EXPECT_EQ(platform_.open_file_count(), 0U);
}

/** A file that cannot be closed either must not hide the first failure. */
TEST_F(language_files, every_failing_call_of_the_store_comes_out_as_result_and_error) {
    const auto set = [](int& error) {
        return create().dvc_pnl_rmg_set_message_data("note", "new", 3, error);
    };
    const auto remove = [](int& error) { return create().dvc_pnl_rmg_remove_data_file("note", error); };
    const struct {
        const char* failing;
        int (*operation)(int&);
        int result;
        std::vector<std::string> made;
    } rows[] = {
        {"fopen", set, DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen"}},
        {"fwrite", set, DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fclose"}},
        {"fflush", set, DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fflush", "fclose"}},
        {"fclose", set, DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fflush", "fclose"}},
        {"existfile", remove, DVC_PNL_RMG_RESULT_NOT_FOUND, {"existfile"}},
        {"remove", remove, DVC_PNL_RMG_RESULT_IO_ERROR, {"existfile", "remove"}},
    };
    for (const auto& row : rows) {
        for (const bool closing_fails_too : {false, true}) {
            SCOPED_TRACE(row.failing);
            platform_.reset();
            platform_.set_file(4, 33, "note", "old");
            if (closing_fails_too) {
                platform_.fail("dvu_dio_fclose", CODE + 1);
            }
            platform_.fail(std::string("dvu_dio_") + row.failing, CODE);
            int error = OLD_ERROR;
            EXPECT_EQ(row.operation(error), row.result);
            EXPECT_EQ(error, CODE);
            EXPECT_EQ(store_calls(), row.made);
            EXPECT_EQ(platform_.open_file_count(), 0U);
        }
    }
}

TEST_F(language_files, no_name_makes_no_call) {
    resource& language = create();
    for (const char* name : NO_NAMES) {
        int error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_set_message_data(name, "x", 1, error),
                  DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
        EXPECT_EQ(error, 0);
        error = OLD_ERROR;
        EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file(name, error));
        EXPECT_EQ(error, 0);
        error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file(name, error), DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
        EXPECT_EQ(error, 0);
    }
    EXPECT_TRUE(store_calls().empty());
}

TEST_F(language_files, the_machine_specific_path_stays_until_a_good_one_comes) {
    resource& language = create();
    int error = OLD_ERROR;
    std::string path = "/data/machine";
    EXPECT_EQ(language.dvc_pnl_rmg_set_machine_specific_path(path.c_str(), error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    path.assign(path.size(), 'x'); // a copy is kept
    for (const char* bad : NO_NAMES) {
        error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_set_machine_specific_path(bad, error), DVC_PNL_RMG_RESULT_NOT_FOUND);
        EXPECT_EQ(error, 0);
    }
    EXPECT_STREQ(language.dvc_pnl_rmg_get_machine_data_file(), "/data/machine");
}
