#include "scratch_device.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_setting_id.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

using resource = velarion::dvc_pnl_rmg_language_resource;

namespace {

const int NO_ERROR_WRITTEN = 4711;

class language_resource : public scratch_device {
protected:
    void TearDown() override {
        resource::dvc_pnl_rmg_delete_instance();
        scratch_device::TearDown();
    }

    static resource& create() { return *resource::dvc_pnl_rmg_create_instance(); }

    /** A null text shows up as "(null)". */
    static std::string text_of(resource& language, const char* key, int language_id) {
        const QString text = language.dvc_pnl_rmg_get_message(key, language_id);
        return text.isNull() ? "(null)" : text.toUtf8().constData();
    }

    static std::string standard_text(int row, int language_id) {
        for (int i = 0; i < DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT; ++i) {
            if (standard_language_id_table[i] == language_id) {
                return standard_language_message_table[row][i];
            }
        }
        return "(no such language)";
    }

    static std::pair<int, int> active_selection(resource& language) {
        std::pair<int, int> selection;
        language.dvc_pnl_rmg_get_active_language(selection.first, selection.second);
        return selection;
    }

    static int message_id_on_row_1() {
        const DVC_PNL_RMG_IMPL_MESSAGE* message = dvc_pnl_rmg_impl_message_table;
        while (message->message_table_index != 1) {
            ++message;
        }
        return message->message_id;
    }

    static int missing_message_id() {
        int id = 1;
        while (dvc_pnl_rmg_impl_message_table[id - 1].message_id == id) {
            ++id;
        }
        return id;
    }
};

} // namespace

TEST_F(language_resource, lives_from_creation_to_deletion_and_reads_the_settings_anew) {
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), nullptr);
    set_panel_language(49);
    resource* language = resource::dvc_pnl_rmg_create_instance();
    EXPECT_EQ(resource::dvc_pnl_rmg_create_instance(), language);
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), language);
    EXPECT_EQ(language->dvc_pnl_rmg_get_language_id(), 49);
    set_panel_language(33);
    EXPECT_EQ(language->dvc_pnl_rmg_get_language_id(), 49);
    resource::dvc_pnl_rmg_delete_instance();
    resource::dvc_pnl_rmg_delete_instance();
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), nullptr);
    EXPECT_EQ(create().dvc_pnl_rmg_get_language_id(), 33);
}

TEST_F(language_resource, start_selection_and_direction_follow_the_settings) {
    const struct {
        const char* name;
        int panel_language;  // -1: cannot be read
        int option_language; // -1: cannot be read
        std::pair<int, int> selection;
        bool is_direction_applied;
    } rows[] = {
        {"standard language", 81, 972, {81, 0}, true},
        {"no setting", -1, 972, {0, 0}, false},
        {"option language", 999, 972, {999, 972}, true},
        {"option language that cannot be read", 999, -1, {999, 0}, false},
        {"16 bits, all of them", 65535, 0, {65535, 0}, true},
    };
    write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", "il_ae=0\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(1, 972);
        if (row.panel_language >= 0) {
            set_panel_language(static_cast<std::uint16_t>(row.panel_language));
        }
        if (row.option_language >= 0) {
            set_option_language(static_cast<std::uint16_t>(row.option_language));
        }
        const bool is_right_to_left = row.selection == std::make_pair(999, 972);
        QApplication::setLayoutDirection(is_right_to_left ? Qt::LeftToRight : Qt::RightToLeft);
        EXPECT_EQ(active_selection(create()), row.selection);
        const bool was_applied =
            QApplication::layoutDirection() == (is_right_to_left ? Qt::RightToLeft : Qt::LeftToRight);
        EXPECT_EQ(was_applied, row.is_direction_applied);
        resource::dvc_pnl_rmg_delete_instance();
    }
}

