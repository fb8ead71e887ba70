#include "scratch_catalogue.h"
#include "tsv_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace {

/** A file put into a good catalogue, and what is then reported. */
const struct {
    const char* name;
    const char* file;
    std::string contents;
    const char* reports;
} CONTENTS[] = {
    {"good with comments, order of columns, byte order mark and CR LF", "messages.tsv",
     "\xEF\xBB\xBF# c\r\n\r\nrow\tname\tid\r\n2\tA\\tB\t1\r\n21998\tB\t3\r\n", ""},
    {"ids", "messages.tsv", "id\tname\trow\n5\tA\t2\n5\tB\t2\n4\tC\t2\n0\tD\t2\n",
     "messages.tsv:3: error: id 5 stands twice\n"
     "messages.tsv:4: error: id 4 stands after 5; ids must ascend\n"
     "messages.tsv:5: error: id 0 is less than 1\n"},
    {"numbers", "messages.tsv",
     "id\tname\trow\n\tA\t2\n+1\tB\t2\n1 \tC\t2\n2147483648\tD\t2\n1\tE\t0x2\n9\tF\t2\n",
     "messages.tsv:2: error: id \"\" is not a whole number\n"
     "messages.tsv:3: error: id \"+1\" is not a whole number\n"
     "messages.tsv:4: error: id \"1 \" is not a whole number\n"
     "messages.tsv:5: error: id \"2147483648\" is not a whole number\n"
     "messages.tsv:6: error: row \"0x2\" is not a whole number\n"},
    {"names", "messages.tsv", "id\tname\trow\n1\t\t2\n2\tGR\xC3\x96SSE\t2\n",
     "messages.tsv:2: error: the message has no name\n"
     "messages.tsv:3: error: the name \"GR\xC3\x96SSE\" holds more than printable ASCII and tabs\n"},
    {"rows of messages", "messages.tsv", "id\tname\trow\n1\tA\t0\n2\tB\t1\n3\tC\t21999\n4\tD\t-1\n",
     "messages.tsv:2: error: row 0 is outside 1 to 21998\n"
     "messages.tsv:4: error: row 21999 is outside 1 to 21998\n"
     "messages.tsv:5: error: row -1 is outside 1 to 21998\n"},
    {"columns", "messages.tsv", "id\tid\tcolour\trow\n1\t1\tA\t2\n",
     "messages.tsv:1: error: column \"id\" stands twice\n"
     "messages.tsv:1: error: unknown column \"colour\"\n"
     "messages.tsv:1: error: column \"name\" is missing\n"
     "messages.tsv: error: holds no message\n"},
    {"empty file", "texts/en.tsv", "", "texts/en.tsv: error: has no line with the names of its columns\n"},
    {"fields", "texts/en.tsv", "row\ttext\n2\n3\ta\tb\n",
     "texts/en.tsv:2: error: has 1 fields instead of 2\n"
     "texts/en.tsv:3: error: has 3 fields instead of 2\n"},
    {"rows that take no text", "texts/en.tsv", "row\ttext\n-1\ta\n0\ta\n1\ta\n2\ta\n21999\ta\n22000\ta\n",
     "texts/en.tsv:2: error: row -1 stands after -1; rows must ascend without repetition\n"
     "texts/en.tsv:2: error: row -1 is outside 0 to 21999\n"
     "texts/en.tsv:3: error: row 0 must stay empty\n"
     "texts/en.tsv:4: error: row 1 must stay empty\n"
     "texts/en.tsv:6: error: row 21999 is the null row and takes no text\n"
     "texts/en.tsv:7: error: row 22000 is outside 0 to 21999\n"},
    {"order of rows", "texts/en.tsv", "row\ttext\n0\t\n1\t\n9\tb\n9\tc\n3\td\n",
     "texts/en.tsv:5: error: row 9 stands after 9; rows must ascend without repetition\n"
     "texts/en.tsv:6: error: row 3 stands after 9; rows must ascend without repetition\n"},
    {"escapes", "texts/en.tsv", "row\ttext\n2\ta\\rb\n3\tc\\\n4\t\\\\\\n\\t\n",
     "texts/en.tsv:2: error: unknown escape \"\\r\"; use \\n, \\t or \\\\\n"
     "texts/en.tsv:3: error: unknown escape \"\\\"; use \\n, \\t or \\\\\n"},
    {"bytes", "texts/en.tsv", std::string("row\ttext\n2\t\xFF\n3\ta\0b\n", 18),
     "texts/en.tsv:2: error: is not valid UTF-8 text\n"
     "texts/en.tsv:3: error: is not valid UTF-8 text\n"},
    {"images: good: gaps, shared files, blanks, capitals in the extension", "images.tsv",
     "id\tname\tfile\n2\tA\ta_1.0.svg\n9\tB\ta_1.0.svg\n10\tC\t \n11\tD\t\xE3\x80\x80\n12\tE\tX_b.PNG\n", ""},
    {"images: ids", "images.tsv",
     "id\tname\tfile\n0\tA\ta.png\n7\tB\ta.png\n7\tC\ta.png\n3\tD\ta.png\n5\tE\ta.png\nx\tF\ta.png\n",
     "images.tsv:2: error: id 0 is less than 1\n"
     "images.tsv:4: error: id 7 stands twice\n"
     "images.tsv:5: error: id 3 stands after 7; ids must ascend\n"
     "images.tsv:6: error: id 5 stands after 7; ids must ascend\n"
     "images.tsv:7: error: id \"x\" is not a whole number\n"},
    {"images: names", "images.tsv",
     "id\tname\tfile\n1\tA\ta.png\n2\t\ta.png\n3\tGR\xC3\x96SSE\ta.png\n4\tA\\nB\ta.png\n5\tA\ta.png\n",
     "images.tsv:3: error: the image has no name\n"
     "images.tsv:4: error: the name \"GR\xC3\x96SSE\" holds more than printable ASCII\n"
     "images.tsv:5: error: the name \"A\nB\" holds more than printable ASCII\n"
     "images.tsv:6: error: the name \"A\" stands in line 2 already\n"},
    {"images: files", "images.tsv",
     "id\tname\tfile\n1\tA\t\n2\tB\t../a.png\n3\tC\ta\\\\b.png\n4\tD\tgr\xC3\xB6sse.png\n5\tE\ta.png "
     "\n6\tF\t  \n"
     "7\tG\tx:a.png\n",
     "images.tsv:2: error: the image has no file; one blank stands for an image without a picture\n"
     "images.tsv:3: error: the file \"../a.png\" holds a path separator\n"
     "images.tsv:4: error: the file \"a\\b.png\" holds a path separator\n"
     "images.tsv:5: error: the file \"gr\xC3\xB6sse.png\" holds more than printable ASCII\n"
     "images.tsv:6: error: the file \"a.png \" begins or ends with a blank\n"
     "images.tsv:7: error: the file \"  \" begins or ends with a blank\n"
     "images.tsv:8: error: the file \"x:a.png\" holds a \":\", which marks external images\n"},
    {"images: extensions", "images.tsv", "id\tname\tfile\n1\tA\ta.bmp\n2\tB\t.png\n",
     "images.tsv:2: warning: the file \"a.bmp\" does not end in .png, .svg or .gif: never shown "
     "[-Wextensions]\n"
     "images.tsv:3: warning: the file \".png\" does not end in .png, .svg or .gif: never shown "
     "[-Wextensions]\n"},
    {"images: no image", "images.tsv", "id\tname\tfile\n", "images.tsv: error: holds no image\n"},
    {"properties", "packs/86/pack.conf", "# c\n\nfont_family = F\nfamily = F\ndirection=up\nrtl\n",
     "packs/86/pack.conf:4: error: unknown property \"family\"; known are font_family, direction and "
     "font\n"
     "packs/86/pack.conf:5: error: direction \"up\" is neither \"ltr\" nor \"rtl\"\n"
     "packs/86/pack.conf:6: error: is no \"key = value\" line\n"},
    {"no family", "packs/86/pack.conf", "direction = ltr\n",
     "packs/86/pack.conf: error: names no font_family\n"},
    {"fonts", "packs/86/pack.conf", "font_family = F\nfont = /nowhere/a.ttf\nfont = /nowhere/b.otf\n",
     "packs/86/pack.conf:2: warning: font \"/nowhere/a.ttf\" is not installed; the pack goes without "
     "[-Wfonts]\n"
     "packs/86/pack.conf:3: error: font \"/nowhere/b.otf\" does not end in .ttf\n"},
    {"rows of a pack", "packs/86/texts.tsv", "row\ttext\n3\ta\n3\tb\n-1\tc\n21999\td\nx\te\n1\tf\n0\t\n",
     "packs/86/texts.tsv:3: error: row 3 stands twice\n"
     "packs/86/texts.tsv:4: error: row -1 is outside 0 to 21998\n"
     "packs/86/texts.tsv:5: error: row 21999 is outside 0 to 21998\n"
     "packs/86/texts.tsv:6: error: row \"x\" is not a whole number\n"
     "packs/86/texts.tsv:7: error: row 1 must stay empty\n"},
    {"placeholders of a pack", "packs/86/texts.tsv", "row\ttext\n2\t%1\n3\t%1\n",
     "packs/86/texts.tsv:2: warning: row 2: placeholders none in en, %1 here [-Wplaceholders]\n"},
};

} // namespace

