#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"
#include "language_device.h"

#include <QApplication>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <map>

using namespace velarion;

namespace {

const Qt::LayoutDirection LEFT = Qt::LeftToRight;
const Qt::LayoutDirection RIGHT = Qt::RightToLeft;
constexpr char LOAD_PAPER[] = "\xE7\xB4\x99\n\xE7\x84\xA1\xE3\x81\x97";
constexpr char RUSSIAN_COPY[] =
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

TEST_F(language_resource, an_instance_starts_with_the_selection_and_direction_of_the_settings) {
    const std::uint32_t panel = SETTING_PANEL_LANGUAGE;
    const std::uint32_t option = SETTING_PANEL_OPTION_LANGUAGE;
    const struct {
        const char* name;
        std::map<std::uint32_t, std::uint32_t> settings; ///< others cannot be read
        SELECTION selection;
        Qt::LayoutDirection before;
        Qt::LayoutDirection direction;
    } rows[] = {
        {"standard language", {{panel, 81}, {option, 972}}, {81, 0}, RIGHT, LEFT},
        {"no setting", {{option, 972}}, {0, 0}, RIGHT, RIGHT},
        {"option language", {{panel, 999}, {option, 972}}, {999, 972}, LEFT, RIGHT},
        {"unreadable option language", {{panel, 999}}, {999, 0}, RIGHT, RIGHT},
        {"16 bits, all of them", {{panel, 65535}}, {65535, 0}, RIGHT, LEFT},
    };
    write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", "il_ae=0\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(1, 972);
        for (const auto& setting : row.settings) {
            set_item(setting.first, setting.second);
        }
        QApplication::setLayoutDirection(row.before);
        EXPECT_EQ(active_selection(), row.selection);
        EXPECT_EQ(QApplication::layoutDirection(), row.direction);
        resource::dvc_pnl_rmg_delete_instance();
        EXPECT_EQ(resource::dvc_pnl_rmg_get_instance(), nullptr);
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
        {"last message of the sample's ids", "31395", 1, 0, {0, 0}, "Texts 1"},
        {"id of more than 16 bits", "70001", 49, 0, {0, 0}, "Kopien"},
        {"last column", "1", 7, 0, {0, 0}, RUSSIAN_COPY},
        {"first column, and a line break", "8", 81, 0, {0, 0}, LOAD_PAPER},
        {"a row that another message shows", "5", 33, 0, {0, 0}, "Copie"},
        {"empty text is no missing text", "90", 49, 0, {0, 0}, ""},
        {"empty in this language alone", "91", 1, 0, {0, 0}, ""},
        {"pack", "1", 86, 0, {0, 0}, PACK_TEXT},
        {"pack without the row: the name", "2", 86, 0, {0, 0}, "MSG_NORMAL_OTHER_COPIES"},
        {"missing pack: the name", "1", 886, 0, {0, 0}, "MSG_NORMAL_TITLE_COPY"},
        {"unknown language: English", "1", 44, 0, {49, 0}, "Copy"},
        {"999 itself is no language", "1", 999, 0, {999, 86}, "Copy"},
        {"preferred set: machine's", "1", 44, 44, {49, 0}, "Kopie"},
        {"preferred set: machine's pack", "1", 44, 44, {999, 86}, PACK_TEXT},
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
    const std::string keys[] = {"0",     "-1",         "31396",       "4",           "65537",
                                "70002", "2147483647", "-2147483648", "no_such_file"};
    for (const std::string& key : keys) {
        unsetenv("TEST_ICON_MESSAGE");
        EXPECT_EQ(text_of(key, 1), "") << key;
        setenv("TEST_ICON_MESSAGE", "", 1);
        EXPECT_EQ(text_of(key, 1), key);
    }
    DVC_PNL_RMG_IMPL_MESSAGE found = {5, "kept", 6};
    EXPECT_FALSE(resource::search_message_element({4, nullptr, 0}, found));
    EXPECT_STREQ(found.message_name, "kept");
}

TEST_F(language_resource, message_data_goes_before_what_the_text_held) {
    write_file("/mnt/sheetext/a", std::string("caf\xE9\0y", 6));
    write_file("/mnt/sheetext/sub/12", "below");
    write_file("/mnt/sheetext/empty", "");
    ASSERT_EQ(mkfifo("/mnt/sheetext/pipe", 0600), 0);
    std::filesystem::create_symlink("/dev/zero", "/mnt/sheetext/device");
    const struct {
        const char* file;
        int result;
        std::string text;
        int error;
    } rows[] = {
        {nullptr, DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "-", 0},
        {"", DVC_PNL_RMG_RESULT_INVALID_ARGUMENT, "-", 0},
        {"missing", DVC_PNL_RMG_RESULT_NOT_FOUND, "-", 4711},
        {"pipe", DVC_PNL_RMG_RESULT_NOT_FOUND, "-", 4711},
        {"device", DVC_PNL_RMG_RESULT_NOT_FOUND, "-", 4711},
        {"empty", DVC_PNL_RMG_RESULT_IO_ERROR, "-", 4711},
        {"sub", DVC_PNL_RMG_RESULT_IO_ERROR, "-", 4711},
        {"a", DVC_PNL_RMG_RESULT_OK, "caf\xE9-", 4711},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(!row.file ? "null" : row.file);
        std::string text = "-";
        int error = 4711;
        EXPECT_EQ(create().dvc_pnl_rmg_get_message_data(row.file, text, error), row.result);
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(error, row.error);
    }
    EXPECT_EQ(text_of("a", 81), "caf\xC3\xA9"); // a key that is no number names a file
    EXPECT_EQ(text_of("sub/12", 81), "below");
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
        {"in force", preferred, {999, 972}, {999, 972}, LEFT, RIGHT},
        {"stays in force, nothing applied", standard, {49, 5}, {999, 972}, LEFT, LEFT},
        {"zero cancels", preferred, {0, 972}, {49, 5}, RIGHT, LEFT},
        {"an option language given directly", preferred, {972, 0}, {972, 0}, RIGHT, LEFT},
        {"still in force", standard, {999, 972}, {972, 0}, LEFT, LEFT},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.name);
        QApplication::setLayoutDirection(step.before);
        (language.*step.operation)(step.given.first, step.given.second);
        EXPECT_EQ(QApplication::layoutDirection(), step.direction);
        EXPECT_EQ(active_selection(), step.active);
    }
    language.dvc_pnl_rmg_cancel_preferred_language_id();
    EXPECT_EQ(QApplication::layoutDirection(), RIGHT);
    EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 972);
}

TEST_F(language_resource, a_missing_option_language_makes_english_the_machines_language_for_good) {
    resource& language = create();
    for (const bool is_preferred : {false, true}) {
        SCOPED_TRACE(is_preferred);
        language.dvc_pnl_rmg_set_standard_language(is_preferred ? 49 : 999, 86);
        language.dvc_pnl_rmg_set_preferred_language(is_preferred ? 999 : 0, 3);
        QApplication::setLayoutDirection(RIGHT);
        EXPECT_EQ(language.dvc_pnl_rmg_get_language_id(), 1);
        EXPECT_EQ(active_selection(), SELECTION(1, 86));
        EXPECT_EQ(QApplication::layoutDirection(), LEFT);
    }
}
