#include "scratch_catalogue.h"
#include "text_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

using namespace velarion;

namespace {

/** A good file of the catalogue, to which a third line is put. */
struct table {
    const char* name;
    const char* lines;
};

constexpr table MESSAGES = {"messages.tsv", "id\tname\trow\n5\tA\t1\n"};
constexpr table TEXTS = {"texts/en.tsv", "row\ttext\n2\ta\n"};
constexpr table IMAGES = {"images.tsv", "id\tname\tfile\n5\tA\ta_1.0.svg\n"};
constexpr table PROPERTIES = {"packs/86/pack.conf", "font_family = F\ndirection=rtl\n"};

/** Lines that are refused alone in their file, and what the report of each holds. */
const struct {
    const table& file;
    const char* report;
    std::vector<std::string> lines;
} FAULTS[] = {
    {MESSAGES, "error: id 0 is less than 1", {"0\tB\t2"}},
    {MESSAGES, "error: id 5 stands in line 2 already", {"5\tB\t2"}},
    {MESSAGES, "is not a whole number", {"\tB\t2", "+6\tB\t2", "6 \tB\t2", "6\tB\t0x2"}},
    {MESSAGES, "\"2147483648\" is above 2147483647, the highest number", {"2147483648\tB\t2"}},
    {MESSAGES, "error: the message has no name", {"6\t\t2"}},
    {MESSAGES, "holds more than printable ASCII and tabs", {"6\tGR\xC3\x96SSE\t2"}},
    {MESSAGES, "is outside 1 to 21998", {"6\tB\t0", "6\tB\t21999", "6\tB\t-1"}},
    {TEXTS, "is outside 0 to 21998", {"21999\t", "22000\ta"}},
    {TEXTS, "has 1 field instead of 2: a tab is missing; a line is row TAB text", {"3", "3 a"}},
    {TEXTS, ":4: error: has 3 fields instead of 2: a tab is too many (\\t stands", {"3\ta\tb"}},
    {TEXTS, ":3:6: error: unknown escape", {"3\t\xE3\x83\x86\\n\\rb", "3\ta\\\\\\"}},
    {TEXTS, "error: holds a carriage return", {"3\ta\rb", "3\ta\r\r"}},
    {TEXTS, "error: is not valid UTF-8 text", {"3\t\xFF", std::string("3\ta\0b", 5)}},
    {IMAGES, "error: the image has no name", {"6\t\ta.png"}},
    {IMAGES, "printable ASCII", {"6\tGR\xC3\x96SSE\ta.png", "6\tB\\tB\ta.png", "6\tB\tgr\xC3\xB6sse.png"}},
    {IMAGES, "error: the name \"A\" stands in line 2 already", {"6\tA\ta.png"}},
    {IMAGES, "error: the image has no file; one blank stands for", {"6\tB\t"}},
    {IMAGES, ":3:5: error: the file \"", {"6\tB\t../a.png"}},
    {IMAGES, "holds a path separator", {"6\tB\t../a.png", "6\tB\ta\\\\b.png"}},
    {IMAGES,
     "has more than 255 bytes, which no file system takes",
     {"6\tB\t" + std::string(252, 'a') + ".png"}},
    {IMAGES, "begins or ends with a blank", {"6\tB\ta.png ", "6\tB\t a.png", "6\tB\t  "}},
    {IMAGES, "holds a \":\", which marks external images", {"6\tB\tx:a.png"}},
    {IMAGES, "never shown [extensions]", {"6\tB\ta.bmp", "6\tB\t.png"}},
    {PROPERTIES, "error: unknown property \"family\"; known are", {"family = F"}},
    {PROPERTIES, "error: \"direction\" stands in line 2 already", {"direction = ltr"}},
    {PROPERTIES, "error: is no \"key = value\" line", {"rtl"}},
    {PROPERTIES, "is not installed; the pack goes without [fonts]", {"font = /nowhere/a.tTf"}},
    {PROPERTIES, "is not installed; the pack goes without", {"font = /" + std::string(300, 'a') + ".ttf"}},
    {PROPERTIES, "does not end in .ttf", {"font = /nowhere/b.otf"}},
    {PROPERTIES, "is not an absolute path; the pack links to it", {"font = c.ttf"}},
    {PROPERTIES, "error: is not valid UTF-8 text", {"font = /nowhere/\xE3\x81.ttf"}},
};

/** Files put into a good catalogue as a whole, and the reports. */
const struct {
    const char* name;
    const char* contents;
    const char* reports;
} CONTENTS[] = {
    {"messages.tsv", "\xEF\xBB\xBF# c\r\n\r\nrow\tname\tid\r\n2\tA\\tB\t1\r\n2\tB\t3", ""},
    {"images.tsv", "id\tname\tfile\n2\tA\ta.gif\n9\tB\ta.gif\n10\tC\t \n11\tD\t\xE3\x80\x80\n12\tE\tX.PNG\n",
     ""},
    {"messages.tsv", "id\tid\tcolour\trow\n1\t1\tA\t2\n",
     "messages.tsv:1: error: column \"id\" stands twice [table]\n"
     "messages.tsv:1: error: unknown column \"colour\" [table]\n"
     "messages.tsv:1: error: column \"name\" is missing [table]\n"
     "messages.tsv: error: holds no message [table]\n4 errors, 0 warnings\n"},
    {"images.tsv", "id\tname\tfile\n7\tA\ta.png\n3\tB\ta.png\n5\tC\ta.png\n",
     "images.tsv:3:1: error: id 3 stands after 7; ids must ascend [id]\n"
     "images.tsv:4:1: error: id 5 stands after 7; ids must ascend [id]\n2 errors, 0 warnings\n"},
    {"texts/en.tsv", "",
     "texts/en.tsv: error: has no line with the names of its columns [table]\n1 error, 0 warnings\n"},
    {"packs/86/texts.tsv", "row\ttext\n-1\ta\n1\ta\n2\t%1\n9\ta\n9\tb\n5\tc\n8\td\n",
     "packs/86/texts.tsv:2:1: error: row -1 is outside 0 to 21998 [row]\n"
     "packs/86/texts.tsv:3:3: error: row 1 must stay empty [row]\n"
     "packs/86/texts.tsv:6:1: error: row 9 stands in line 5 already [row]\n"
     "packs/86/texts.tsv:7:1: error: row 5 stands after 9; rows must ascend [row]\n"
     "packs/86/texts.tsv:8:1: error: row 8 stands after 9; rows must ascend [row]\n"
     "packs/86/texts.tsv:4:3: error: row 2: %1 is too many; it does not stand in ja, en, de, fr, es, it, nl, "
     "ru [placeholders]\nplaceholders: 86 1\n6 errors, 0 warnings\n"},
    {"packs/86/pack.conf", "\xEF\xBB\xBF# c\n  # c\ndirection = up\n",
     "packs/86/pack.conf:3: error: direction \"up\" is neither \"ltr\" nor \"rtl\" [pack]\n"
     "packs/86/pack.conf: error: names no font_family [pack]\n2 errors, 0 warnings\n"},
    {"packs/86/pack.conf", "font_family = \xC3\x9F\n",
     "packs/86/pack.conf:1: error: font_family \"\xC3\x9F\" is not printable ASCII; give the font's ASCII "
     "name [pack]\n"
     "1 error, 0 warnings\n"},
    {"packs/86/texts.tsv", "text\trow\n#1 of %1\t5\n",
     "packs/86/texts.tsv:1: error: column \"text\" stands first, where \"#\" starts a comment; put \"row\" "
     "there [table]\n"
     "1 error, 0 warnings\n"},
    {"packs/49/texts.tsv", "row\ttext\n",
     "packs/49: warning: language 49 is a standard language, for which the panel asks no pack; rename the "
     "folder "
     "[standard]\npacks/49/pack.conf: error: cannot be opened for reading [file]\n1 error, 1 warning\n"},
    {"packs/README", "a file beside the packs", ""},
    {"figures.tsv",
     "name\tfigure\nmessages\t2\nmessages\t3\nmessages in the group TWO\t1\nmessages in the group NONE\t1\n"
     "imagas\t1\nimage 1\tIMG_ONE, \"one.jpg\"\nen text of row 2\ten\n",
     "figures.tsv:3:10: error: messages: 3 expected, 2 found [figures]\n"
     "figures.tsv:5:28: error: messages in the group NONE: 1 expected, 0 found [figures]\n"
     "figures.tsv:6:1: error: \"imagas\" is no figure of this catalogue [figures]\n"
     "figures.tsv:7:9: error: image 1: IMG_ONE, \"one.jpg\" expected, IMG_ONE, \"one.png\" found [figures]\n"
     "4 errors, 0 warnings\n"},
};

} // namespace

