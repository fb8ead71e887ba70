#include "device.h"

#include <QJsonArray>

namespace {

using panelctl = device;
using sample_packs = sample_catalogue_device;

} // namespace

TEST_F(panelctl, wrong_usage_is_one_line_on_standard_error) {
    const std::vector<std::string> rows[] = {
        {},
        {"texts"},
        {"message", "1", "--language", "Germanic"},
        {"message", "1", "--every"},
        {"font", "--language", "xx"},
        {"keyboard", "--language", "xx"},
        {"languages", "--prefer", "1,2,3"},
        {"message", "1", "--option", "xx"},
        {"settings", "set", "destination", "1.5"},
        {"settings", "set-attribute", "1", "4294967298", "text"},
        {"units", "--mm", "0", "nan"},
        {"xml", "texts", "file"},
        {"xml", "messages"},
        {"image", "2", "--size", "0x5", "-o", "file"},
    };
    for (const std::vector<std::string>& words : rows) {
        SCOPED_TRACE(testing::PrintToString(words));
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.rfind("panelctl: ", 0), 0U) << result.errors;
        EXPECT_NE(result.errors.find("; see panelctl "), std::string::npos) << result.errors;
        EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1) << result.errors;
    }
}

TEST_F(panelctl, output_that_cannot_be_written_is_no_success) {
    for (const std::string& command :
         {"message " + first_message() + " --all", std::string("languages --json")}) {
        const process_result result =
            run_shell({"--scratch", "sh", "-c", "panelctl " + command + " >/dev/full"});
        EXPECT_EQ(result.exit_code, 3) << command;
        EXPECT_EQ(result.errors, "panelctl: standard output cannot be written\n");
    }
}