TEST(catalogue, reports_each_fault_with_its_place) {
    for (const auto& row : CONTENTS) {
        SCOPED_TRACE(row.name);
        const scratch_catalogue catalogue;
        catalogue.write(row.file, row.contents);
        EXPECT_EQ(catalogue.reports_of_reading(), row.reports);
    }
}

TEST(catalogue, a_missing_file_and_a_folder_in_its_place_are_errors) {
    const scratch_catalogue catalogue;
    std::filesystem::remove(catalogue.path() + "/texts/de.tsv");
    std::filesystem::remove(catalogue.path() + "/texts/ru.tsv");
    std::filesystem::create_directory(catalogue.path() + "/texts/ru.tsv");
    std::filesystem::remove_all(catalogue.path() + "/packs/86");
    EXPECT_EQ(catalogue.reports_of_reading(), "texts/de.tsv: error: cannot be opened for reading\n"
                                              "texts/ru.tsv: error: cannot be read\n"
                                              "packs/86/pack.conf: error: cannot be opened for reading\n"
                                              "packs/86/texts.tsv: error: cannot be opened for reading\n");
}

TEST(catalogue, placeholders_that_differ_are_warned_of) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/ja.tsv", "row\ttext\n2\t\n3\t%2 %1 100% %0 %\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\t%1 of %9\n3\t%1%2\n");
    catalogue.write("texts/de.tsv", "row\ttext\n2\t%9 %1 %1\n");
    for (const std::string language : {"fr", "es", "it", "nl"}) {
        catalogue.write("texts/" + language + ".tsv", "row\ttext\n");
    }
    catalogue.write("texts/ru.tsv", "row\ttext\n2\t%1\n3\tnone\n");
    EXPECT_EQ(catalogue.reports_of_reading(),
              "texts/ja.tsv:2: warning: row 2: placeholders %1 %9 in en, %1 in ru [-Wplaceholders]\n"
              "texts/ja.tsv:3: warning: row 3: placeholders %1 %2 in ja, none in ru [-Wplaceholders]\n");
}

