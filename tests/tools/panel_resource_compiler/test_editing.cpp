#include "confirmed_texts.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace {

/** Message 1 and 7 share row 2, 6 has row 3 without a text, 5 row 9 with one in three languages and a pack.
 */
class editing : public testing::Test {
protected:
    void SetUp() override {
        catalogue_.write("messages.tsv",
                         "id\tname\trow\r\n# first\r\n1\tMSG_ONE\t2\r\n5\tMSG_FIVE\t9\r\n6\tMSG_EMPTY\t3\r\n"
                         "# shares\r\n7\tMSG_SEVEN\t2");
        catalogue_.write("images.tsv", "id\tname\tfile\n1\tIMG_ONE\tone.png\n2147483647\tIMG_LAST\t \n");
        catalogue_.write("texts/en.tsv", "row\ttext\n2\tCopy\n9\tTray %1\n");
        catalogue_.write("texts/de.tsv", "row\ttext\n2\tKopie\n# tray\n9\tFach %1");
        catalogue_.write("texts/ru.tsv", "row\ttext\n2\tКопия\n9\tЛоток %1\n");
        catalogue_.write_pack("86", "font_family = Pack Sans\n", "row\ttext\n9\t纸盘 %1\n");
        catalogue_.write("confirmed/de.tsv", "row\tenglish\n9\t01234567\n");
        fs::remove(catalogue_.path("confirmed/86.tsv"));
        fs::remove(catalogue_.path("confirmed/fr.tsv"));
        catalogue_.write("figures.tsv", "name\tfigure\nmessages\t4\nmessage 5\tMSG_FIVE, row 9\n");
    }

    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : fs::recursive_directory_iterator(catalogue_.path(""))) {
            if (entry.is_regular_file()) {
                contents[entry.path().lexically_relative(catalogue_.path(""))] = file_contents(entry.path());
            }
        }
        return contents;
    }

    scratch_catalogue catalogue_;
};

const std::string NEW_ROW = "7\tMSG_SEVEN\t2\r\n8\tMSG_NEW\t4\r\n";

} // namespace

