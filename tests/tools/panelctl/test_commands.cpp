#include "device.h"

#include <filesystem>
#include <sstream>

namespace {

using commands = device;
using sample_commands = sample_catalogue_device;

/** Runs panelctl outside a device, of which it then tells as soon as it looks for one. */
process_result run_alone(std::vector<std::string> words) {
    words.insert(words.begin(), PANELCTL);
    return run_process(words);
}

} // namespace

TEST(panelctl_alone, every_command_tells_what_it_takes) {
    const process_result list = run_alone({"-h"});
    EXPECT_EQ(list.output, run_alone({"--help"}).output);
    std::istringstream lines(list.output.substr(list.output.find("\nCommands:\n") + 11));
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line) && !line.empty(); ++count) {
        const std::string command = line.substr(2, line.find(' ', 2) - 2);
        const process_result help = run_alone({command, "--help"});
        EXPECT_EQ(help.exit_code, 0) << command;
        EXPECT_EQ(help.errors, "") << command;
        EXPECT_EQ(help.output.rfind("Usage: panelctl " + command + " [options]", 0), 0U) << help.output;
        EXPECT_NE(help.output.find("--json "), std::string::npos) << help.output;
    }
    EXPECT_EQ(count, 19U) << list.output;
    EXPECT_EQ(run_alone({"--version"}).output.rfind("panelctl ", 0), 0U);
}

TEST(panelctl_alone, wrong_words_are_refused_before_the_device_is_asked) {
    const std::vector<std::string> rows[] = {
        {"attribute"},
        {"attribute", "1", "2"},
        {"attribute", "x"},
        {"data", "list", "a"},
        {"data", "put", "a"},
        {"data", "remove", "a", "b"},
        {"data", "put", "", "/dev/null"},
        {"data", "exists", ""},
        {"font", "en"},
        {"image", "1", "2", "-o", "file"},
        {"image", "1"},
        {"image", "2", "--size", "3x3x3", "-o", "file"},
        {"image", "2", "--size", "3x0", "-o", "file"},
        {"images", "x"},
        {"key", "press"},
        {"key", "push", "3"},
        {"key", "press", "3", "4"},
        {"key", "press", "4294967297"},
        {"key", "press", "--", "-2147483649"},
        {"languages", "x"},
        {"led", "all-on", "1"},
        {"led", "set", "0"},
        {"led", "set", "99999999999", "on"},
        {"led", "timer", "10", "x", "2", "on"},
        {"led", "timer", "10", "10", "2", "green"},
        {"message"},
        {"monitor", "--count", "-1"},
        {"monitor", "--count", "x"},
        {"monitor", "x"},
        {"service", "crash", "1"},
        {"service", "delay"},
        {"service", "delay", "1", "2", "3"},
        {"service", "delay", "1", "x"},
        {"service", "delay", "x"},
        {"service", "status", "x"},
        {"settings", "frob"},
        {"settings", "get"},
        {"settings", "list", "x"},
        {"settings", "set-attribute", "xx", "1", "text"},
        {"sheet", "--filter", "550"},
        {"sheet", "-o", "file", "--size", "15"},
        {"sheet", "-o", "file", "--size", "513"},
        {"sheet", "-o", "file", "x"},
        {"strings", "file"},
        {"units"},
        {"units", "--mm", "0", "1e"},
        {"units", "--mm", "2", "1"},
        {"units", "--round", "up", "1"},
        {"units", "--to-dp", "1.5"},
        {"units", "3.9"},
    };
    for (const std::vector<std::string>& words : rows) {
        SCOPED_TRACE(testing::PrintToString(words));
        const process_result result = run_alone(words);
        EXPECT_EQ(result.exit_code, 2);
        EXPECT_EQ(result.output, "");
        const std::string end = "; see panelctl " + words[0] + " --help\n";
        EXPECT_EQ(result.errors.find(end) + end.size(), result.errors.size()) << result.errors;
        EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1) << result.errors;
    }
    EXPECT_EQ(run_alone({"texts"}).errors, "panelctl: unknown command \"texts\"; see panelctl --help\n");
    EXPECT_EQ(run_alone({"texts"}).exit_code + run_alone({}).exit_code, 4);
}

