#include "device.h"
#include "message_catalogue.h"
#include "option_pack.h"

#include <QJsonArray>

#include <iostream>
#include <map>

using namespace velarion;

namespace {

using panel_message = device;
using sample_message = sample_catalogue_device;
using texts_by_language = std::vector<std::pair<int, std::string>>;

constexpr int LANGUAGE_IDS[] = {81, 1, 49, 33, 34, 39, 31, 7}; // in the order of the catalogue's languages

texts_by_language texts_of(const QJsonValue& entry) {
    texts_by_language texts;
    for (const QJsonValue text : entry["texts"].toArray()) {
        texts.emplace_back(text["language"].toInt(), text["text"].toString().toStdString());
    }
    return texts;
}

} // namespace

TEST_F(sample_message, every_language_and_pack_says_what_the_catalogue_says) {
    set("option_language_2", 972);
    set("option_language_4", 86);
    diagnostics report(std::cerr);
    report.disable("fonts");
    const message_catalogue catalogue = read_message_catalogue(CATALOGUE_FOLDER, report);
    std::map<int, option_pack> packs;
    for (const int id : {86, 972}) {
        packs[id] = read_option_pack(CATALOGUE_FOLDER "/packs/" + std::to_string(id), catalogue, report);
        fill_option_pack(catalogue, packs[id]);
    }
    std::vector<catalogue_message> messages;
    std::vector<std::string> words = {"message", "--all"};
    for (std::size_t i = 0; i < catalogue.messages.size(); i += i < 420 ? 10 : 70) {
        messages.push_back(catalogue.messages[i]);
        words.push_back(std::to_string(messages.back().id));
    }
    const QJsonArray entries = json_of(words).array();
    ASSERT_EQ(entries.size(), static_cast<int>(messages.size()));
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const catalogue_message& wanted = messages[i];
        texts_by_language texts;
        for (std::size_t language = 0; language < std::size(LANGUAGE_IDS); ++language) {
            const catalogue_row& row = catalogue.rows[static_cast<std::size_t>(wanted.row)];
            texts.emplace_back(LANGUAGE_IDS[language], row.texts[language]);
        }
        for (const auto& [id, pack] : packs) {
            texts.emplace_back(id, pack.texts.at(wanted.row));
        }
        const QJsonValue entry = entries[static_cast<int>(i)];
        EXPECT_EQ(entry["id"].toInt(), wanted.id);
        EXPECT_EQ(entry["name"].toString().toStdString(), wanted.name);
        EXPECT_EQ(entry["row"].toInt(), wanted.row);
        EXPECT_EQ(texts_of(entry), texts) << wanted.id;
    }
}

TEST_F(sample_message, the_options_and_the_settings_choose_the_language) {
    set("option_language_1", 86);
    std::map<int, std::string> texts;
    for (const auto& text : texts_of(json_of({"message", "1", "--all"})[0])) {
        texts[text.first] = text.second + "\n";
    }
    ASSERT_TRUE(texts[1] != texts[49] && texts[1] != texts[86]);
    EXPECT_EQ(output_of({"message", "1"}), texts[1]);
    EXPECT_EQ(output_of({"message", "1", "--language", "49"}), texts[49]);
    EXPECT_EQ(output_of({"message", "1", "--language", "german"}), texts[49]);
    EXPECT_EQ(output_of({"message", "1", "--option", "86"}), texts[86]);
    EXPECT_EQ(output_of({"message", "1", "--language", "zh-CN"}), texts[86]);
    EXPECT_EQ(output_of({"message", "1", "--language", "999", "--option", "86"}), texts[86]);
    EXPECT_EQ(output_of({"message", "1", "--language", "972"}), texts[1]) << "972 is in no slot";
    set("panel_language", 49);
    EXPECT_EQ(output_of({"message", "1"}), texts[49]);
    set("panel_language", 999);
    set("panel_option_language", 86);
    EXPECT_EQ(output_of({"message", "1"}), texts[86]);
}

TEST_F(panel_message, what_is_missing_is_reported_beside_what_is_there) {
    const process_result result = run({"message", "2147483647", first_message(), "no_such_file"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.output, output_of({"message", first_message()}));
    EXPECT_EQ(result.errors, "panelctl: there is no message 2147483647\n"
                             "panelctl: there is no message with the name or text, and no message data file, "
                             "\"no_such_file\"; panelctl messages --filter finds words\n");
}

TEST_F(sample_message, messages_are_found_by_name_and_text_before_the_number_is_known) {
    set("option_language_1", 972);
    const struct {
        std::vector<std::string> words;
        int id;
        const char* found_as;
    } rows[] = {
        {{"message", "msg_normal_title_copy"}, 1, "name"},
        {{"message", "COPY"}, 1, "text"},
        {{"message", "КОПИРОВАНИЕ"}, 1, "text"},
        {{"message", "bereit zum\nkopieren.", "--language", "fr"}, 127, "text"},
        {{"message", "127"}, 127, "id"},
        {{"messages", "--filter", "kopieren BEREIT", "--language", "de"}, 127, "de"},
        {{"messages", "--filter", "status_ready копированию", "--all"}, 127, "ru"},
        {{"messages", "--filter", "pret a copi", "--fold", "--language", "fr"}, 127, "fr"},
        {{"messages", "--filter", "\u05D4\u05E2\u05EA\u05E7\u05D4", "--language", "he"}, 1, "he"},
    };
    for (const auto& row : rows) {
        const QJsonDocument found = json_of(row.words);
        EXPECT_EQ(found[0]["id"].toInt(), row.id) << row.words[1];
        const QJsonValue kind = found[0]["found_by"];
        EXPECT_EQ((kind.isString() ? kind : found[0]["tag"]).toString().toStdString(), row.found_as);
    }
    EXPECT_EQ(run({"messages", "--filter", "pret a copi", "--language", "fr"}).exit_code, 1);
    EXPECT_EQ(run({"messages", "--filter", "copy no-such-word"}).exit_code, 1);
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

TEST_F(panel_message, outside_the_device_tree_is_said_with_what_was_left) {
    const process_result result = run_process(
        {"bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--tmpfs", "/tmp", "--tmpfs", "/mnt", "--tmpfs",
         "/usr/local", "--bind", BUILD_FOLDER, BUILD_FOLDER, PANELCTL, "message", first_message()},
        {{"PANEL_PLATFORM_DIR", platform_folder()}});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.output, output_of({"message", first_message()}));
    EXPECT_EQ(result.errors, "panelctl: the device tree is not in place, so there are no option language "
                             "packs and no data files; run this through scripts/device-shell\n"
                             "panelctl: the library left links on this machine; to remove them: rm "
                             "/tmp/fonts/HeiseiKakuGothW5_213_C.ttf /tmp/fonts/UniversOTS_ArabicHebrew.ttf; "
                             "rmdir /tmp/fonts\n");
}
