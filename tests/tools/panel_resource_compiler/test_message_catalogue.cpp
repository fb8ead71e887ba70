#include "message_catalogue.h"
#include "scratch_catalogue.h"
#include "tsv_table.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(message_catalogue, reports_each_fault_with_its_place) {
    const struct {
        const char* name;
        const char* file;
        std::string contents;
        const char* reports;
    } rows[] = {
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
        {"no message", "messages.tsv", "id\tname\trow\n# none\n", "messages.tsv: error: holds no message\n"},
        {"empty file", "texts/en.tsv", "",
         "texts/en.tsv: error: has no line with the names of its columns\n"},
        {"fields", "texts/en.tsv", "row\ttext\n2\n3\ta\tb\n4\n",
         "texts/en.tsv:2: error: has 1 fields instead of 2\n"
         "texts/en.tsv:3: error: has 3 fields instead of 2\n"
         "texts/en.tsv:4: error: has 1 fields instead of 2\n"},
        {"rows that take no text", "texts/en.tsv", "row\ttext\n-1\ta\n0\ta\n1\ta\n2\ta\n21999\ta\n22000\ta\n",
         "texts/en.tsv:2: error: row -1 stands after -1; rows must ascend without repetition\n"
         "texts/en.tsv:2: error: row -1 is outside 0 to 21999\n"
         "texts/en.tsv:3: error: row 0 must stay empty\n"
         "texts/en.tsv:4: error: row 1 must stay empty\n"
         "texts/en.tsv:6: error: row 21999 is the null row and takes no text\n"
         "texts/en.tsv:7: error: row 22000 is outside 0 to 21999\n"},
        {"empty texts where none may stand", "texts/en.tsv", "row\ttext\n0\t\n1\t\n", ""},
        {"order of rows", "texts/en.tsv", "row\ttext\n2\ta\n9\tb\n9\tc\n3\td\n",
         "texts/en.tsv:4: error: row 9 stands after 9; rows must ascend without repetition\n"
         "texts/en.tsv:5: error: row 3 stands after 9; rows must ascend without repetition\n"},
        {"escapes", "texts/en.tsv", "row\ttext\n2\ta\\rb\n3\tc\\\n4\t\\\\\\n\\t\n",
         "texts/en.tsv:2: error: unknown escape \"\\r\"; use \\n, \\t or \\\\\n"
         "texts/en.tsv:3: error: unknown escape \"\\\"; use \\n, \\t or \\\\\n"},
        {"bytes", "texts/en.tsv", std::string("row\ttext\n2\t\xFF\n3\ta\0b\n", 18),
         "texts/en.tsv:2: error: is not valid UTF-8 text\n"
         "texts/en.tsv:3: error: is not valid UTF-8 text\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scratch_catalogue catalogue;
        catalogue.write(row.file, row.contents);
        EXPECT_EQ(catalogue.reports_of_reading(), row.reports);
    }
}

TEST(message_catalogue, a_missing_file_and_a_folder_in_its_place_are_errors) {
    const scratch_catalogue catalogue;
    std::filesystem::remove(catalogue.path() + "/texts/de.tsv");
    std::filesystem::remove(catalogue.path() + "/texts/ru.tsv");
    std::filesystem::create_directory(catalogue.path() + "/texts/ru.tsv");
    EXPECT_EQ(catalogue.reports_of_reading(), "texts/de.tsv: error: cannot be opened for reading\n"
                                              "texts/ru.tsv: error: cannot be read\n");
}

TEST(message_catalogue, placeholders_that_differ_are_a_class_of_warnings) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/ja.tsv", "row\ttext\n2\t\n3\t%2 %1 100% %0 %\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\t%1 of %9\n3\t%1%2\n");
    catalogue.write("texts/de.tsv", "row\ttext\n2\t%9 %1 %1\n");
    for (const std::string language : {"fr", "es", "it", "nl", "ru"}) {
        catalogue.write("texts/" + language + ".tsv", "row\ttext\n");
    }
    catalogue.write("texts/ru.tsv", "row\ttext\n2\t%1\n3\tnone\n");
    const std::string place_2 = "texts/ja.tsv:2: ";
    const std::string text_2 = "row 2: placeholders %1 %9 in en, %1 in ru";
    const std::string text_3 = "row 3: placeholders %1 %2 in ja, none in ru";
    EXPECT_EQ(catalogue.reports_of_reading(), place_2 + "warning: " + text_2 + " [-Wplaceholders]\n" +
                                                  "texts/ja.tsv:3: warning: " + text_3 +
                                                  " [-Wplaceholders]\n");
    EXPECT_EQ(catalogue.reports_of([&](diagnostics& report) {
        report.make_class_an_error(WARNING_PLACEHOLDERS);
        read_message_catalogue(catalogue.path(), report);
        EXPECT_EQ(report.error_count(), 2U);
    }),
              place_2 + "error: " + text_2 + " [-Werror=placeholders]\n" +
                  "texts/ja.tsv:3: error: " + text_3 + " [-Werror=placeholders]\n");
    EXPECT_EQ(catalogue.reports_of([&](diagnostics& report) {
        report.disable_class(WARNING_PLACEHOLDERS);
        read_message_catalogue(catalogue.path(), report);
    }),
              "");
}

TEST(tsv_table, utf8_is_well_formed) {
    const char* const good[] = {"",
                                "a\x7F",
                                "\xC2\x80\xDF\xBF",
                                "\xE0\xA0\x80\xEF\xBF\xBF",
                                "\xED\x9F\xBF\xEE\x80\x80",
                                "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"};
    for (const char* text : good) {
        EXPECT_TRUE(is_valid_utf8(text)) << testing::PrintToString(text);
    }
    const char* const bad[] = {"\x80",
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
                               "\xF0\x9F\x98("};
    for (const char* text : bad) {
        EXPECT_FALSE(is_valid_utf8(text)) << testing::PrintToString(text);
    }
}

TEST(diagnostics, shows_the_first_200_and_counts_all) {
    std::string summary = "201 errors, 1 warning; the first 200 are shown\n";
    const scratch_catalogue catalogue;
    const std::string shown = catalogue.reports_of([](diagnostics& report) {
        for (std::size_t line = 1; line <= 201; ++line) {
            report.error({"f", line}, "bad");
        }
        report.warning("fonts", {"f", 1}, "odd");
        report.write_summary();
    });
    EXPECT_NE(shown.find("f:200: error: bad\n" + summary), std::string::npos) << shown;
}
