#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"
#include "language_device.h"

#include <QApplication>

#include <cstdlib>
#include <filesystem>

using namespace velarion;

namespace {

const int OLD_ERROR = 4711;
const char EMPTY_TEXT[] = "2404"; // on the row that is empty in every language
const char RUSSIAN_COPY[] =
    "\xD0\x9A\xD0\xBE\xD0\xBF\xD0\xB8\xD1\x80\xD0\xBE\xD0\xB2\xD0\xB0\xD0\xBD\xD0\xB8\xD0\xB5";

using SELECTION = std::pair<int, int>;

class language_resource : public language_device {
protected:
    /** A null text shows up as "(null)". */
    static std::string text_of(const std::string& key, int language_id) {
        const QString text = create().dvc_pnl_rmg_get_message(key.c_str(), language_id);
        return text.isNull() ? "(null)" : text.toUtf8().constData();
    }

    static SELECTION active_selection() {
        SELECTION selection;
        create().dvc_pnl_rmg_get_active_language(selection.first, selection.second);
        return selection;
    }
};

} // namespace

TEST_F(language_resource, lives_from_creation_to_deletion_and_reads_the_settings_anew) {
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), nullptr);
    set_item(SETTING_PANEL_LANGUAGE, 49);
    resource& language = create();
    EXPECT_EQ(&create(), &language);
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), &language);
    set_item(SETTING_PANEL_LANGUAGE, 33);
    EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 49);
    resource::dvc_pnl_rmg_delete_instance();
    resource::dvc_pnl_rmg_delete_instance();
    EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), nullptr);
    EXPECT_EQ(create().dvc_pnl_rmg_get_language_id(), 33);
}

TEST_F(language_resource, start_selection_and_direction_follow_the_settings) {
    const int unreadable = -1;
    const struct {
        const char* name;
        int panel_language;
        int option_language;
        SELECTION selection;
        Qt::LayoutDirection before;
        Qt::LayoutDirection direction;
    } rows[] = {
        {"standard language", 81, 972, {81, 0}, Qt::RightToLeft, Qt::LeftToRight},
        {"no setting", unreadable, 972, {0, 0}, Qt::RightToLeft, Qt::RightToLeft},
        {"option language", 999, 972, {999, 972}, Qt::LeftToRight, Qt::RightToLeft},
        {"unreadable option language", 999, unreadable, {999, 0}, Qt::RightToLeft, Qt::RightToLeft},
        {"16 bits, all of them", 65535, 0, {65535, 0}, Qt::RightToLeft, Qt::LeftToRight},
    };
    write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", "il_ae=0\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(1, 972);
        if (row.panel_language != unreadable) {
            set_item(SETTING_PANEL_LANGUAGE, static_cast<std::uint32_t>(row.panel_language));
        }
        if (row.option_language != unreadable) {
            set_item(SETTING_PANEL_OPTION_LANGUAGE, static_cast<std::uint32_t>(row.option_language));
        }
        QApplication::setLayoutDirection(row.before);
        EXPECT_EQ(active_selection(), row.selection);
        EXPECT_EQ(QApplication::layoutDirection(), row.direction);
        resource::dvc_pnl_rmg_delete_instance();
    }
}

TEST_F(language_resource, text_of_a_message_by_language) {
    set_slot(1, 86);
    set_slot(2, 886); // its pack is not installed
    install_pack(86);
    resource& language = create();
    const struct {
        const char* name;
        const char* key;
        int language_id;
        int preferred;
        SELECTION standard;
        const char* text;
    } rows[] = {
        {"key with sign and blanks", " +1 ", 1, 0, {0, 0}, "Copy"},
        {"last column", "1", 7, 0, {0, 0}, RUSSIAN_COPY},
        {"empty text is no missing text", EMPTY_TEXT, 49, 0, {0, 0}, ""},
        {"pack", "1", 86, 0, {0, 0}, PACK_TEXT},
        {"pack without the row: the name", "2", 86, 0, {0, 0}, "MSG_NORMAL_OTHER_COPIES"},
        {"missing pack: the name", "1", 886, 0, {0, 0}, "MSG_NORMAL_TITLE_COPY"},
        {"unknown language: English", "1", 44, 0, {49, 0}, "Copy"},
        {"no language: English", "1", 0, 0, {81, 0}, "Copy"},
        {"999 itself is no language", "1", 999, 0, {999, 86}, "Copy"},
        {"preferred set: machine's", "1", 44, 44, {49, 0}, "Kopie"},
        {"preferred set: machine's pack", "1", 44, 44, {999, 86}, PACK_TEXT},
        {"preferred set: machine's missing pack", "1", 44, 44, {999, 886}, "MSG_NORMAL_TITLE_COPY"},
        {"preferred set: unknown machine language", "1", 44, 44, {45, 0}, "Copy"},
        {"second member counts only with 999", "1", 44, 44, {45, 86}, "Copy"},
    };
    for (const auto& row : rows) {
        language.dvc_pnl_rmg_set_standard_language(row.standard.first, row.standard.second);
        language.dvc_pnl_rmg_set_preferred_language(row.preferred, 0);
        EXPECT_EQ(text_of(row.key, row.language_id), row.text) << row.name;
    }
}