TEST_F(language_resource, text_of_a_message_by_language) {
    set_slot(1, 86);
    set_slot(2, 886); // its pack is not installed
    install_pack(86);
    resource& language = create();
    const std::string empty_row_key = std::to_string(message_id_on_row_1());
    const struct {
        const char* name;
        const char* key;
        int language_id;
        std::pair<int, int> preferred;
        std::pair<int, int> standard;
        std::string text;
    } rows[] = {
        {"standard language", "1", 1, {0, 0}, {0, 0}, "Copy"},
        {"key with sign and blanks", " +1 ", 1, {0, 0}, {0, 0}, "Copy"},
        {"every column", "1", 7, {0, 0}, {0, 0}, standard_text(2, 7)},
        {"empty text is no missing text", empty_row_key.c_str(), 49, {0, 0}, {0, 0}, ""},
        {"pack", "1", 86, {0, 0}, {0, 0}, PACK_TEXT},
        {"pack without the row: the name", "2", 86, {0, 0}, {0, 0}, "MSG_NORMAL_OTHER_COPIES"},
        {"missing pack: the name", "1", 886, {0, 0}, {0, 0}, "MSG_NORMAL_TITLE_COPY"},
        {"unknown language: English", "1", 44, {0, 0}, {49, 0}, "Copy"},
        {"no language: English", "1", 0, {0, 0}, {81, 0}, "Copy"},
        {"999 itself is no language", "1", 999, {0, 0}, {999, 86}, "Copy"},
        {"unknown, preferred set: machine's", "1", 44, {44, 0}, {49, 0}, standard_text(2, 49)},
        {"unknown, preferred set: machine's pack", "1", 44, {44, 0}, {999, 86}, PACK_TEXT},
        {"unknown, preferred set: machine's missing pack",
         "1",
         44,
         {44, 0},
         {999, 886},
         "MSG_NORMAL_TITLE_COPY"},
        {"unknown, preferred set: unknown machine language", "1", 44, {44, 0}, {45, 0}, "Copy"},
        {"second member counts only with 999", "1", 44, {44, 0}, {45, 86}, "Copy"},
    };
    for (const auto& row : rows) {
        language.dvc_pnl_rmg_set_standard_language(row.standard.first, row.standard.second);
        language.dvc_pnl_rmg_set_preferred_language(row.preferred.first, row.preferred.second);
        EXPECT_EQ(text_of(language, row.key, row.language_id), row.text) << row.name;
    }
}

TEST_F(language_resource, missing_messages_are_empty_or_show_their_keys) {
    resource& language = create();
    const std::string gap = std::to_string(missing_message_id());
    const std::string keys[] = {"0", "-1", "31396", gap, "no_such_file", "2147483648"};
    for (const std::string& key : keys) {
        EXPECT_EQ(text_of(language, key.c_str(), 1), "") << key;
    }
    setenv("TEST_ICON_MESSAGE", "", 1);
    for (const std::string& key : keys) {
        EXPECT_EQ(text_of(language, key.c_str(), 1), key);
    }
    EXPECT_EQ(text_of(language, std::to_string(message_id_on_row_1()).c_str(), 1), "");
}

TEST_F(language_resource, a_key_that_is_no_number_names_a_data_file) {
    write_file("/mnt/sheetext/abc", std::string("caf\xE9\0y", 6));
    write_file("/mnt/sheetext/sub/12", "below");
    resource& language = create();
    EXPECT_EQ(text_of(language, "abc", 81), "caf\xC3\xA9");
    EXPECT_EQ(text_of(language, "sub/12", 81), "below");
}

TEST_F(language_resource, message_data_results) {
    write_file("/mnt/sheetext/a", "A");
    write_file("/mnt/sheetext/b", "B");
    write_file("/mnt/sheetext/empty", "");
    write_file("/mnt/sheetext/nul", std::string("\0x", 2));
    std::filesystem::create_directory("/mnt/sheetext/folder");
    resource& language = create();
    const struct {
        const char* file;
        int result;
        const char* text;
        int error;
    } rows[] = {
        {nullptr, velarion::DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "before", 0},
        {"", velarion::DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "before", 0},
        {"missing", velarion::DVC_PNL_RMG_RESULT_NOT_FOUND, "before", NO_ERROR_WRITTEN},
        {"empty", velarion::DVC_PNL_RMG_RESULT_IO_ERROR, "before", NO_ERROR_WRITTEN},
        {"folder", velarion::DVC_PNL_RMG_RESULT_IO_ERROR, "before", NO_ERROR_WRITTEN},
        {"a", velarion::DVC_PNL_RMG_RESULT_OK, "Abefore", NO_ERROR_WRITTEN},
        {"nul", velarion::DVC_PNL_RMG_RESULT_OK, "before", NO_ERROR_WRITTEN},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file == nullptr ? "null" : row.file);
        std::string text = "before";
        int error = NO_ERROR_WRITTEN;
        EXPECT_EQ(language.dvc_pnl_rmg_get_message_data(row.file, text, error), row.result);
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(error, row.error);
    }
    std::string text;
    int error = 0;
    language.dvc_pnl_rmg_get_message_data("a", text, error);
    language.dvc_pnl_rmg_get_message_data("b", text, error);
    EXPECT_EQ(text, "BA");
}