TEST_F(sample_packs, languages_follow_the_settings_and_the_preference) {
    set("option_language_1", 86);
    set("option_language_3", 972);
    const struct {
        const char* name;
        int language;
        int option_language;
        const char* prefer;
        int in_force;
        QJsonArray selection;
        bool is_right_to_left;
    } rows[] = {
        {"standard", 49, 0, "0", 49, {49, 0}, false},
        {"option", 999, 972, "0", 972, {999, 972}, true},
        {"option that is not installed", 999, 852, "0", 1, {1, 852}, false},
        {"preferred standard over option", 999, 972, "33", 33, {33, 0}, false},
        {"preferred option over standard", 49, 0, "999,972", 972, {999, 972}, true},
        {"preferred by names", 49, 0, "999,he", 972, {999, 972}, true},
        {"preferred option by its name alone", 49, 0, "Hebrew", 972, {999, 972}, true},
        {"preferred standard by its name", 999, 972, "fr", 33, {33, 0}, false},
        {"preferred option that is not installed", 999, 972, "999,852", 1, {1, 972}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        set("panel_language", row.language);
        set("panel_option_language", row.option_language);
        const QJsonDocument state = json_of({"languages", "--prefer", row.prefer});
        EXPECT_EQ(state["in_force"].toInt(), row.in_force);
        EXPECT_EQ(state["selection"].toArray(), row.selection);
        EXPECT_EQ(state["right_to_left"].toBool(), row.is_right_to_left);
        EXPECT_EQ(state["option"][1]["name"].toString(), "\u05E2\u05D1\u05E8\u05D9\u05EA");
        EXPECT_EQ(state["option"][1]["font_family"].toString(), "DejaVu Sans");
        const std::string list = output_of({"languages", "--prefer", row.prefer});
        EXPECT_NE(list.find("\n*  " + std::to_string(row.in_force) + " "), std::string::npos) << list;
    }
}

TEST_F(sample_packs, packs_tell_what_is_in_the_slots) {
    set("option_language_1", 972);
    set("option_language_2", 86);
    set("option_language_5", 972);
    const QJsonDocument slots_of_device = json_of({"packs"});
    EXPECT_TRUE(slots_of_device[0]["overridden"].toBool());
    EXPECT_FALSE(slots_of_device[4]["overridden"].toBool(true));
    EXPECT_TRUE(slots_of_device[4]["right_to_left"].toBool());
    EXPECT_FALSE(slots_of_device[1]["right_to_left"].toBool(true));
    EXPECT_EQ(slots_of_device[1]["path"].toString(), "/mnt/optlang/86/");
    EXPECT_GT(slots_of_device[1]["rows"].toInt(), 0);
    set("option_language_4", 852);
    const std::string library = "/panel/liboptlang/libOptLang.so";
    const std::string whole = tree().read("mnt/optlang/86" + library);
    for (const std::size_t size : {std::size_t(0), whole.size() / 2}) { // without and with a torn library
        tree().write("mnt/optlang/852" + library, whole.substr(0, size));
        const process_result missing = run({"packs"});
        EXPECT_EQ(missing.exit_code, 1);
        EXPECT_NE(missing.output.find("\n4     852       does not load"), std::string::npos)
            << missing.output;
    }
}

TEST_F(panelctl, settings_are_kept_until_they_are_reset) {
    set("option_language_1", 65535);
    EXPECT_EQ(output_of({"settings", "set", "0x04050300:0x85024260", "0x5A"}), "");
    EXPECT_EQ(output_of({"settings", "get", "option_language_1"}), "90\n");
    EXPECT_EQ(output_of({"settings", "set", "option_language_1", "010"}), "");
    const QJsonDocument listed = json_of({"settings"});
    EXPECT_EQ(listed["settings"][3]["value"].toInt(), 10);
    EXPECT_TRUE(listed["settings"][3]["stored"].toBool());
    EXPECT_FALSE(listed["settings"][4]["stored"].toBool(true));
    EXPECT_EQ(output_of({"settings", "set", "option_language_2", "zh_tw"}), "");
    EXPECT_EQ(output_of({"settings", "get", "option_language_2"}), "886\n");
    EXPECT_EQ(output_of({"settings", "set", "panel_language", "Hebrew"}), "");
    EXPECT_EQ(output_of({"settings", "get", "panel_language"}), "999\n");
    EXPECT_EQ(output_of({"settings", "get", "panel_option_language"}), "972\n");
    EXPECT_EQ(json_of({"settings", "set", "panel_language", "ru"})["value"].toInt(), 7);
    EXPECT_EQ(run({"settings", "set", "destination", "de"}).exit_code, 2);
    EXPECT_EQ(json_of({"settings", "reset", "option_language_1"})["value"].toInt(-1), 0);
    for (const char* value : {"65536", "4294967297", "9223372036854775808"}) {
        EXPECT_EQ(run({"settings", "set", "option_language_1", value}).exit_code, 2);
    }
    EXPECT_EQ(run({"settings", "get", "no_such_setting"}).exit_code, 1);
}

TEST_F(panelctl, attributes_of_languages_are_utf8_in_every_locale) {
    run_shell({"--tree", tree().path(""), PANELCTL, "settings", "set-attribute", "7", "0x10", "\xD0\x94 \"'"},
              {{"LC_ALL", "C"}});
    EXPECT_EQ(output_of({"settings", "get-attribute", "ru", "16"}), "\xD0\x94 \"'\n");
    EXPECT_EQ(run({"settings", "set-attribute", "7", "16", std::string(108, 'x')}).exit_code, 2);
    EXPECT_EQ(output_of({"settings", "remove-attribute", "7", "16"}), "");
    for (const std::string action : {"get-attribute", "remove-attribute"}) {
        EXPECT_EQ(run({"settings", action, "7", "16"}).exit_code, 1) << action;
    }
}

TEST_F(panelctl, a_store_that_fails_is_reported_and_texts_come_all_the_same) {
    const std::string english = output_of({"message", first_message()});
    const std::vector<std::string> actions[] = {{"settings", "list"},
                                                {"settings", "get", "panel_language"},
                                                {"settings", "set", "panel_language", "49"},
                                                {"settings", "set-attribute", "1", "1", "text"}};
    scratch_.write("platform", "a file where the folder should be");
    for (const std::vector<std::string>& words : actions) {
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, 3) << words[1];
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.rfind("panelctl: ", 0), 0U) << result.errors;
    }
    const process_result message = run({"message", first_message()});
    EXPECT_EQ(message.exit_code, 0);
    EXPECT_EQ(message.output, english);
    EXPECT_NE(message.errors.find("; using defaults\n"), std::string::npos) << message.errors;
}
