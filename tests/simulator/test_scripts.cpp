#include "device_link.h"
#include "device_script.h"
#include "panel_stage.h"
#include "script_runner.h"
#include "service_keeper.h"
#include "simulation.h"
#include "simulator_options.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <string>

namespace velarion {
namespace {

/** Runs scripts on one panel after the other, as the program does; no device service is there. */
class scripts : public testing::Test {
protected:
    scripts() {
        add_panel_commands(runner_, panel_, stage_);
        add_panel_conditions(runner_, panel_, stage_);
        add_device_words(runner_, link_, service_);
    }

    /** @return the exit code; errors() has what was told */
    int run(const std::string& script) {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(script.c_str());
        file.close();
        testing::internal::CaptureStderr();
        const int code = runner_.run(path());
        errors_ = testing::internal::GetCapturedStderr();
        return code;
    }
    QString path() const { return folder_.filePath(QStringLiteral("a.panel")); }
    const std::string& errors() const { return errors_; }

    QTemporaryDir folder_;
    device_link link_;
    simulation panel_{&link_};
    panel_stage stage_{panel_, QString()};
    service_keeper service_{link_};
    script_runner runner_{panel_};
    std::string errors_;
};

/** What each line says on the home screen in English, "" when it holds. */
struct line_case {
    const char* line;
    const char* told;
};

constexpr line_case LINES[] = {
    {"", ""},
    {"frobnicate", "unknown command \"frobnicate\"; known are wait, "},
    {"tap", "usage: tap NAME"},
    {"tap no_such", "there is no \"no_such\" to touch; there are "},
    {"tap copy", ""},
    {"tap \"copy\" # a comment", ""},
    {"tap \"copy", "quotation mark"},
    {"key 99", "no hard key \"99\""},
    {"key Home", "no hard key \"Home\""},
    {"key home", ""},
    {"language xx", "the panel has no language \"xx\""},
    {"language 972", "the panel has no language \"972\""}, // in no slot
    {"language de", ""},
    {"standard 2", "the panel has no language \"2\""},
    {"standard 1", ""},
    {"setting no_such_setting 1", "no_such_setting"},
    {"setting option_language_1 many", "\"many\" is no number"},
    {"view nowhere", "no screen \"nowhere\"; see --list-screens"},
    {"view status_jam", ""},
    {"jam roof", "paper does not jam in \"roof\""},
    {"jam finisher", ""},
    {"jam clear", ""},
    {"wait", "usage: wait STEPS | CONDITION..."},
    {"wait -1", "usage: wait STEPS"},
    {"wait nothing", "unknown condition \"nothing\"; known are screen, "},
    {"wait no jam", ""},
    {"expect no", "usage: expect [no] CONDITION..."},
    {"expect no nothing", "condition"},
    {"expect screen home", ""},
    {"expect screen copy", "screen home is open, not copy"},
    {"expect no screen copy", ""},
    {"expect no screen home", "\"screen home\" is so"},
    {"expect text Copy", ""},
    {"expect text copy", "text copy is not shown; shown are "},
    {"expect picture 4", ""},
    {"expect picture 7654", "picture 7654 is not shown; shown are "},
    {"expect language 1", ""},
    {"expect language 49", "language 1 is in force, not 49"},
    {"expect direction ltr", ""},
    {"expect direction rtl", "the direction is ltr"},
    {"expect fault overflow", "there is no such fault"},
    {"expect no fault overflow,overlap,glyphs,pictures,fallbacks", ""},
    {"expect no fault overflow,beauty", "there is no fault \"beauty\""},
    {"expect jam", "there is no paper jam"},
    {"expect no jam", ""},
    {"expect job", "no job is at work"},
    {"expect no job", ""},
    {"wait service absent", ""},
    {"expect service absent", ""},
    {"expect service running", "not running"},
    {"expect service asleep", "usage: service absent | "},
    {"expect led start on", "tells nothing of the LED"},
    {"expect no led nose on", "LEDs are "},
    {"expect led start purple", "an LED is "},
    {"service dance", "usage: service start, stop, "},
    {"service delay soon", "usage: delay MS"},
    {"press nose", "no hard key \"nose\""},
    {"screenshot /no/such/folder/a.png", "/no/such/folder/a.png cannot be written: "},
    {"screenshot a.txt", "is no kind of picture"},
};

TEST_F(scripts, each_line_does_its_work_or_tells_file_and_line_and_why) {
    for (const line_case& row : LINES) {
        SCOPED_TRACE(row.line);
        const int code = run(std::string("language en\nview home\n# next\n") + row.line + "\nfrob\n");
        const bool is_good = row.told[0] == '\0';
        const std::string place = path().toStdString() + (is_good ? ":5: " : ":4: ");
        EXPECT_EQ(code, SIMULATOR_FOUND_FAULTS);
        EXPECT_EQ(errors().compare(0, place.size(), place), 0) << errors();
        EXPECT_NE(errors().find(row.told), std::string::npos) << errors();
        EXPECT_EQ(errors().find('\n'), errors().size() - 1);
    }
    EXPECT_EQ(run("language en"), SIMULATOR_GOOD); // without a line's end
    EXPECT_EQ(errors(), "");
}

/** What a screen is after a script, in conditions of its own. */
TEST_F(scripts, what_cannot_be_touched_is_told_apart) {
    struct {
        const char* script;
        const char* told;
    } const rows[] = {
        {"view copy_no_original\ntap start", "\"start\" is disabled"},
        {"view copy\ntap color\ntap start", "something lies above \"start\""},
        {"view settings_language\ntap 7", ""}, // scrolled to
        {"view copy\nwait 3\nexpect job", "no job is at work"},
        {"view copy_running\nexpect job\nexpect no job", "\"job\" is so"},
        {"view status_jam\nexpect jam\nexpect no jam", "\"jam\" is so"},
        {"view copy_running\nview copy\nexpect no job", ""}, // as if just switched on
        {"view copy\ntap stop", "\"stop\" is disabled"},
        {"view copy_running\nexpect no text 127", ""}, // no more ready
        {"language none\nview settings_language\ntap none",
         "there is no \"none\""}, // the machine's list first
        {"view copy_running\ntap start", "\"start\" is disabled"},
        {"view copy_running\ntap nav_home\ntap scan\ntap destination\ntap destination_1\ntap start",
         ""}, // waits
        {"view copy\njam fuser\ntap start", "\"start\" is disabled"},
        {"view copy\nkey 0\ntap copies_less", "\"copies_less\" is disabled"},
        {"view copy\nkey 9\nkey 9\nkey 9\ntap copies_more", "\"copies_more\" is disabled"},
        {"view scan\ntap start", "\"start\" is disabled"},
        {"view fax\ntap start", "\"start\" is disabled"},
        {"view documents\ntap print", "\"print\" is disabled"},
        {"view documents\ntap document_1\ntap document_1\ntap delete", "\"delete\" is disabled"},
        {"view documents\ntap select_all\ntap delete\ntap dialog_delete\ntap select_all",
         "\"select_all\" is disabled"},
        {"view guidance\ntap previous", "\"previous\" is disabled"},
        {"view guidance\njam clear\ntap movie", "there is no \"movie\" to touch; there are "},
        {"view status_running\ntap resume", "there is no \"resume\""},
        {"view status_stopped\ntap resume\nexpect no text 141\nwait 100", ""},
        {"view status_jam\ntap resume", "there is no \"resume\""},
        {"view status\ntap stop", "there is no \"stop\""},
        {"view status\ntap fault", "there is no \"fault\""},
        {"view settings_sounds\ntap mute_all\ntap mute_all", "\"mute_all\" is disabled"},
        {"view settings_sounds\ntap mute_all\ntap job_end_softer", "\"job_end_softer\" is disabled"},
        {"view settings_sounds\ntap job_end_softer\nexpect no text 15667\ntap job_end_louder\nexpect text "
         "15667\n"
         "tap job_end_louder\nexpect text 15686\ntap job_end_louder",
         "\"job_end_louder\" is disabled"},
        {"view settings_sounds\ntap mute_all\nexpect no picture 4144\ntap job_end_louder\nexpect picture "
         "4144",
         ""},
        {"view keyboard\ntap ok", "\"ok\" is disabled"},
        {"view keyboard\ntap key_enter\nexpect screen keyboard", ""},
        {"view keyboard\ntap key_q\ntap key_enter\nexpect screen home", ""},
        {"view home\nkey energy_saver\ntap copy", "something lies above \"copy\""},
        {"view home\nkey energy_saver\nkey home\ntap copy\nexpect screen copy", ""},
        {"view copy_running\nkey energy_saver\ntap stop", ""}, // a job keeps it awake
        {"view home\nkey energy_saver\njam fuser\ntap copy", ""},
        {"view copy\nkey stop\ntap nav_home", ""}, // no job, nothing to ask
        {"view copy_running\nkey stop\ntap nav_home", "something lies above \"nav_home\""},
        {"view copy\ntap copy", "there is no \"copy\" to touch; there are back, "},
        {"view home\ntap back", "there is no \"back\""},
        {"view trays\nexpect text 9%\nexpect text !", ""}, // toner is low
        {"view status_running\nexpect text 1\nexpect picture 533\ntap nav_home\nexpect text 1",
         ""}, // its badge
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(std::string("language en\n") + row.script), row.told[0] == '\0' ? 0 : 1) << row.script;
        EXPECT_NE(errors().find(row.told), std::string::npos) << row.script << ": " << errors();
        EXPECT_EQ(row.told[0] == '\0', errors().empty()) << row.script << ": " << errors();
    }
}

TEST_F(scripts, an_address_is_four_numbers_and_a_name_has_its_limit) {
    struct {
        const char* typed;
        bool is_good;
    } const rows[] = {{"0.0.0.0", true},  {"255.255.255.255", true}, {"256.1.1.1", false},
                      {"1.2.3", false},   {"1.2.3.4.5", false},      {"1..2.3", false},
                      {"1.2.3.", false},  {"0001.2.3.4", false},     {"1.2.3.x", false},
                      {"1.2.3.4 ", false}};
    for (const auto& row : rows) {
        std::string script = "language en\nview settings_network\ntap gateway\nexpect text 10859\n";
        for (int i = 0; i < 9; ++i) {
            script += "tap key_backspace\n"; // 192.0.2.1
        }
        script += std::string("type \"") + row.typed + "\"\ntap ok\nexpect screen ";
        script += row.is_good ? std::string("settings_network\nexpect text ") + row.typed
                              : "keyboard\nexpect picture 177";
        EXPECT_EQ(run(script), 0) << row.typed << ": " << errors();
    }
    std::string digits = "view fax\n";
    for (int i = 0; i < 26; ++i) {
        digits += "key 7\n";
    }
    EXPECT_EQ(run(digits + "expect text " + std::string(24, '7')), 0) << errors();
    const std::string name(63 - 13, 'n'); // panel-2-south
    EXPECT_EQ(run("view settings_network\ntap host_name\ntype " + name +
                  "\nexpect text \"Characters remaining: 0\"\ntype x\n"
                  "expect text \"No more characters can be entered (maximum: 63).\"\nexpect picture 177\n"
                  "tap key_backspace\nexpect no picture 177\ntap ok\nexpect text panel-2-south" +
                  name.substr(1)),
              0)
        << errors();
    EXPECT_EQ(run("view settings_network\nexpect text 47\ntap host_name\ntype x\ntap ok\ntap dhcp\ntap dhcp\n"
                  "tap address\nexpect text 192.0.2.27\ntype 12345\nexpect text 192.0.2.2712345\n"
                  "type 6\nexpect text 192.0.2.2712345\ntap key_5\ntap cancel\nexpect text 192.0.2.27"),
              0)
        << errors();
}

} // namespace
} // namespace velarion
