#include "device.h"
#include "message_catalogue.h"
#include "option_pack.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <iostream>

namespace {

const int LANGUAGE_IDS[] = {81, 1, 49, 33, 34, 39, 31, 7}; // in the order of the catalogue's languages
const std::size_t ENGLISH = 1;
const std::size_t GERMAN = 2;

/** What the catalogue says the panel shows. */
class source_texts {
public:
    source_texts()
        : report_(std::cerr)
        , catalogue(read_message_catalogue(CATALOGUE_FOLDER, report_)) {
        report_.disable_class("fonts");
        for (const int id : {86, 972}) {
            packs[id] = read_option_pack(CATALOGUE_FOLDER "/packs/" + std::to_string(id), catalogue, report_);
        }
    }

    const std::string& text(const catalogue_message& message, std::size_t language) const {
        return catalogue.rows[static_cast<std::size_t>(message.row)].texts[language];
    }
    /** A text that a pack does not have comes out as the message's name. */
    std::string pack_text(const catalogue_message& message, int id) const {
        const auto found = packs.at(id).texts.find(message.row);
        return found == packs.at(id).texts.end() ? message.name : found->second;
    }
    /** The first message that has a text of its own in both packs, in English and in German. */
    const catalogue_message& translated_message() const {
        return *std::find_if(catalogue.messages.begin(), catalogue.messages.end(), [&](const auto& message) {
            return text(message, ENGLISH) != text(message, GERMAN) && packs.at(86).texts.count(message.row) &&
                   packs.at(972).texts.count(message.row);
        });
    }

private:
    diagnostics report_;

public:
    message_catalogue catalogue;
    std::map<int, option_pack> packs;
};

class panel_message : public device {
protected:
    static const source_texts& source() {
        static const source_texts texts;
        return texts;
    }
};

} // namespace

TEST_F(panel_message, every_language_and_pack_says_what_the_catalogue_says) {
    set("option_language_2", 972);
    set("option_language_4", 86);
    std::vector<const catalogue_message*> messages;
    std::vector<std::string> words = {"message", "--all"};
    for (std::size_t i = 0; i < source().catalogue.messages.size(); i += i < 420 ? 10 : 70) {
        messages.push_back(&source().catalogue.messages[i]);
        words.push_back(std::to_string(messages.back()->id));
    }
    const QJsonArray entries = json_of(words).array();
    ASSERT_EQ(entries.size(), static_cast<int>(messages.size()));
    for (int i = 0; i < entries.size(); ++i) {
        const catalogue_message& wanted = *messages[static_cast<std::size_t>(i)];
        SCOPED_TRACE(wanted.id);
        const QJsonObject entry = entries[i].toObject();
        EXPECT_EQ(entry["id"].toInt(), wanted.id);
        EXPECT_EQ(entry["name"].toString().toStdString(), wanted.name);
        EXPECT_EQ(entry["row"].toInt(), wanted.row);
        std::vector<std::pair<int, std::string>> expected;
        for (std::size_t language = 0; language < std::size(LANGUAGE_IDS); ++language) {
            expected.emplace_back(LANGUAGE_IDS[language], source().text(wanted, language));
        }
        expected.emplace_back(86, source().pack_text(wanted, 86));
        expected.emplace_back(972, source().pack_text(wanted, 972));
        std::vector<std::pair<int, std::string>> shown;
        for (const auto& text : entry["texts"].toArray()) {
            shown.emplace_back(text.toObject()["language"].toInt(),
                               text.toObject()["text"].toString().toStdString());
        }
        EXPECT_EQ(shown, expected);
    }
}

TEST_F(panel_message, the_options_and_the_settings_choose_the_language) {
    set("option_language_1", 86);
    const catalogue_message& wanted = source().translated_message();
    const std::string id = std::to_string(wanted.id);
    const std::string english = source().text(wanted, ENGLISH) + "\n";
    const std::string german = source().text(wanted, GERMAN) + "\n";
    const std::string chinese = source().pack_text(wanted, 86) + "\n";
    EXPECT_EQ(output_of({"message", id}), english);
    EXPECT_EQ(output_of({"message", id, "--language", "49"}), german);
    EXPECT_EQ(output_of({"message", id, "--option", "86"}), chinese);
    EXPECT_EQ(output_of({"message", id, "--language", "999", "--option", "86"}), chinese);
    EXPECT_EQ(output_of({"message", id, "--language", "999"}), english);
    EXPECT_EQ(output_of({"message", id, "--language", "972"}), english) << "972 is in no slot";
    set("panel_language", 49);
    EXPECT_EQ(output_of({"message", id}), german);
    EXPECT_EQ(output_of({"message", id, "--language", "44"}), english);
    set("panel_language", 999);
    set("panel_option_language", 86);
    EXPECT_EQ(output_of({"message", id}), chinese);
}

TEST_F(panel_message, line_breaks_stand_in_a_single_text_and_are_escaped_in_a_list) {
    const auto& messages = source().catalogue.messages;
    const auto wanted = std::find_if(messages.begin(), messages.end(), [&](const auto& message) {
        return source().text(message, ENGLISH).find('\n') != std::string::npos;
    });
    ASSERT_NE(wanted, messages.end());
    const std::string id = std::to_string(wanted->id);
    std::string text = source().text(*wanted, ENGLISH);
    EXPECT_EQ(output_of({"message", id}), text + "\n");
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at)) {
        text.replace(at, 1, "\\n");
    }
    const std::string list = output_of({"message", id, "--all"});
    EXPECT_NE(list.find("\n    1  " + text + "\n"), std::string::npos) << list;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 9);
}

TEST_F(panel_message, what_is_missing_is_reported_beside_what_is_there) {
    const catalogue_message& wanted = source().translated_message();
    const process_result result = run({"message", "2147483647", std::to_string(wanted.id), "no_such_file"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.output, source().text(wanted, ENGLISH) + "\n");
    EXPECT_EQ(result.errors, "panelctl: there is no message 2147483647\n"
                             "panelctl: there is no message data file \"no_such_file\"\n");
    EXPECT_FALSE(json_of({"message", "2147483647"})[0]["found"].toBool(true));
}

TEST_F(panel_message, data_files_of_the_device_are_read_by_name) {
    tree().write("mnt/sheetext/folder/note", "line 1\nline 2");
    tree().write("mnt/sheetext/empty", "");
    EXPECT_EQ(output_of({"message", "folder/note"}), "line 1\nline 2\n");
    for (const std::string name : {"empty", "folder"}) {
        const process_result result = run({"message", name});
        EXPECT_EQ(result.exit_code, 3) << name;
        EXPECT_EQ(result.errors, "panelctl: message data file \"" + name + "\" is empty or cannot be read\n");
    }
}

TEST_F(panel_message, outside_the_device_tree_one_line_says_so) {
    const process_result result =
        run_process({"bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--tmpfs", "/tmp", "--tmpfs", "/mnt",
                     "--tmpfs", "/usr/local", "--bind", BUILD_FOLDER, BUILD_FOLDER, PANELCTL, "message",
                     std::to_string(source().translated_message().id)},
                    {{"PANEL_PLATFORM_DIR", platform_folder()}});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.output, source().text(source().translated_message(), ENGLISH) + "\n");
    EXPECT_EQ(result.errors, "panelctl: the device tree is not in place, so there are no option language "
                             "packs and no data files; run this through scripts/device-shell\n");
}