TEST(catalogue, a_faulty_line_is_reported_once_with_its_place) {
    for (const auto& row : FAULTS) {
        for (const std::string& line : row.lines) {
            const scratch_catalogue catalogue;
            catalogue.write(row.file.name, row.file.lines + line + "\n");
            const process_result result = catalogue.run("check");
            const std::string& report = result.errors;
            EXPECT_EQ(report.rfind(row.file.name + std::string(":3:"), 0), 0U) << line << ": " << report;
            EXPECT_NE(report.find(row.report), std::string::npos) << line << ": " << report;
            EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 2) << line << ": " << report;
            EXPECT_EQ(result.exit_code, report.find("1 error,") != std::string::npos ? 1 : 0) << report;
        }
    }
}

TEST(catalogue, files_as_a_whole) {
    for (const auto& row : CONTENTS) {
        const scratch_catalogue catalogue;
        catalogue.write(row.name, row.contents);
        EXPECT_EQ(catalogue.run("check").errors, row.reports);
    }
}

TEST(catalogue, a_missing_file_and_a_folder_or_pipe_in_its_place_are_errors) {
    const scratch_catalogue catalogue;
    for (const char* name : {"texts/de.tsv", "texts/ru.tsv", "packs/86/pack.conf", "packs/86/texts.tsv"}) {
        std::filesystem::remove(catalogue.path(name));
    }
    std::filesystem::create_directory(catalogue.path("texts/ru.tsv"));
    std::filesystem::resize_file(catalogue.path("texts/it.tsv"), 1U << 30U);
    ASSERT_EQ(::mkfifo(catalogue.path("packs/86/pack.conf").c_str(), 0600), 0);
    EXPECT_EQ(catalogue.run("check").errors,
              "texts/de.tsv: error: cannot be opened for reading [file]\n"
              "texts/it.tsv: error: is larger than 64 MiB, which no table is [file]\n"
              "texts/ru.tsv: error: cannot be read [file]\n"
              "packs/86/pack.conf: error: is a pipe or device; put a file in its place [file]\n"
              "packs/86/texts.tsv: error: cannot be opened for reading [file]\n"
              "5 errors, 0 warnings\n");
}