TEST(panelctl_alone, sizes_are_converted_as_the_panel_does) {
    const struct {
        std::vector<std::string> words;
        std::string output;
    } rows[] = {
        {{"10dp", "10dp+4", "100-8dp", "7", "2dp"}, "12px\n17px\n90px\n7px\n2px\n"},
        {{"--round", "floor", "2dp+0", "3dp+0", "5dp+6dp"}, "2px\n3px\n13px\n"},
        {{"--round", "ceil", "1dp+0", "2dp+0", "5dp+6dp"}, "1px\n3px\n14px\n"},
        {{"--to-dp", "12", "--", "-5"}, "9dp\n-3dp\n"},
        {{"--mm", "0", "10"}, "52px\n"},
        {{"--mm", "1", "10", "2.5"}, "56px\n14px\n"},
        {{"--json", "10dp"},
         "[\n    {\n        \"result\": \"12px\",\n        \"size\": \"10dp\"\n    }\n]\n"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words = row.words;
        words.insert(words.begin(), "units");
        EXPECT_EQ(run_alone(words).output, row.output) << testing::PrintToString(row.words);
    }
}

TEST_F(commands, the_store_tells_why_it_does_not_take_or_give_a_file) {
    scratch_.write("platform/a_file", "");
    scratch_.write("source", "text");
    EXPECT_EQ(output_of({"data", "put", "folder/file", scratch_.path("source")}), "");
    const struct {
        std::vector<std::string> words;
        const char* reason;
    } rows[] = {
        {{"put", "folder", scratch_.path("source")},
         ": the name belongs to a folder, a link or a device (result 0x"},
        {{"put", "folder/file/file", scratch_.path("source")},
         ": the name is malformed, too long, or leads through"},
        {{"get", "../outside", scratch_.path("copy")}, " (platform code 3))\n"},
        {{"exists", "../outside"}, "data file \"../outside\": the name is malformed"},
        {{"remove", "folder"}, "data file \"folder\": the name belongs to a folder"},
        {{"put", "new", scratch_.path("")}, " cannot be read: "},
        {{"put", "new", "/proc/self/mem"}, "/proc/self/mem cannot be read: Input/output error\n"},
        {{"get", "folder/file", scratch_.path("no/copy")},
         "/no/copy cannot be written: No such file or directory\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        std::vector<std::string> words = row.words;
        words.insert(words.begin(), "data");
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, 3);
        EXPECT_NE(result.errors.find(row.reason), std::string::npos) << result.errors;
    }
    const process_result missing = run({"data", "remove", "missing"});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_EQ(missing.errors, "panelctl: there is no data file \"missing\" (platform code 2)\n");
    EXPECT_TRUE(json_of({"data", "exists", "folder/file"})["exists"].toBool());
}

TEST_F(commands, a_pipe_may_give_16_mebibytes_and_a_file_more) {
    const char script[] = "head -c 16777216 /dev/zero | panelctl data put most /dev/stdin && "
                          "panelctl data get most /tmp/most && wc -c </tmp/most\n"
                          "head -c 16777217 /dev/zero >/tmp/more\n"
                          "panelctl data put more /tmp/more && echo taken\n"
                          "panelctl data put none /dev/stdin </dev/null && "
                          "panelctl data get none /tmp/none && wc -c </tmp/none\n"
                          "cat /tmp/more | panelctl data put more /dev/stdin";
    const process_result result = run_shell({"--scratch", "sh", "-c", script});
    EXPECT_EQ(result.exit_code, 3);
    EXPECT_EQ(result.output, "16777216\ntaken\n0\n");
    EXPECT_NE(result.errors.find("gives more than 16 MiB; put it into a file first\n"), std::string::npos)
        << result.errors;
}

TEST_F(commands, settings_are_listed_with_their_places) {
    EXPECT_EQ(output_of({"settings", "set-attribute", "de", "3", "YES"}), "");
    set("destination", 3);
    const std::string list = output_of({"settings"});
    for (const char* line : {"panel_language              1    default  16 bits  0x04050300:0x8500ab20\n",
                             "destination                 3    stored   8 bits   0x04050300:0x85005350\n",
                             "attribute 3 of language 49  YES\n"}) {
        EXPECT_NE(list.find(line), std::string::npos) << line << list;
    }
    const QJsonDocument listed = json_of({"settings"});
    EXPECT_EQ(listed["settings"][2]["width"].toInt(), 8);
    EXPECT_EQ(listed["settings"][2]["item"].toString(), "0x85005350");
    EXPECT_EQ(listed["attributes"][0]["language"].toInt(), 49);
    EXPECT_EQ(listed["file"].toString().toStdString(), platform_folder() + "/settings.db");
    EXPECT_EQ(json_of({"settings", "set-attribute", "49", "3", "NO"})["text"].toString(), "NO");
    set("panel_option_language", 972);
    EXPECT_EQ(output_of({"settings", "set", "destination", "010"}), "");
    EXPECT_EQ(output_of({"settings", "get", "destination"}), "10\n");
    EXPECT_EQ(output_of({"settings", "set", "panel_language", "ru"}), "");
    EXPECT_EQ(output_of({"settings", "get", "panel_option_language"}), "972\n") << "of no standard language";
    EXPECT_EQ(run({"settings", "reset", "no_such_setting"}).exit_code, 1);
}

TEST_F(sample_commands, what_is_printed_for_people) {
    set("option_language_1", 972);
    set("option_language_2", 86);
    set("option_language_4", 972);
    set("destination", 3);
    const std::string picture = scratch_.path("picture.png");
    const struct {
        std::vector<std::string> words;
        int exit_code;
        const char* part;
    } rows[] = {
        {{"packs"}, 0, "\n1     972       a later slot holds it  "},
        {{"packs"}, 0, "\n3     -         empty\n4     972       loads                  "},
        {{"packs"}, 0, "  right to left  DejaVu Sans                           /mnt/optlang/972/\n"},
        {{"languages"}, 0, "\n   86   zh-CN  简体中文  left to right  Droid Sans Fallback"},
        {{"languages", "--prefer", "999,972"}, 0, "\n*  972  he     עברית     right to left  DejaVu Sans\n"},
        {{"languages", "--prefer", "999,972"},
         0,
         "\nIn force: 972, right to left (preferred selection 999, 972); the application writes right to "
         "left.\n"},
        {{"languages"},
         0,
         "\nIn force: 1, left to right (standard selection 1, 0); the application writes left"},
        {{"languages", "--prefer", "972"}, 0, "(preferred selection 972, "},
        {{"languages", "--prefer", "de,he"}, 0, "\nIn force: 49, left to right (preferred selection 49, "},
        {{"font", "--language", "ja"}, 0, "HeiseiKakuGothW5_JIS0213C, 12 points (shown as "},
        {{"keyboard", "--language", "he"}, 0, "language                   972 עברית\n"},
        {{"keyboard", "--language", "he"}, 0, "\nconversion by destination  enabled\n"},
        {{"keyboard", "--language", "he"}, 0, "\n  folder_name              \\/:*?\"<>|\\t\\n\n"},
        {{"keyboard", "--language", "he"},
         0,
         "/hebrew.kbd  עברית, right to left, 0 compositions\n  [base]\n    ; 1 2"},
        {{"keyboard", "--language", "he"}, 0, "\n    {symbols} {next} {space} {left} {right} {enter}\n"},
        {{"keyboard", "--language", "ja"}, 0, ", left to right, 2"}, // compositions
        {{"keyboard", "--language", "he", "--json"}, 0, "\"convert\": true,"},
        {{"keyboard", "--language", "he", "--json"}, 0, "\"right_to_left\": true"},
        {{"keyboard", "--language", "he", "--json"}, 0, "\"name\": \"shift\","},
        {{"keyboard", "--language", "he", "--json"},
         0,
         "information\": \"/mnt/optlang/972/panel/keymap/proh_info.txt\""},
        {{"keyboard", "--language", "ja", "--json"}, 0, "\n    \"name\": \"日本語\","},
        {{"attribute", "1", "--json"}, 1, "\"found\": false,"},
        {{"images", "--filter", "76"}, 0, "76  ICON_CMN_OTHER_QUICK_SETUP_HEADER  (no picture)\n"},
        {{"image", "550", "-o", picture, "--json"}, 0, "\"meaning\": \"delivered\","},
        {{"image", "none.svg", "-o", picture, "--json"}, 1, "\"meaning\": \"no SVG picture can be drawn\","},
        {{"image", "99999", "-o", picture, "--json"}, 1, "\"meaning\": \"there is no such image\","},
        {{"languages", "--prefer", "he", "--json"}, 0, "\"preferred\": true,\n    \"right_to_left\": true,"},
        {{"languages", "--prefer", "he", "--json"}, 0, "\"index\": 7,\n            \"name\": \"Russian\""},
        {{"languages", "--json"}, 0, "\"right_to_left\": true,\n            \"tag\": \"he\""},
        {{"keyboard", "--language", "44"}, 1, "conversion by destination"},
        {{"message", "copy", "--language", "de"}, 0, "1  MSG_NORMAL_TITLE_COPY  row 2\n   49  de  Kopie\n"},
        {{"messages", "--filter", "127"},
         0,
         "127  MSG_NORMAL_STATUS_READY_TO_COPY  128  en  Ready to copy.\n"},
        {{"messages", "--filter", "no such words", "--json"}, 1, "[\n]\n"},
        {{"image", "550", "-o", picture}, 0, "0 delivered  ico_status_printing.gif  64x64  "},
        {{"images", "--filter", "550"},
         0,
         "550  ICON_NORMAL_OTHER_JOB_STATUS_PRINTING  ico_status_printing.gif\n"},
        {{"images", "--filter", "status_PRINTING.G"}, 0, "550  ICON_NORMAL_"},
        {{"images", "--filter", "job_status_printing"}, 0, "550  ICON_NORMAL_"},
        {{"images", "--filter", "550", "--json"}, 0, "\"name\": \"ICON_NORMAL_OTHER_JOB_STATUS_PRINTING\""},
    };
    std::vector<std::string> last;
    process_result result{};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words) + row.part);
        if (row.words != last) {
            std::vector<std::string> words = {"--tree", tree().path(""), PANELCTL};
            words.insert(words.end(), row.words.begin(), row.words.end());
            result = run_shell(words, {{"LC_ALL", "C.UTF-8"}});
            last = row.words;
        }
        EXPECT_EQ(result.exit_code, row.exit_code) << result.errors;
        EXPECT_NE(result.output.find(row.part), std::string::npos) << result.output;
    }
    EXPECT_EQ(output_of({"images", "--filter", "550"}),
              output_of({"images", "--filter", "b_status_printing"}))
        << "a part of a number is none";
}

TEST_F(sample_commands, what_fails_of_a_pack_or_picture) {
    const std::string picture = scratch_.path("placeholder.png");
    const process_result placeholder =
        run_shell({"--tree", tree().path(""), PANELCTL, "image", "none.svg", "-o", picture},
                  {{"TEST_ICON_MESSAGE", "1"}});
    EXPECT_EQ(placeholder.exit_code, 1);
    EXPECT_EQ(scratch_.read("placeholder.png").substr(1, 3), "PNG") << "what the test aid draws";
    set("option_language_4", 852);
    const std::string information = "mnt/optlang/852/panel/keymap/lang_info.txt";
    tree().write("mnt/optlang/852/panel/note", "a pack without keyboards");
    EXPECT_NE(output_of({"languages"}).find("\n   852       option language  left to right"),
              std::string::npos);
    tree().write(information, "x");
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"languages"}, {"keyboard", "--language", "852"}}) {
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, 3) << words[0];
        EXPECT_EQ(result.errors, "panelctl: /" + information +
                                     ":1: is no \"NAME = VALUE\" of a section \"[LANGUAGE ID]\"\n");
    }
    std::filesystem::remove_all(tree().path("mnt/optlang/852"));
}