TEST_F(language_resource, search_copies_the_record_and_leaves_the_rest_alone) {
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        DVC_PNL_RMG_IMPL_MESSAGE found = {};
        ASSERT_TRUE(resource::search_message_element(dvc_pnl_rmg_impl_message_table[i], found));
        ASSERT_EQ(std::memcmp(&found, &dvc_pnl_rmg_impl_message_table[i], sizeof found), 0);
    }
    for (const int id : {0, -1, 31396, missing_message_id(), -2147483647 - 1, 2147483647}) {
        DVC_PNL_RMG_IMPL_MESSAGE found = {5, "kept", 6};
        EXPECT_FALSE(resource::search_message_element({id, nullptr, 0}, found)) << id;
        EXPECT_STREQ(found.message_name, "kept");
    }
}

TEST_F(language_resource, every_text_of_every_language_comes_out) {
    resource& language = create();
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        const DVC_PNL_RMG_IMPL_MESSAGE& message = dvc_pnl_rmg_impl_message_table[i];
        const std::string key = std::to_string(message.message_id);
        for (int column = 0; column < DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT; ++column) {
            ASSERT_EQ(text_of(language, key.c_str(), standard_language_id_table[column]),
                      standard_language_message_table[message.message_table_index][column])
                << key;
        }
    }
}

TEST_F(language_resource, preferred_language_overrides_until_it_is_cancelled) {
    set_slot(1, 972);
    write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", "il_ae=0\n");
    set_panel_language(33);
    resource& language = create();
    language.dvc_pnl_rmg_set_preferred_language(999, 972);
    EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
    EXPECT_TRUE(language.dvc_pnl_rmg_is_preferred_language());
    EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 972);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    language.dvc_pnl_rmg_set_standard_language(49,
                                               5); // applies nothing: the preferred language stays in force
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(active_selection(language), std::make_pair(999, 972));
    language.dvc_pnl_rmg_set_preferred_language(0, 972);
    EXPECT_FALSE(language.dvc_pnl_rmg_is_preferred_language());
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(active_selection(language), std::make_pair(49, 5));
    language.dvc_pnl_rmg_set_preferred_language(972,
                                                0); // given directly, an option language writes left to right
    EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(language.dvc_pnl_rmg_get_option_layout_direction(972), 0);
    EXPECT_EQ(language.dvc_pnl_rmg_get_option_layout_direction(86), 1);
    language.dvc_pnl_rmg_set_standard_language(999, 972);
    language.dvc_pnl_rmg_cancel_preferred_language_id();
    EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(active_selection(language), std::make_pair(999, 972));
}

TEST_F(language_resource, a_missing_option_language_makes_english_the_machines_language_for_good) {
    const struct {
        const char* name;
        std::pair<int, int> standard;
        std::pair<int, int> preferred;
        std::pair<int, int> afterwards;
    } rows[] = {
        {"standard", {999, 86}, {0, 0}, {1, 86}},
        {"preferred", {49, 3}, {999, 86}, {1, 3}},
    };
    resource& language = create();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        language.dvc_pnl_rmg_set_standard_language(row.standard.first, row.standard.second);
        language.dvc_pnl_rmg_set_preferred_language(row.preferred.first, row.preferred.second);
        QApplication::setLayoutDirection(Qt::RightToLeft);
        EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 1);
        EXPECT_FALSE(language.dvc_pnl_rmg_is_preferred_language());
        EXPECT_EQ(active_selection(language), row.afterwards);
        EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    }
}