TEST_F(editing, a_change_touches_its_lines_alone_and_check_passes_after_it) {
    catalogue_.folder().write("texts", "language\ttext\nen\tNew %1\\nline\n\n# German\n49\tNeu %1\r\n");
    const struct {
        std::vector<std::string> words;
        std::map<std::string, std::pair<std::string, std::string>> replaced; ///< in each file
    } rows[] = {
        {{"add", "--name", "MSG_NEW", "--text", "en=New\nline", "--text", "86=新"},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", NEW_ROW}},
          {"texts/en.tsv", {"9\t", "4\tNew\\nline\n9\t"}},
          {"packs/86/texts.tsv", {"9\t", "4\t新\n9\t"}},
          {"confirmed/86.tsv", {"", "row\tenglish\n4\t" + velarion::english_hash("New\nline") + "\n"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--name", "MSG_NEW", "--texts", catalogue_.folder().path("texts")},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", NEW_ROW}},
          {"texts/en.tsv", {"9\t", "4\tNew %1\\nline\n9\t"}},
          {"texts/de.tsv", {"# tray", "4\tNeu %1\n# tray"}},
          {"confirmed/de.tsv", {"9\t", "4\t" + velarion::english_hash("New %1\nline") + "\n9\t"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--name", "MSG_ONE", "--allow-same-name", "--id", "2147483647", "--row", "9", "--text",
          "fr=%1"},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", "7\tMSG_SEVEN\t2\r\n2147483647\tMSG_ONE\t9\r\n"}},
          {"texts/fr.tsv", {"2\tfr\n", "2\tfr\n9\t%1\n"}},
          {"confirmed/fr.tsv", {"", "row\tenglish\n9\t" + velarion::english_hash("Tray %1") + "\n"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--picture", "--name", "IMG_TWO", "--id", "2", "--file", "two.svg"},
         {{"images.tsv", {"2147483647", "2\tIMG_TWO\ttwo.svg\n2147483647"}}}},
        {{"add", "--name", "MSG_NEW", "--text", "86=%1"},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", NEW_ROW}},
          {"packs/86/texts.tsv", {"9\t", "4\t%1\n9\t"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--name", "MSG_NEW", "--text", "en=New", "--text", "de="},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", NEW_ROW}},
          {"texts/en.tsv", {"9\t", "4\tNew\n9\t"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--name", "MSG_NEW", "--row", "1", "--text", "en="},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", "7\tMSG_SEVEN\t2\r\n8\tMSG_NEW\t1\r\n"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"add", "--name", "MSG_NEW", "--row", "9", "--text", "en=Tray %1"},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", "7\tMSG_SEVEN\t2\r\n8\tMSG_NEW\t9\r\n"}},
          {"figures.tsv", {"messages\t4", "messages\t5"}}}},
        {{"rename", "1", "MSG_ONE"}, {}},
        {{"rename", "--allow-same-name", "1", "MSG_SEVEN"}, {{"messages.tsv", {"MSG_ONE", "MSG_SEVEN"}}}},
        {{"rename", "--picture", "IMG_ONE", "IMG_FIRST"}, {{"images.tsv", {"IMG_ONE", "IMG_FIRST"}}}},
        {{"remove", "--picture", "1"}, {{"images.tsv", {"1\tIMG_ONE\tone.png\n", ""}}}},
        {{"rename", "MSG_FIVE", "MSG_TRAY"},
         {{"messages.tsv", {"MSG_FIVE", "MSG_TRAY"}}, {"figures.tsv", {"MSG_FIVE", "MSG_TRAY"}}}},
        {{"remove", "7"},
         {{"messages.tsv", {"7\tMSG_SEVEN\t2", ""}}, {"figures.tsv", {"messages\t4", "messages\t3"}}}},
        {{"remove", "MSG_FIVE"},
         {{"messages.tsv", {"5\tMSG_FIVE\t9\r\n", ""}},
          {"texts/en.tsv", {"9\tTray %1\n", ""}},
          {"texts/de.tsv", {"9\tFach %1", ""}},
          {"confirmed/de.tsv", {"9\t01234567\n", ""}},
          {"texts/ru.tsv", {"9\tЛоток %1\n", ""}},
          {"packs/86/texts.tsv", {"9\t纸盘 %1\n", ""}},
          {"figures.tsv", {"messages\t4\nmessage 5\tMSG_FIVE, row 9\n", "messages\t3\n"}}}},
        {{"sort"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        SetUp();
        catalogue_.write("texts/fr.tsv", "row\ttext\n2\tfr\n");
        std::map<std::string, std::string> wanted = files();
        std::vector<std::string> words(row.words.begin() + 1, row.words.end());
        words.push_back("--dry-run");
        const process_result shown = catalogue_.run(row.words[0], words);
        EXPECT_EQ(shown.output.empty(), row.replaced.empty());
        EXPECT_EQ(files(), wanted) << "a dry run";
        for (const auto& [file, change] : row.replaced) {
            std::string& contents = wanted[file];
            contents.replace(contents.find(change.first), change.first.size(), change.second);
        }
        words.back() = "--update-figures";
        const process_result result = catalogue_.run(row.words[0], words);
        EXPECT_EQ(result.exit_code, 0) << result.errors;
        EXPECT_EQ(files(), wanted);
        EXPECT_EQ(catalogue_.run("check").exit_code, 0) << catalogue_.run("check").errors;
    }
}

TEST_F(editing, every_table_is_sorted) {
    const struct {
        const char* file;
        std::string columns;
        std::string first;
        std::string second;
    } rows[] = {{"messages.tsv", "id\tname\trow\n", "2\tA\t9\n", "10\tB\t9\n"},
                {"images.tsv", "id\tname\tfile\n", "2\tA\ta.png\n", "10\tB\ta.png\n"},
                {"texts/ja.tsv", "row\ttext\n", "9\t%1\n", "10\tb\n"},
                {"packs/86/texts.tsv", "row\ttext\n", "9\t%1\n", "10\tb\n"},
                {"confirmed/de.tsv", "row\tenglish\n", "9\t01234567\n", "10\t01234567\n"}};
    for (const auto& row : rows) {
        catalogue_.write(row.file, row.columns + row.second + row.first);
    }
    EXPECT_EQ(catalogue_.run("remove", {"10"}).exit_code, 1) << "only \"sort\" takes such a catalogue";
    EXPECT_EQ(catalogue_.run("sort").exit_code, 0);
    for (const auto& row : rows) {
        EXPECT_EQ(catalogue_.folder().read(std::string("catalogue/") + row.file),
                  row.columns + row.first + row.second);
    }
    EXPECT_EQ(catalogue_.run("sort").output, "all tables are in order\n");
}

TEST_F(editing, a_removed_message_goes_after_its_texts_and_an_added_one_tells_what_it_lacks) {
    EXPECT_EQ(catalogue_.run("add", {"--name", "M", "--row", "1"}).output.find("without a text"),
              std::string::npos);
    catalogue_.write("texts/nl.tsv", "row\ttext\n2\tnl\n4\tof a message to come\n");
    EXPECT_EQ(
        catalogue_.run("add", {"--name", "O", "--text", "en=x"}).output.find("added message 9: O, row 5\n"),
        0U);
    EXPECT_NE(catalogue_.run("add", {"--name", "N", "--text", "en=x", "--text", "86=y"})
                  .output.find("without a text in ja, de, fr, es, it, nl, ru\n"),
              std::string::npos);
    EXPECT_NE(catalogue_.run("remove", {"1"}).output.find("row 2 stays: shown by message 7\n"),
              std::string::npos);
}

TEST_F(editing, figures_follow_when_they_are_told_to) {
    EXPECT_NE(
        catalogue_.run("rename", {"5", "MSG_TRAY"}).output.find("until \"panel_resource_compiler figures\""),
        std::string::npos);
    EXPECT_EQ(catalogue_.run("check").exit_code, 1);
    EXPECT_NE(catalogue_.run("figures").output.find("MSG_FIVE, row 9 becomes MSG_TRAY, row 9\n"),
              std::string::npos);
    EXPECT_EQ(catalogue_.run("check").exit_code, 0);
    EXPECT_EQ(catalogue_.run("figures").output, "there is nothing to change\n");
}

TEST_F(editing, a_command_that_was_ended_and_one_that_is_slow_are_in_nobodys_way) {
    catalogue_.write("messages.tsv.new", "torn");
    EXPECT_EQ(catalogue_.run("check").errors.find("messages.tsv.new: warning: is left of a command"), 0U);
    const std::string pipe =
        "{ sleep 0.1; printf 'en\\tNew'; } | \"$0\" add --catalogue \"$1\" --name M --texts -";
    const process_result added = run_process({"/bin/sh", "-c", pipe, RESOURCE_COMPILER, catalogue_.path("")});
    EXPECT_EQ(added.exit_code, 0) << added.errors;
    EXPECT_FALSE(fs::exists(catalogue_.path("messages.tsv.new")));
}

TEST_F(editing, what_would_break_the_catalogue_is_refused_with_the_reason_and_changes_nothing) {
    const struct {
        std::vector<std::string> words;
        const char* reason;
    } rows[] = {
        {{"add", "--name", "MSG_ONE", "--text", "en=x"}, "message 1 is named MSG_ONE; --allow-same-name"},
        {{"add", "--name", "M", "--text", "en=x", "--id", "5"}, "id 5 is that of MSG_FIVE"},
        {{"add", "--name", "M", "--text", "en=x", "--id", "0"}, "id 0 is less than 1"},
        {{"add", "--name", "M", "--text", "en=x", "--row", "21999"}, "row 21999 is outside 1 to 21998"},
        {{"add", "--name", "M", "--text", "en=x", "--row", "1"}, "row 1 must stay empty"},
        {{"add", "--name", "M"}, "has no text"},
        {{"add", "--name", "M", "--text", "en=a %1", "--text", "de=b %2"},
         "--text: error: the de text: %1 is missing; it stands in en"},
        {{"add", "--name", "M", "--text", "en=%1", "--text", "49=%1 %1"}, "%1 stands twice; once in en"},
        {{"add", "--name", "M", "--text", "en=a\\tb"}, "the en text: holds U+0009, which"},
        {{"add", "--name", "M", "--row", "9", "--text", "nl=x"}, "%1 is missing; it stands in en, de, ru"},
        {{"add", "--name", "M", "--row", "9", "--text", "en=%1"},
         "row 9 has the en text \"Tray %1\" already"},
        {{"add", "--name", "M", "--text", "en=a\\x"}, "unknown escape \"\\x\""},
        {{"add", "--name", "M", "--text", "en=\xC3"}, "not valid UTF-8"},
        {{"add", "--name", "M", "--text", "972=x"}, "\"972\" is neither a standard language nor a pack"},
        {{"add", "--picture", "--name", "IMG_NEW", "--file", "a.png"}, "there is no id above 2147483647"},
        {{"add", "--picture", "--name", "IMG_ONE", "--file", "a.png"}, "picture 1 is named IMG_ONE"},
        {{"rename", "MSG_NONE", "MSG_NEW"}, "there is no message \"MSG_NONE\""},
        {{"rename", "1", "MSG_FIVE"}, "the name \"MSG_FIVE\" is that of message 5"},
        {{"rename", "1", "GR\u00D6SSE"}, "holds more than printable ASCII"},
        {{"rename", "--picture", "--allow-same-name", "1", "IMG_LAST"}, "is that of picture 2147483647"},
        {{"add", "--name", "GR\u00D6SSE", "--text", "en=x"}, "holds more than printable ASCII"},
        {{"add", "--picture", "--name", "\u00D6", "--id", "3", "--file", "a.png"}, "printable ASCII"},
        {{"add", "--picture", "--name", "I", "--id", "3", "--file", "a:b.png"}, "which marks external"},
        {{"remove", "2147483648"}, "there is no message \"2147483648\""},
    };
    const std::map<std::string, std::string> before = files();
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const process_result result = catalogue_.run(row.words[0], {row.words.begin() + 1, row.words.end()});
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_NE(result.errors.find(row.reason), std::string::npos) << result.errors;
        EXPECT_NE(result.errors.find("nothing was changed\n"), std::string::npos) << result.errors;
        EXPECT_EQ(files(), before);
    }
    for (const std::vector<std::string>& contradiction : {std::vector<std::string>{"--picture"},
                                                          {"--text", "en=x", "--file", "a.png"},
                                                          {"--picture", "--file", "a.png", "--row", "9"},
                                                          {"--picture", "--file", "a", "--text", "en=x"}}) {
        std::vector<std::string> words = {"--name", "N", "--id", "9"};
        words.insert(words.end(), contradiction.begin(), contradiction.end());
        EXPECT_EQ(catalogue_.run("add", words).exit_code, 2) << contradiction.back();
        EXPECT_EQ(files(), before);
    }
    catalogue_.write("images.tsv", "id\tname\tfile\n1\tIMG_ONE\tone.png\n");
    EXPECT_EQ(catalogue_.run("remove", {"--picture", "1"}).exit_code, 1) << "the last one";
    catalogue_.write("images.tsv", before.at("images.tsv"));
    catalogue_.write("messages.tsv", "id\tname\trow\n1\tA\t2\n3\tA\t9\n");
    EXPECT_NE(catalogue_.run("remove", {"A"}).errors.find("are named \"A\"; give one of the ids 1, 3"),
              std::string::npos);
    catalogue_.write("messages.tsv", before.at("messages.tsv"));
    fs::remove(catalogue_.path("packs/86/texts.tsv"));
    EXPECT_EQ(catalogue_.run("remove", {"5"}).exit_code, 1);
    fs::create_directories(catalogue_.path("messages.tsv.new/in the way"));
    catalogue_.write("packs/86/texts.tsv", before.at("packs/86/texts.tsv"));
    EXPECT_EQ(catalogue_.run("remove", {"5"}).exit_code, 3);
    EXPECT_EQ(files(), before);
}

TEST_F(editing, texts_names_and_pictures_are_found_in_every_language) {
    const std::string copy = "1  MSG_ONE    2  ru  Копия\n7  MSG_SEVEN  2  ru  Копия\n";
    const struct {
        std::vector<std::string> words;
        std::string output;
    } rows[] = {
        {{"КОПИЯ"}, copy},
        {{"pack", "text"}, "5  MSG_FIVE  9  48   a pack's text\n5  MSG_FIVE  9  966  a pack's text\n"},
        {{"--id", "five"}, ""},
        {{"--id", "1"}, "1  MSG_ONE  2        en  Copy\n1  IMG_ONE  picture  -   one.png\n"},
        {{"--id", "^7$", "--regex"}, "7  MSG_SEVEN  2  en  Copy\n"},
        {{"^7$", "--regex"}, ""},
        {{"5", "fach"}, ""},
        {{"--name", "unused"}, ""},
        {{"--name", "img_one"}, "1  IMG_ONE  picture  -  one.png\n"},
        {{"one.png", "--language", "en"}, ""},
        {{"^копия$", "--regex"}, copy},
        {{"копия", "--language", "fr"}, ""},
        {{"fach", "%1"}, "5  MSG_FIVE  9  de  Fach %1\n"},
        {{"five", "纸"}, "5  MSG_FIVE  9  86  纸盘 %1\n"},
        {{"five", "--language", "de", "--language", "zh-CN"},
         "5  MSG_FIVE  9  de  Fach %1\n5  MSG_FIVE  9  86  纸盘 %1\n"},
        {{"--name", "copy"}, ""},
        {{"4"}, ""},
        {{"--id", "5"}, "5  MSG_FIVE  9  en  Tray %1\n"},
        {{"seven"}, "7  MSG_SEVEN  2  en  Copy\n"},
        {{"ONE.P"}, "1  IMG_ONE  picture  -  one.png\n"},
        {{"unused"}, "-  -  30  es  Unused \\\\ text\n"},
        {{"unused", "--fold"}, "-  -  30  es  Unused \\\\ text\n-  -  30  it  \u00DBnus\u00E9d\n"},
    };
    for (const char* pack : {"966", "48"}) {
        catalogue_.write_pack(pack, "font_family = F\n", "row\ttext\n9\ta pack's text\n");
    }
    catalogue_.write("texts/es.tsv", "row\ttext\n30\tUnused \\\\ text\n");
    catalogue_.write("texts/it.tsv", "row\ttext\n30\t\u00DBnus\u00E9d\n");
    for (const auto& row : rows) {
        const process_result result = catalogue_.run("find", row.words);
        EXPECT_EQ(result.output, row.output) << testing::PrintToString(row.words);
        EXPECT_EQ(result.exit_code, row.output.empty() ? 1 : 0);
    }
    EXPECT_EQ(catalogue_.run("find", {"--regex", "("}).exit_code, 2);
    EXPECT_NE(catalogue_.run("find", {"\u00DBnus\u00E9d", "--json"}).output.find("\"id\": null"),
              std::string::npos);
}
