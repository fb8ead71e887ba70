#include "device.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

class settings : public device {
protected:
    /** Expects a failure with a reason and nothing on standard output. */
    void expect_failure(int exit_code, const std::vector<std::string>& words) const {
        const process_result result = run(words);
        EXPECT_EQ(result.exit_code, exit_code) << testing::PrintToString(words);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.rfind("panelctl: ", 0), 0U) << result.errors;
    }
};

} // namespace

TEST_F(settings, values_are_kept_until_they_are_reset) {
    EXPECT_EQ(output_of({"settings", "get", "panel_language"}), "1\n");
    set("panel_language", 65535);
    EXPECT_EQ(output_of({"settings", "get", "0x04050300:0x8500AB20"}), "65535\n");
    EXPECT_EQ(output_of({"settings", "set", "0x04050300:0x85024260", "0x5A"}), "");
    EXPECT_EQ(output_of({"settings", "get", "option_language_1"}), "90\n");
    EXPECT_EQ(output_of({"settings", "set", "option_language_1", "010"}), "");
    const QJsonArray listed = json_of({"settings"})["settings"].toArray();
    ASSERT_EQ(listed.size(), 8);
    EXPECT_EQ(listed[3].toObject()["name"].toString(), "option_language_1");
    EXPECT_EQ(listed[3].toObject()["value"].toInt(), 10);
    EXPECT_TRUE(listed[3].toObject()["stored"].toBool());
    EXPECT_FALSE(listed[4].toObject()["stored"].toBool(true));
    EXPECT_EQ(json_of({"settings", "reset", "panel_language"})["value"].toInt(), 1);
    EXPECT_NE(output_of({"settings", "list"}).find("panel_language         1   default  16 bits"),
              std::string::npos)
        << output_of({"settings", "list"});
}

TEST_F(settings, values_outside_their_range_change_nothing) {
    set("destination", 255);
    for (const char* value : {"256", "0x100", "4294967297", "9223372036854775808"}) {
        expect_failure(2, {"settings", "set", "destination", value});
    }
    expect_failure(2, {"settings", "set", "destination", "--", "-1"});
    EXPECT_EQ(output_of({"settings", "get", "destination"}), "255\n");
    expect_failure(1, {"settings", "get", "no_such_setting"});
    expect_failure(1, {"settings", "set", "0x1:0x2", "3"});
}

TEST_F(settings, language_attributes_hold_107_bytes_of_any_text) {
    const std::string longest = "\xD0\x94 \"'" + std::string(102, 'x');
    EXPECT_EQ(output_of({"settings", "set-attribute", "7", "0x10", longest}), "");
    EXPECT_EQ(output_of({"settings", "get-attribute", "7", "16"}), longest + "\n");
    expect_failure(2, {"settings", "set-attribute", "7", "16", longest + "xx"});
    expect_failure(1, {"settings", "get-attribute", "7", "17"});
    const QJsonDocument attribute = json_of({"settings", "get-attribute", "7", "16"});
    EXPECT_EQ(attribute["text"].toString().toStdString(), longest);
    EXPECT_EQ(output_of({"settings", "remove-attribute", "7", "16"}), "");
    expect_failure(1, {"settings", "remove-attribute", "7", "16"});
}

TEST_F(settings, arguments_are_utf8_in_every_locale) {
    run_shell({"--tree", tree().path(""), PANELCTL, "settings", "set-attribute", "7", "1", "\xD0\x94"},
              {{"LC_ALL", "C"}});
    EXPECT_EQ(output_of({"settings", "get-attribute", "7", "1"}), "\xD0\x94\n");
}

TEST_F(settings, a_store_that_fails_is_reported_and_texts_come_all_the_same) {
    const std::string english = output_of({"message", "1"});
    const auto expect_failing_store = [&] {
        expect_failure(3, {"settings", "list"});
        expect_failure(3, {"settings", "get", "panel_language"});
        expect_failure(3, {"settings", "set", "panel_language", "49"});
        expect_failure(3, {"settings", "reset", "panel_language"});
        expect_failure(3, {"settings", "set-attribute", "1", "1", "text"});
        const process_result message = run({"message", "1"});
        EXPECT_EQ(message.exit_code, 0);
        EXPECT_EQ(message.output, english);
        EXPECT_NE(message.errors.find("; using defaults\n"), std::string::npos) << message.errors;
    };
    const std::string damaged =
        "this is no database, and long enough to be taken for one with a header " + std::string(200, '.');
    scratch_.write("platform/settings.db", damaged);
    expect_failing_store();
    EXPECT_EQ(scratch_.read("platform/settings.db"), damaged);
    ASSERT_EQ(run_process({"rm", "-r", platform_folder()}).exit_code, 0);
    scratch_.write("platform", "a file where the folder should be");
    expect_failing_store();
}
