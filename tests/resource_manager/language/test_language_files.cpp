#include "scratch_device.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_setting_id.h"

#include <QApplication>

#include <gtest/gtest.h>

using resource = velarion::dvc_pnl_rmg_language_resource;

namespace {

const char STANDARD_KEYMAP[] = "/usr/local/vuk_plp/lib/keydata/kb.txt";
const int OLD_ERROR = 4711;
const int CODE = 99;

class language_files : public scratch_device {
protected:
    void TearDown() override {
        resource::dvc_pnl_rmg_delete_instance();
        scratch_device::TearDown();
    }

    static resource& create() { return *resource::dvc_pnl_rmg_create_instance(); }

    void set_destination(std::uint32_t code) {
        platform_.set_setting(velarion::SETTING_GROUP, velarion::SETTING_DESTINATION, 8, code);
    }

    /** The path that an operation makes of "kb.txt"; both numbers must come out as 0. */
    template <typename OPERATION> static std::string path_of(OPERATION operation) {
        int first = 7;
        int second = 7;
        std::string path = "kb.txt";
        operation(first, second, path);
        EXPECT_EQ(first, 0);
        EXPECT_EQ(second, 0);
        return path;
    }

    static std::string keymap_path(resource& language, int id) {
        return path_of([&](int& first, int& second, std::string& path) {
            language.dvc_pnl_rmg_get_keymap_file_param(id, first, second, path);
        });
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
        const char* standard_family;
        const char* option_family;
    } rows[] = {
        {"standard", 81, "HeiseiKakuGothW5_JIS0213C", "HeiseiKakuGothW5_JIS0213C",
         "HeiseiKakuGothW5_JIS0213C", nullptr},
        {"option", 86, "Pack Sans", "Pack Sans", "", "Pack Sans"},
        {"option without a pack", 886, nullptr, "Application", "", nullptr},
        {"unknown", 44, "Univers OTS", "Univers OTS", "", nullptr},
        {"unset", 0, "Univers OTS", "Univers OTS", "", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(language.dvc_pnl_rmg_get_font_name(row.id), row.font_name);
        EXPECT_EQ(language.dvc_pnl_rmg_get_font(row.id).family(), QString::fromLatin1(row.family));
        EXPECT_STREQ(language.dvc_pnl_rmg_get_option_font_family(row.id), row.option_family);
        std::string family = "old";
        language.dvc_pnl_rmg_get_standard_font_family(row.id, family);
        EXPECT_EQ(family, row.standard_family);
    }
    language.dvc_pnl_rmg_set_preferred_language(999, 86);
    EXPECT_EQ(language.dvc_pnl_rmg_get_font().family(), QString::fromLatin1("Pack Sans"));
    EXPECT_EQ(language.dvc_pnl_rmg_make_link_for_fonts(), 1);
}

TEST_F(language_files, keyboard_files_follow_the_language_and_for_chinese_the_destination) {
    set_slot(1, 86);
    set_slot(2, 972);
    resource& language = create();
    const struct {
        int id;
        std::uint32_t destination;
        const char* path;
    } rows[] = {
        {49, 3, STANDARD_KEYMAP},
        {972, 5, "/mnt/optlang/972/panel/keymap/kb.txt"},
        {86, 3, "/mnt/optlang/86/panel/keymap/kb.txt"},
        {86, 5, STANDARD_KEYMAP},
        {886, 3, STANDARD_KEYMAP}, // in no slot
        {0, 3, STANDARD_KEYMAP},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.id) + " with destination " + std::to_string(row.destination));
        set_destination(row.destination);
        EXPECT_EQ(keymap_path(language, row.id), row.path);
    }
    set_slot(1, 886);
    resource::dvc_pnl_rmg_delete_instance();
    set_destination(2);
    EXPECT_EQ(keymap_path(create(), 886), STANDARD_KEYMAP);
    set_destination(8);
    EXPECT_EQ(keymap_path(create(), 886), "/mnt/optlang/886/panel/keymap/kb.txt");
}

TEST_F(language_files, information_files_are_the_packs_whatever_the_destination) {
    set_slot(1, 86);
    set_destination(5);
    resource& language = create();
    const struct {
        int id;
        const char* folder;
    } rows[] = {
        {86, "/mnt/optlang/86/panel/keymap/"},
        {1, "/usr/local/vuk_plp/lib/keydata/"},
        {886, "/usr/local/vuk_plp/lib/keydata/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        EXPECT_EQ(path_of([&](int& first, int& second, std::string& path) {
                      language.dvc_pnl_rmg_get_language_info_file_param(row.id, first, second, path);
                  }),
                  row.folder + std::string("lang_info.txt"));
        EXPECT_EQ(path_of([&](int& first, int& second, std::string& path) {
                      language.dvc_pnl_rmg_get_prohibition_info_file_param(row.id, first, second, path);
                  }),
                  row.folder + std::string("proh_info.txt"));
    }
    EXPECT_EQ(path_of([&](int& first, int& second, std::string& path) {
                  language.dvc_pnl_rmg_get_static_char_file_param(first, second, path);
              }),
              STANDARD_KEYMAP);
}

TEST_F(language_files, conversion_is_enabled_by_five_destinations) {
    resource& language = create();
    EXPECT_FALSE(language.dvc_pnl_rmg_is_convert_enable_by_destination()) << "cannot be read";
    for (std::uint32_t code = 0; code <= 255; ++code) {
        set_destination(code);
        const bool expected = code == 3 || code == 4 || (code >= 6 && code <= 8);
        EXPECT_EQ(language.dvc_pnl_rmg_is_convert_enable_by_destination(), expected) << code;
    }
}