TEST_F(language_resource, missing_messages_are_empty_or_show_their_keys) {
    const char* const keys[] = {"0",          "-1",          "31396",      "432", // a gap
                                "2147483647", "-2147483648", "2147483648", "no_such_file"};
    for (const char* key : keys) {
        EXPECT_EQ(text_of(key, 1), "") << key;
    }
    setenv("TEST_ICON_MESSAGE", "", 1);
    for (const char* key : keys) {
        EXPECT_EQ(text_of(key, 1), key);
    }
    EXPECT_EQ(text_of(EMPTY_TEXT, 1), "");
    DVC_PNL_RMG_IMPL_MESSAGE found = {5, "kept", 6};
    EXPECT_FALSE(resource::search_message_element({432, nullptr, 0}, found));
    EXPECT_STREQ(found.message_name, "kept");
}

TEST_F(language_resource, message_data_goes_before_what_the_text_held) {
    write_file("/mnt/sheetext/a", std::string("caf\xE9\0y", 6));
    write_file("/mnt/sheetext/sub/12", "below");
    write_file("/mnt/sheetext/empty", "");
    write_file("/mnt/sheetext/nul", std::string("\0x", 2));
    const struct {
        const char* file;
        int result;
        const char* text;
        int error;
    } rows[] = {
        {nullptr, DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "before", 0},
        {"", DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "before", 0},
        {"missing", DVC_PNL_RMG_RESULT_NOT_FOUND, "before", OLD_ERROR},
        {"empty", DVC_PNL_RMG_RESULT_IO_ERROR, "before", OLD_ERROR},
        {"sub", DVC_PNL_RMG_RESULT_IO_ERROR, "before", OLD_ERROR},
        {"a", DVC_PNL_RMG_RESULT_OK,
         "caf\xE9"
         "before",
         OLD_ERROR},
        {"nul", DVC_PNL_RMG_RESULT_OK, "before", OLD_ERROR},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file == nullptr ? "null" : row.file);
        std::string text = "before";
        int error = OLD_ERROR;
        EXPECT_EQ(create().dvc_pnl_rmg_get_message_data(row.file, text, error), row.result);
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(error, row.error);
    }
    EXPECT_EQ(text_of("a", 81), "caf\xC3\xA9"); // a key that is no number names a file
    EXPECT_EQ(text_of("sub/12", 81), "below");
}

TEST_F(language_resource, every_text_of_every_language_comes_out) {
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        const DVC_PNL_RMG_IMPL_MESSAGE& message = dvc_pnl_rmg_impl_message_table[i];
        const std::string key = std::to_string(message.message_id);
        for (int column = 0; column < DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT; ++column) {
            ASSERT_EQ(text_of(key, standard_language_id_table[column]),
                      standard_language_message_table[message.message_table_index][column])
                << key;
        }
    }
}

TEST_F(language_resource, preferred_language_overrides_until_it_is_cancelled) {
    using setter = void (resource::*)(int, int);
    const setter preferred = &resource::dvc_pnl_rmg_set_preferred_language;
    const setter standard = &resource::dvc_pnl_rmg_set_standard_language;
    set_slot(1, 972);
    write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", "il_ae=0\n");
    resource& language = create();
    const struct {
        const char* name;
        setter operation;
        SELECTION given;
        SELECTION active;
        Qt::LayoutDirection before;
        Qt::LayoutDirection direction;
    } steps[] = {
        {"in force", preferred, {999, 972}, {999, 972}, Qt::LeftToRight, Qt::RightToLeft},
        {"stays in force, nothing applied", standard, {49, 5}, {999, 972}, Qt::LeftToRight, Qt::LeftToRight},
        {"zero cancels", preferred, {0, 972}, {49, 5}, Qt::RightToLeft, Qt::LeftToRight},
        {"an option language given directly",
         preferred,
         {972, 0},
         {972, 0},
         Qt::RightToLeft,
         Qt::LeftToRight},
        {"still in force", standard, {999, 972}, {972, 0}, Qt::LeftToRight, Qt::LeftToRight},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.name);
        QApplication::setLayoutDirection(step.before);
        (language.*step.operation)(step.given.first, step.given.second);
        EXPECT_EQ(QApplication::layoutDirection(), step.direction);
        EXPECT_EQ(active_selection(), step.active);
    }
    language.dvc_pnl_rmg_cancel_preferred_language_id();
    EXPECT_FALSE(language.dvc_pnl_rmg_is_preferred_language());
    EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 972);
    EXPECT_EQ(language.dvc_pnl_rmg_get_option_layout_direction(972), 0);
}

TEST_F(language_resource, a_missing_option_language_makes_english_the_machines_language_for_good) {
    const struct {
        const char* name;
        SELECTION standard;
        SELECTION preferred;
        SELECTION afterwards;
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
        EXPECT_EQ(active_selection(), row.afterwards);
        EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
    }
}
