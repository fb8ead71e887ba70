#include "device.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using panelctl = device;

const char* const COMMANDS[] = {"message", "languages", "packs", "settings", "units"};

} // namespace

TEST_F(panelctl, help_names_every_command_however_it_is_started) {
    const std::string help = output_of({"--help"});
    for (const std::string command : COMMANDS) {
        EXPECT_NE(help.find("\n  " + command + " "), std::string::npos) << command;
        const std::string usage = "Usage: panelctl " + command + " [options]";
        EXPECT_EQ(output_of({command, "--help"}).rfind(usage, 0), 0U) << command;
        const process_result by_name = run_shell({"--scratch", "panelctl", command, "-h"});
        EXPECT_EQ(by_name.output.rfind(usage, 0), 0U) << by_name.output;
    }
}

TEST_F(panelctl, wrong_usage_is_one_line_on_standard_error) {
    const std::vector<std::string> rows[] = {
        {},
        {"texts"},
        {"message"},
        {"message", "1", "--language", "German"},
        {"message", "1", "--option", "0x56"},
        {"message", "1", "--every"},
        {"languages", "all"},
        {"languages", "--prefer", "49,"},
        {"languages", "--prefer", "1,2,3"},
        {"packs", "86"},
        {"settings", "show"},
        {"settings", "list", "panel_language"},
        {"settings", "get"},
        {"settings", "set", "destination", "1.5"},
        {"settings", "set-attribute", "1", "4294967298", "text"},
        {"units"},
        {"units", "ten"},
        {"units", "--round", "up", "10dp"},
        {"units", "--mm", "2", "10"},
        {"units", "--mm", "0", "nan"},
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
    for (const std::string command : {"message 1 --all", "languages --json", "--help"}) {
        const process_result result =
            run_shell({"--scratch", "sh", "-c", "panelctl " + command + " >/dev/full"});
        EXPECT_EQ(result.exit_code, 3) << command;
        EXPECT_EQ(result.errors, "panelctl: standard output cannot be written\n");
    }
}

TEST_F(panelctl, languages_follow_the_settings_and_the_preference) {
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
        EXPECT_EQ(state["standard"].toArray().size(), 8);
        EXPECT_EQ(state["option"][1]["right_to_left"].toBool(), true);
        const std::string list = output_of({"languages", "--prefer", row.prefer});
        EXPECT_NE(list.find("\n*  " + std::to_string(row.in_force) + " "), std::string::npos) << list;
        EXPECT_NE(list.find(std::string("the application writes ") +
                            (row.is_right_to_left ? "right to left" : "left to right")),
                  std::string::npos)
            << list;
    }
}

TEST_F(panelctl, packs_tell_what_is_in_the_slots) {
    set("option_language_1", 972);
    set("option_language_2", 86);
    set("option_language_5", 972);
    const QJsonDocument slots_of_device = json_of({"packs"});
    EXPECT_EQ(slots_of_device.array().size(), 5);
    EXPECT_TRUE(slots_of_device[0]["overridden"].toBool());
    EXPECT_FALSE(slots_of_device[4]["overridden"].toBool(true));
    EXPECT_EQ(slots_of_device[3]["language"].toInt(-1), 0);
    EXPECT_TRUE(slots_of_device[4]["right_to_left"].toBool());
    EXPECT_FALSE(slots_of_device[1]["right_to_left"].toBool(true));
    EXPECT_EQ(slots_of_device[1]["path"].toString(), "/mnt/optlang/86/");
    EXPECT_TRUE(slots_of_device[1]["loads"].toBool());
    EXPECT_GT(slots_of_device[1]["rows"].toInt(), 0);
    EXPECT_NE(slots_of_device[1]["font_family"].toString(), "");
    EXPECT_NE(output_of({"packs"}).find("a later slot holds it"), std::string::npos);
    set("option_language_4", 852);
    const process_result missing = run({"packs"});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_NE(missing.output.find("\n4     852       does not load"), std::string::npos) << missing.output;
    EXPECT_FALSE(json_of({"packs"})[3]["loads"].toBool(true));
}

TEST_F(panelctl, units_are_those_of_the_panel) {
    EXPECT_EQ(output_of({"units", "10dp", "10dp+4", "100-8dp", "7", "--", "-10dp"}),
              "12px\n17px\n90px\n7px\n0px\n");
    EXPECT_EQ(output_of({"units", "--round", "floor", "10dp+4", "100-8dp", "5dp+?dp", "5dp+?"}), "16px\n90px\n6px\n0px\n");
    EXPECT_EQ(output_of({"units", "--to-dp", "9", "10"}), "7dp\n7dp\n");
    EXPECT_EQ(output_of({"units", "--mm", "0", "25.4"}) + output_of({"units", "--mm", "1", "25.4"}),
              "132px\n142px\n");
    EXPECT_EQ(json_of({"units", "10dp"})[0]["result"].toString(), "12px");
}