TEST_F(language_files, attributes) {
    set_panel_language(49);
    platform_.set_attribute(49, 3, "YES");
    platform_.set_attribute(49, 4, "yes");
    platform_.set_attribute(49, 5, "YES ");
    platform_.set_attribute(49, 6, "");
    platform_.set_attribute(49, 7, std::string(500, 'Y')); // the service cuts it to the buffer
    resource& language = create();
    const struct {
        int attribute;
        bool is_read;
        int value;
    } rows[] = {{3, true, 1}, {4, true, 0}, {5, true, 0}, {6, true, 0}, {7, true, 0}, {8, false, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.attribute);
        int value = 7;
        EXPECT_EQ(language.dvc_pnl_rmg_get_language_attribute(49, row.attribute, value), row.is_read);
        EXPECT_EQ(value, row.value);
        value = 7;
        EXPECT_EQ(language.dvc_pnl_rmg_get_language_attribute(row.attribute, value), row.is_read);
        EXPECT_EQ(value, row.value);
    }
}

TEST_F(language_files, a_data_file_is_stored_found_and_removed) {
    resource& language = create();
    int error = OLD_ERROR;
    const char bytes[] = "a\0b";
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("note", bytes, 3, error),
              velarion::DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, "note", stored));
    EXPECT_EQ(stored, std::string("a\0b", 3));
    error = OLD_ERROR;
    EXPECT_TRUE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, 0);
    error = OLD_ERROR;
    EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file("note", error), velarion::DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, FAKE_FAILURE);
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("empty", nullptr, 0, error),
              velarion::DVC_PNL_RMG_RESULT_OK);
    EXPECT_TRUE(platform_.get_file(4, 33, "empty", stored));
    EXPECT_EQ(stored, "");
    EXPECT_EQ(platform_.open_file_count(), 0U);
}

TEST_F(language_files, every_failing_call_of_the_store_comes_out_as_result_and_error) {
    using calls = std::vector<std::string>;
    const auto set = [](resource& language, int& error) {
        return language.dvc_pnl_rmg_set_message_data("note", "new", 3, error);
    };
    const auto remove = [](resource& language, int& error) {
        return language.dvc_pnl_rmg_remove_data_file("note", error);
    };
    const struct {
        const char* failing;
        int (*operation)(resource&, int&);
        int result;
        calls made;
    } rows[] = {
        {"fopen", set, velarion::DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen"}},
        {"fwrite", set, velarion::DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fclose"}},
        {"fflush", set, velarion::DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fflush", "fclose"}},
        {"fclose", set, velarion::DVC_PNL_RMG_RESULT_IO_ERROR, {"fopen", "fwrite", "fflush", "fclose"}},
        {"existfile", remove, velarion::DVC_PNL_RMG_RESULT_NOT_FOUND, {"existfile"}},
        {"remove", remove, velarion::DVC_PNL_RMG_RESULT_IO_ERROR, {"existfile", "remove"}},
    };
    resource& language = create();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.failing);
        platform_.reset();
        platform_.set_file(4, 33, "note", "old");
        platform_.fail(std::string("dvu_dio_") + row.failing, CODE);
        int error = OLD_ERROR;
        EXPECT_EQ(row.operation(language, error), row.result);
        EXPECT_EQ(error, CODE);
        EXPECT_EQ(store_calls(), row.made);
        EXPECT_EQ(platform_.open_file_count(), 0U);
        for (const FAKE_CALL& call : platform_.calls()) {
            if (!call.text.empty()) {
                EXPECT_EQ(call.numbers[0], 4) << call.function;
                EXPECT_EQ(call.numbers[1], 33) << call.function;
            }
        }
    }
}

TEST_F(language_files, the_first_failure_is_the_one_reported) {
    resource& language = create();
    platform_.fail("dvu_dio_fwrite", CODE);
    platform_.fail("dvu_dio_fclose", CODE + 1);
    int error = 0;
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("note", "x", 1, error),
              velarion::DVC_PNL_RMG_RESULT_IO_ERROR);
    EXPECT_EQ(error, CODE);
}

TEST_F(language_files, no_name_makes_no_call) {
    resource& language = create();
    platform_.forget_calls();
    for (const char* name : {static_cast<const char*>(nullptr), ""}) {
        int error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_set_message_data(name, "x", 1, error),
                  velarion::DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
        EXPECT_EQ(error, 0);
        error = OLD_ERROR;
        EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file(name, error));
        EXPECT_EQ(error, 0);
        error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file(name, error),
                  velarion::DVC_PNL_RMG_RESULT_INVALID_ARGUMENT);
        EXPECT_EQ(error, 0);
    }
    EXPECT_TRUE(store_calls().empty());
}

TEST_F(language_files, the_machine_specific_path_stays_until_a_good_one_comes) {
    resource& language = create();
    EXPECT_STREQ(language.dvc_pnl_rmg_get_machine_data_file(), "");
    int error = OLD_ERROR;
    std::string path = "/data/machine";
    EXPECT_EQ(language.dvc_pnl_rmg_set_machine_specific_path(path.c_str(), error),
              velarion::DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    path.assign(path.size(), 'x'); // a copy is kept
    for (const char* bad : {static_cast<const char*>(nullptr), ""}) {
        error = OLD_ERROR;
        EXPECT_EQ(language.dvc_pnl_rmg_set_machine_specific_path(bad, error),
                  velarion::DVC_PNL_RMG_RESULT_NOT_FOUND);
        EXPECT_EQ(error, 0);
    }
    EXPECT_STREQ(language.dvc_pnl_rmg_get_machine_data_file(), "/data/machine");
}
