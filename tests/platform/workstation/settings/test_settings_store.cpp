#include "settings_store.h"

#include "platform_codes.h"
#include "scratch_platform.h"
#include "settings_database.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace velarion;

namespace {

constexpr std::uint32_t GROUP = 0x04050300;
constexpr std::uint32_t PANEL_LANGUAGE = 0x8500AB20;
constexpr std::uint32_t DESTINATION = 0x85005350;

/** @return the setting; -1 when there is none or the read touched more than its own bytes */
template <typename NUMBER> std::int64_t read_setting(std::uint32_t item) {
    NUMBER value[2] = {0, 77};
    return ent_set_get_status(GROUP, item, value) == 0 && value[1] == 77 ? std::int64_t(value[0]) : -1;
}

std::int64_t panel_language() {
    return read_setting<std::uint16_t>(PANEL_LANGUAGE);
}

class test_settings_store : public scratch_platform {
protected:
    std::string file() const { return folder() + "/settings.db"; }

    /** Opens the file behind the store's back and changes it. */
    sqlite3* execute(const char* sql) const {
        sqlite3* opened = nullptr;
        EXPECT_EQ(sqlite3_open(file().c_str(), &opened), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(opened, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
        return opened;
    }

    /** Leaves this process without the right to write to the folder; @return whether it has lost it */
    bool lose_rights() const {
        namespace fs = std::filesystem;
        fs::permissions(beside(""), fs::perms(0755));
        for (const auto& entry : fs::directory_iterator(folder())) {
            fs::permissions(entry.path(), fs::perms(0444));
        }
        fs::permissions(folder(), fs::perms(0555));
        return (::geteuid() != 0 || ::setuid(65534) == 0) && ::access(folder().c_str(), W_OK) != 0;
    }

    settings_database database_;
    std::string fault_;
};

TEST_F(test_settings_store, a_missing_store_gives_defaults_in_their_own_width) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(panel_language(), 1);
    EXPECT_EQ(read_setting<std::uint8_t>(DESTINATION), 1);
    std::uint32_t value = 77;
    EXPECT_EQ(ent_set_get_status(GROUP, 0x12345678, &value), PLATFORM_UNKNOWN_ITEM);
    EXPECT_EQ(ent_set_get_status(GROUP, PANEL_LANGUAGE, nullptr), PLATFORM_INVALID_ARGUMENT);
    EXPECT_EQ(value, 77U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_FALSE(std::filesystem::exists(folder())) << "reading makes something";
}

TEST_F(test_settings_store, values_are_kept_in_the_range_of_their_width) {
    ASSERT_EQ(database_.add({GROUP, 7, 32, "counter", 0, false}, fault_), 0) << fault_;
    const struct {
        const char* key;
        std::int64_t value;
        int code;
    } rows[] = {
        {"0x04050300:0x8500ab20", 886, 0},
        {"panel_language", -1, PLATFORM_OUT_OF_RANGE},
        {"counter", 0xffffffff, 0},
        {"0x4050300:0x7", 0x100000000, PLATFORM_OUT_OF_RANGE},
        {"0x04050300:0x8", 1, PLATFORM_UNKNOWN_ITEM},
        {"0x04050300:8500AB20", 1, PLATFORM_UNKNOWN_ITEM},
        {"0x04050300:0x8500AB20 ", 1, PLATFORM_UNKNOWN_ITEM},
        {"0x104050300:0x8500AB20", 1, PLATFORM_UNKNOWN_ITEM},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.key) + " = " + std::to_string(row.value));
        fault_.clear();
        EXPECT_EQ(database_.write(row.key, row.value, fault_), row.code);
        EXPECT_EQ(row.code == 0, fault_.empty()) << fault_;
    }
    EXPECT_EQ(panel_language(), 886);
    EXPECT_EQ(read_setting<std::uint32_t>(7), 0xffffffff);
}

TEST_F(test_settings_store, settings_that_clash_or_cannot_be_are_not_added) {
    ASSERT_EQ(database_.add({1, 2, 8, "extra", 3, false}, fault_), 0) << fault_;
    const device_setting refused[] = {
        {1, 2, 8, "other", 0, false},       {1, 3, 8, "extra", 0, false},
        {1, 3, 8, "destination", 0, false}, {GROUP, DESTINATION, 8, "x", 0, false},
        {1, 3, 12, "x", 0, false},          {1, 3, 8, "0x1", 0, false},
        {1, 3, 8, "x", 256, false}};
    for (const device_setting& setting : refused) {
        EXPECT_NE(database_.add(setting, fault_), 0) << setting.name;
    }
}

TEST_F(test_settings_store, writers_of_several_processes_lose_nothing_and_no_reader_waits_for_them) {
    ASSERT_EQ(database_.write("panel_language", 49, fault_), 0) << fault_;
    std::vector<pid_t> processes;
    for (const int writer : {0, 1, 2, 3}) {
        processes.push_back(start_process([this, writer] {
            int codes = 0;
            for (int number = 0; number < 20; ++number) {
                codes |= database_.set_attribute({writer, number, "YES"}, fault_);
            }
            return codes == 0;
        }));
    }
    int wrong = 0;
    for (int read = 0; read < 500; ++read) {
        wrong += panel_language() == 49 ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
    for (const pid_t process : processes) {
        EXPECT_EQ(wait_for(process), 0);
    }
    std::vector<language_attribute> attributes;
    EXPECT_EQ(database_.list_attributes(attributes, fault_), 0) << fault_;
    EXPECT_EQ(attributes.size(), 80U);
}

TEST_F(test_settings_store, attributes_never_overflow_the_reader) {
    const std::string longest(107, 'x');
    EXPECT_EQ(database_.set_attribute({81, 1, longest}, fault_), 0) << fault_;
    EXPECT_EQ(database_.set_attribute({81, 1, std::string("a\0b", 3)}, fault_), PLATFORM_OUT_OF_RANGE);
    sqlite3_close(execute("PRAGMA ignore_check_constraints = 1;"
                          "INSERT INTO language_attribute VALUES (81, 3, printf('%500c', 'y'))"));
    std::string text(ENT_SET_MESSAGE_SIZE + 1, '#');
    EXPECT_EQ(run_in_process([&] { // whose one line on standard error it may use up
                  return ent_set_getmessage(81, 3, &text[0]) == PLATFORM_STORE_DAMAGED && text[0] == '#';
              }),
              0);
    EXPECT_EQ(ent_set_getmessage(81, 1, &text[0]), 0);
    EXPECT_EQ(longest + std::string("\0#", 2), text);
}

TEST_F(test_settings_store, a_damaged_store_gives_defaults_and_one_line) {
    ASSERT_EQ(database_.write("panel_language", 49, fault_), 0) << fault_;
    const std::string good = file_contents(file());
    std::string torn = good;
    std::fill(torn.begin() + 4096, torn.end(), '\x5a');
    const struct {
        const char* name;
        std::string bytes;
        const char* sql;
    } rows[] = {
        {"no database", std::string(2000, 'z'), nullptr},
        {"cut after the first page", good.substr(0, 4096), nullptr},
        {"later pages overwritten", torn, nullptr},
        {"newer schema", good, "PRAGMA user_version = 2"},
        {"other tables", good, "DROP TABLE setting; DROP TABLE language_attribute; CREATE TABLE setting (x)"},
        {"value too wide", good, "PRAGMA ignore_check_constraints = 1; UPDATE setting SET value = 70000"},
        {"value no number", good, "PRAGMA ignore_check_constraints = 1; UPDATE setting SET value = 'abc'"},
        {"width of another item", good, "UPDATE setting SET width = 32"},
        {"view", good, "ALTER TABLE setting RENAME TO kept; CREATE VIEW setting AS SELECT * FROM kept"},
        {"trigger", good, "CREATE TRIGGER t BEFORE DELETE ON setting BEGIN DELETE FROM setting; END"},
        {"computed value", good,
         "DROP TABLE setting; CREATE TABLE setting (grp, item, width, name, value AS (5), PRIMARY KEY (grp, "
         "item));"
         "INSERT INTO setting VALUES (0x04050300, 0x8500AB20, 16, 'x')"},
        {"no key", good,
         "CREATE TABLE x AS SELECT * FROM setting; DROP TABLE setting; ALTER TABLE x RENAME TO setting"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        write_file(file(), row.bytes);
        if (row.sql) {
            sqlite3_close(execute(row.sql));
        }
        EXPECT_EXIT(std::_Exit(panel_language() == 1 && panel_language() == 1 ? 0 : 1),
                    testing::ExitedWithCode(0),
                    "^panel_platform: settings store [^\n]*/settings.db: [^\n]*; using defaults\n$");
    }
    write_file(file(), torn);
    EXPECT_EQ(database_.write("panel_language", 7, fault_), PLATFORM_STORE_DAMAGED);
    EXPECT_EQ(fault_.find('\n'), std::string::npos) << fault_;
    write_file(file(), good);
    sqlite3_close(execute("PRAGMA ignore_check_constraints = 1; UPDATE setting SET value = 70000"));
    EXPECT_EQ(database_.reset("panel_language", fault_), 0) << fault_;
    EXPECT_EQ(database_.write("panel_language", 7, fault_), 0) << "a damaged row cannot be written anew";
    EXPECT_EQ(panel_language(), 7);
}

TEST_F(test_settings_store, what_is_stored_is_read_beside_other_programs) {
    enum END { LIVES, DIES, DIES_UNSEEN, CLOSES }; // unseen: a writer comes first
    const char half_a_change[] =
        "PRAGMA cache_size = 1; BEGIN; UPDATE setting SET value = 5;"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)"
        "INSERT INTO language_attribute SELECT 1, i, 'text' FROM n";
    const struct {
        const char* name;
        const char* sql;
        END other_program;
        bool reader_may_write;
        int expected;
    } rows[] = {
        {"locked", "BEGIN EXCLUSIVE", LIVES, true, 49},
        {"locked, read-only folder", "BEGIN EXCLUSIVE", LIVES, false, 49},
        {"locked, a finished change's journal kept",
         "PRAGMA journal_mode = PERSIST; UPDATE setting SET item = item; BEGIN EXCLUSIVE", LIVES, true, 49},
        {"change to come", "BEGIN IMMEDIATE; UPDATE setting SET value = 5", LIVES, false, 49},
        {"change half in the file", half_a_change, DIES, true, 49},
        {"change half in the file, then a writer", half_a_change, DIES_UNSEEN, true, 49},
        {"change in a log", "PRAGMA journal_mode = WAL; UPDATE setting SET value = 5", DIES, true, 5},
        {"log, read-only folder", "PRAGMA journal_mode = WAL", CLOSES, false, 49},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::filesystem::remove_all(folder());
        ASSERT_EQ(database_.write("panel_language", 49, fault_), 0) << fault_;
        const pid_t other = start_process([&] {
            sqlite3* const opened = execute(row.sql);
            return row.other_program == CLOSES ? sqlite3_close(opened) == 0
                                               : row.other_program != LIVES || ::raise(SIGSTOP) == 0;
        });
        int status = 0;
        EXPECT_EQ(::waitpid(other, &status, WUNTRACED), other); // until it has ended or stopped
        EXPECT_EQ(WIFSTOPPED(status), row.other_program == LIVES);
        EXPECT_EQ(run_in_process([&] {
                      return row.other_program == DIES_UNSEEN ||
                             ((row.reader_may_write || lose_rights()) && panel_language() == row.expected);
                  }),
                  0);
        if (row.other_program == LIVES) {
            ::kill(other, SIGKILL);
            wait_for(other);
        }
        EXPECT_EQ(database_.write("destination", 7, fault_), 0) << fault_;
        EXPECT_EQ(panel_language(), row.expected) << "after the next change";
        EXPECT_EQ(read_setting<std::uint8_t>(DESTINATION), 7);
    }
}

TEST_F(test_settings_store, a_change_keeps_the_files_link_and_mode) {
    ASSERT_EQ(database_.write("panel_language", 49, fault_), 0) << fault_;
    std::filesystem::rename(file(), beside("elsewhere.db"));
    std::filesystem::create_symlink("../elsewhere.db", file());
    ASSERT_EQ(::chmod(beside("elsewhere.db").c_str(), 0640), 0);
    EXPECT_EQ(database_.write("panel_language", 5, fault_), 0) << fault_;
    EXPECT_EQ(panel_language(), 5);
    EXPECT_TRUE(std::filesystem::is_symlink(file()));
    EXPECT_EQ(std::filesystem::status(file()).permissions(), std::filesystem::perms(0640));
}

} // namespace