TEST(catalogue, the_folder_of_a_pack_is_named_like_a_language_id) {
    const scratch_catalogue catalogue;
    const struct {
        const char* fault;
        std::vector<std::string> names;
    } rows[] = {
        {": error: the folder's name must be a language id, 1 to 65535 except 999\n",
         {"0", "999", "65536", "-86", "086", "86a", "hebrew", "99999999999"}},
        {nullptr, {"1", "65535"}},
    };
    for (const auto& row : rows) {
        for (const std::string& name : row.names) {
            catalogue.write_pack(name);
            EXPECT_EQ(catalogue.reports_of_reading(name),
                      row.fault == nullptr ? "" : "packs/" + name + row.fault);
        }
    }
}

TEST(tsv_table, utf8_is_well_formed) {
    EXPECT_TRUE(is_valid_utf8("a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xED\x9F\xBF\xEE\x80\x80"
                              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
    const char* const bad[] = {
        "\x80",
        "\xC1\xBF",
        "\xE0\x9F\xBF",
        "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80",
        "a\xC3",
        "\xE3\x81",
        "\xF0\x9F\x98",
        "\xC3(",
        "\xE3\x81(",
        "\xF0\x9F\x98(",
    };
    for (const char* text : bad) {
        EXPECT_FALSE(is_valid_utf8(text)) << testing::PrintToString(text);
    }
}

TEST(diagnostics, shows_the_first_200_and_counts_all) {
    std::ostringstream shown;
    diagnostics report(shown);
    for (std::size_t line = 1; line <= 201; ++line) {
        report.error({"f", line}, "bad");
    }
    report.warning("fonts", {"f", 1}, "odd");
    report.write_summary();
    const std::string end = "f:200: error: bad\n201 errors, 1 warning; the first 200 are shown\n";
    EXPECT_NE(shown.str().find(end), std::string::npos) << shown.str();
}