TEST(catalogue, a_report_is_short_and_leaves_the_terminal_alone) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv",
                    "id\tname\trow\n1\t" + std::string(989, 'a') + "\xC3\xA4\x1B\xC2\x9B\t2\n");
    EXPECT_EQ(catalogue.run("check").errors, "messages.tsv:2:3: error: the name \"" + std::string(989, 'a') +
                                                 "ä… [name]\n1 error, 0 warnings\n");
    catalogue.write("messages.tsv", "id\tname\trow\n1\t\x1B\xC2\x9B\xC3\xA4\t2\n");
    EXPECT_EQ(catalogue.run("check").errors,
              "messages.tsv:2:3: error: the name \"??ä\" holds more than printable ASCII and tabs [name]\n"
              "1 error, 0 warnings\n");
}

TEST(catalogue, links_to_folders_do_not_multiply_the_files_of_a_pack) {
    const scratch_catalogue catalogue;
    const std::filesystem::path keymap = catalogue.path("packs/86/keymap");
    std::filesystem::create_directories(keymap / "b");
    std::filesystem::create_directory_symlink("../../keymap", keymap / "b" / "c");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"check"}, {"pack", "--pack", catalogue.path("packs/86")}}) {
        const process_result result = catalogue.run(command[0], {command.begin() + 1, command.end()});
        EXPECT_EQ(result.errors,
                  "packs/86/keymap/b/c: error: is a link to a folder above it; remove it [keyboard]\n"
                  "1 error, 0 warnings\n");
    }
    std::filesystem::remove(keymap / "b" / "c");
    for (const char* name : {"b/1", "b/1/2", "b/1/2/3", "b/1/2/3/4", "b/1/2/3/4/5"}) {
        std::filesystem::create_directory(keymap / name);
    }
    std::filesystem::path folder = keymap / "b";
    for (int i = 1; i <= 5; ++i, folder /= std::to_string(i - 1)) {
        for (int link = 0; link < 9; ++link) {
            std::filesystem::create_directory_symlink(std::to_string(i),
                                                      folder / ("l" + std::to_string(link)));
        }
    }
    EXPECT_NE(
        catalogue.run("check").errors.find(
            ": error: more than 10000 files and folders are found here [keyboard]\n1 error, 0 warnings\n"),
        std::string::npos);
}

TEST(catalogue, the_folder_of_a_pack_is_named_like_a_language_id) {
    for (const std::string name : {"0", "999", "65536", "-86", "086", "86a", "99999999999"}) {
        const scratch_catalogue catalogue;
        catalogue.write_pack("65535");
        catalogue.write_pack(name);
        EXPECT_EQ(catalogue.run("check").errors, "packs/" + name +
                                                     ": error: the folder's name must be a language id, " +
                                                     "1 to 65535 except 999 [pack]\n1 error, 0 warnings\n");
    }
}

TEST(text_lines, utf8_is_well_formed) {
    EXPECT_TRUE(is_valid_utf8("a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xED\x9F\xBF\xEE\x80\x80"
                              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
    for (const char* bad :
         {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
          "\xF5\x80\x80\x80", "a\xC3", "\xE3\x81", "\xF0\x9F\x98", "\xC3(", "\xE3\x81(", "\xF0\x9F\x98("}) {
        EXPECT_FALSE(is_valid_utf8(bad)) << testing::PrintToString(bad);
    }
}
