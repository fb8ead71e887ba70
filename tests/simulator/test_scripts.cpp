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
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(std::string("language en\n") + row.script), row.told[0] == '\0' ? 0 : 1) << row.script;
        EXPECT_NE(errors().find(row.told), std::string::npos) << row.script << ": " << errors();
        EXPECT_EQ(row.told[0] == '\0', errors().empty()) << row.script << ": " << errors();
    }
}

} // namespace
} // namespace velarion
