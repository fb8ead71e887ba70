#include "picture_extent.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <map>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

struct size {
    int width = 0;
    int height = 0;
};

std::string sized(const char* name, const size& of) {
    return std::string("\"") + name + "\":" + (name == std::string("box") ? "[7,8," : "[") +
           std::to_string(of.width) + ',' + std::to_string(of.height) + "],";
}

/** A screen that shows one message; the box comes first in @p more. */
std::string screen(const std::string& name, const std::string& more, const std::string& language = "1") {
    return "{\"screen\":\"" + name + "\",\"language\":" + language + ",\"texts\":[{" + more + "\"x\":0}]}";
}

class fit : public testing::Test {
protected:
    process_result run(const std::vector<std::string>& screens, std::vector<std::string> more = {}) {
        std::string all;
        for (const std::string& each : screens) {
            all += (all.empty() ? "" : ",\n") + each;
        }
        report("{\"format\":\"panel_report/1\",\"screens\":[" + all + "]}");
        more.insert(more.end(), {"--report", catalogue_.folder().path("r.json"), "--all"});
        return catalogue_.run("fit", more);
    }
    void report(const std::string& contents) { catalogue_.folder().write("r.json", contents); }

    scratch_catalogue catalogue_;
};

/** What a run without room says that the texts need, by screen. */
std::map<std::string, size> needed_sizes(const std::string& report) {
    std::map<std::string, size> sizes;
    for (std::size_t at = 0; (at = report.find("screen \"", at)) != std::string::npos; ++at) {
        const std::size_t end = report.find('"', at + 8);
        size& found = sizes[report.substr(at + 8, end - at - 8)];
        std::sscanf(report.c_str() + end, "\": needs %d x %d", &found.width, &found.height);
    }
    return sizes;
}

constexpr char PLAIN[] = R"("id":"1","font":{"px":20},)";
constexpr char BOLD[] = R"("id":"1","font":{"px":20,"weight":75},)";
constexpr char SMALLER[] = R"("id":"1","font":{"px":99},"font_sizes":[20,10],)";
constexpr char WRAPPED[] = R"("id":"1","font":{"px":20},"wrap":true,)";
constexpr char FILLED[] = R"("id":"2","font":{"px":20},"arguments":["a","wide wide"],)";

} // namespace

TEST_F(fit, a_text_fits_a_box_of_its_very_size) {
    catalogue_.write("messages.tsv", "id\tname\trow\n1\tA\t2\n2\tB\t3\n3\tC\t4\n4\tD\t1\n");
    catalogue_.write("texts/de.tsv", "row\ttext\n2\tMore words\n3\t%2 and %1\n4\t\n");
    const size none = {1, 1};
    const std::vector<std::string> german = {"--language", "de"};
    process_result result =
        run({screen("plain", sized("box", none) + PLAIN), screen("bold", sized("box", none) + BOLD),
             screen("smaller", sized("box", none) + SMALLER), screen("wrapped", sized("box", none) + WRAPPED),
             screen("filled", sized("box", none) + FILLED)},
            german);
    std::map<std::string, size> sizes = needed_sizes(result.errors);
    const size plain = sizes["plain"];
    const size bold = sizes["bold"];
    const size smaller = sizes["smaller"];
    const size wrapped = sizes["wrapped"];
    const size filled = sizes["filled"];
    ASSERT_GT(bold.width, plain.width) << result.errors;
    ASSERT_LT(smaller.height, plain.height) << result.errors;
    ASSERT_LT(wrapped.width, plain.width) << result.errors;
    ASSERT_GT(wrapped.height, plain.height + 9) << result.errors;
    ASSERT_GT(filled.width, plain.width) << result.errors;
    const struct {
        const char* name;
        size box;
        const char* text;
        const char* font; ///< of the report; empty where the text fits
        size needed;
    } rows[] = {
        {"its very size", plain, PLAIN, "", {}},
        {"narrow by a pixel", {plain.width - 1, plain.height}, PLAIN, "20 pixels, on one line", plain},
        {"low by a pixel", {plain.width, plain.height - 1}, PLAIN, "20 pixels, on one line", plain},
        {"bold", bold, BOLD, "", {}},
        {"bold in the room of plain", plain, BOLD, "20 pixels, on one line", bold},
        {"smaller size", smaller, SMALLER, "", {}},
        {"no size", {smaller.width - 1, 99}, SMALLER, "10 pixels, on one line", smaller},
        {"larger size first", plain, R"("id":"1","font_sizes":[20,30],)", "", {}},
        {"wrapped", wrapped, WRAPPED, "", {}},
        {"wrapped and low", {wrapped.width, wrapped.height - 1}, WRAPPED, "20 pixels", wrapped},
        {"word wider than its box", {wrapped.width - 1, 99}, WRAPPED, "20 pixels", wrapped},
        {"arguments", filled, FILLED, "", {}},
        {"arguments of a narrow box", {filled.width - 1, 99}, FILLED, "20 pixels, on one line", filled},
        {"other arguments", filled, R"("id":"2","font":{"px":20},"arguments":["wide wide","a"],)", "", {}},
        {"id as number", {1, 2}, R"("id":1,"font":{"px":20},)", "20 pixels, on one line", plain},
        {"no text", none, R"("id":"3","font":{"px":20},)", "", {}},
        {"row without text", none, R"("id":"4","font":{"px":20},)", "", {}},
        {"unknown id", none, R"("id":"7","font":{"px":20},)", "", {}},
        {"no id", none, R"("font":{"px":20},)", "", {}},
        {"no font", none, R"("id":"1",)", "", {}},
        {"no height", {5, 0}, PLAIN, "", {}},
    };
    std::vector<std::string> screens = {
        screen("room",
               sized("box", none) + sized("room", plain) + R"("id":"1","font":{"px":20},"weight":1,)"),
        screen("room of one number", sized("box", {1, 3}) + "\"room\":[999]," + PLAIN)};
    std::string expected = "texts/de.tsv:2:3: warning: message 1 on screen \"room of one number\": needs " +
                           std::to_string(plain.width) + " x " + std::to_string(plain.height) +
                           ", has 1 x 3 at 20 pixels, on one line, where language 1 is laid out [fit]\n";
    for (const auto& row : rows) {
        screens.push_back(screen(row.name, sized("box", row.box) + row.text));
        if (row.font[0] != '\0') {
            const bool is_filled = row.text == std::string(FILLED);
            expected += std::string("texts/de.tsv:") + (is_filled ? "3:3" : "2:3") + ": warning: message " +
                        (is_filled ? "2" : "1") + " on screen \"" + row.name + "\": needs " +
                        std::to_string(row.needed.width) + " x " + std::to_string(row.needed.height) +
                        ", has " + std::to_string(row.box.width) + " x " + std::to_string(row.box.height) +
                        " at " + row.font + ", where language 1 is laid out [fit]\n";
        }
    }
    screens.push_back(screen("told before", sized("box", {1, 2}) + R"("id":"1","font":{"px":20},)"));
    result = run(screens, german);
    EXPECT_EQ(result.errors, expected + "de: 16 texts measured\n0 errors, 9 warnings\n");
    EXPECT_EQ(result.exit_code, 0);
}

TEST_F(fit, boxes_differ_by_all_that_changes_a_text) {
    const std::string box = sized("box", {3, 3});
    const std::vector<std::string> more = {PLAIN,
                                           BOLD,
                                           SMALLER,
                                           WRAPPED,
                                           FILLED,
                                           R"("id":"2","font":{"px":20},)",
                                           R"("id":"1","font":{"px":21},)"};
    std::vector<std::string> screens = {screen("w", sized("box", {4, 3}) + PLAIN),
                                        screen("h", sized("box", {3, 4}) + PLAIN),
                                        screen("de", box + PLAIN, "49")};
    for (const std::string& each : more) {
        screens.push_back(screen("a", box + each));
        screens.push_back(screen("b", box + each));
    }
    catalogue_.write("messages.tsv", "id\tname\trow\n1\tA\t2\n2\tB\t2\n");
    EXPECT_EQ(run(screens, {"--language=fr"}).errors.find("fr: 9 texts measured\n0 errors, 9 warnings\n"),
              run(screens, {"--language=33"}).errors.find("fr: "));
}

TEST_F(fit, a_language_is_measured_where_it_is_laid_out) {
    const struct {
        const char* name;
        std::vector<std::string> screens; ///< the language that each shows
        std::string found;                ///< languages that are told not to fit, with their screens
    } rows[] = {
        {"own boxes, else those of English",
         {"33", "1", "49", "1,\"option_language\":86", "49,\"option_language\":0"},
         "ja 1 1;en 1 ;de 49 ;de 49,\"option_language\":0 ;fr 33 ;es 1 1;it 1 1;nl 1 1;ru 1 1;86 "
         "1,\"option_language\":86 ;"},
        {"no English: the first",
         {"33", "49"},
         "ja 33 33;en 33 33;de 49 ;fr 33 ;es 33 33;it 33 33;nl 33 33;ru 33 33;86 33 33;"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> screens;
        for (const std::string& language : row.screens) {
            std::string name = language;
            name.erase(std::remove(name.begin(), name.end(), '"'), name.end());
            const int width = 2 + static_cast<int>(screens.size());
            screens.push_back(screen(name, sized("box", {width, 3}) + PLAIN, language));
        }
        const process_result result = run(screens, {"--json"});
        EXPECT_EQ(result.errors, "") << row.name;
        std::string found;
        for (std::size_t at = 0; (at = result.output.find("\"language\": \"", at)) != std::string::npos;
             ++at) {
            const std::string line = result.output.substr(at, result.output.find('\n', at) - at);
            const std::size_t name = line.find("screen \\\"") + 9;
            const std::size_t where = line.find("where language ");
            EXPECT_NE(line.find("\"subject\": \"1\""), std::string::npos) << line;
            found += line.substr(13, line.find('"', 13) - 13) + ' ' +
                     line.substr(name, line.find("\\\"", name) - name) + ' ' +
                     (where == std::string::npos
                          ? ""
                          : line.substr(where + 15, line.find(' ', where + 15) - where - 15)) +
                     ';';
        }
        std::string expected = row.found;
        expected.erase(std::remove(expected.begin(), expected.end(), '"'), expected.end());
        EXPECT_EQ(found, expected) << row.name;
    }
}

TEST_F(fit, what_cannot_be_measured_is_told) {
    const std::string folder = catalogue_.folder().path("");
    catalogue_.folder().write("plain", "");
    ASSERT_EQ(mkfifo((folder + "pipe").c_str(), 0600), 0);
    const std::string good =
        "{\"format\":\"panel_report/1\",\"screens\":[" + screen("s", sized("box", {1, 1}) + PLAIN) + "]}";
    const std::string here = folder + "r.json";
    const struct {
        std::string report;
        std::vector<std::string> more;
        int exit_code;
        std::string fault;
    } rows[] = {
        {good, {"--report", folder + "none"}, 3, folder + "none: cannot be read"},
        {good, {"--report", folder + "catalogue"}, 3, folder + "catalogue: cannot be read"},
        {good, {"--report", folder + "pipe"}, 3, folder + "pipe: cannot be read"},
        {"{", {}, 3, here + ": is no report of the simulator (unterminated object)"},
        {"{\"format\":\"panel_report/2\"}",
         {},
         3,
         here + ": is no report of the simulator (its format is not panel_report/1)"},
        {"{\"format\":\"panel_report/1\",\"screens\":[{\"texts\":[{}]}]}",
         {},
         3,
         here + ": shows no text on any screen"},
        {good, {"--device-tree", folder + "none"}, 3, folder + "none: no such folder"},
        {good, {"--device-tree", folder + "plain"}, 3, folder + "plain: no such folder"},
        {good,
         {"--sheet", folder + "plain/s", "--language=de"},
         3,
         folder + "plain/s/fit-de-01.png: cannot be written"},
        {good, {"--language", "Dutch"}, 2, "--language \"Dutch\" is no language of the catalogue"},
        {good, {"--language=de", "--language=8"}, 2, "--language \"8\" is no language of the catalogue"},
        {good, {"--fail-on", "glyph"}, 2, "unknown check \"glyph\"; known are warnings, fit"},
        {good, {"-Wno-fitt"}, 2, "unknown check \"fitt\"; known are "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        report(row.report);
        std::vector<std::string> words = {"--report", here};
        words.insert(words.end(), row.more.begin(), row.more.end());
        const process_result result = run_process([&] {
            std::vector<std::string> all = {RESOURCE_COMPILER, "fit", "--catalogue", catalogue_.path("")};
            all.insert(all.end(), words.begin(), words.end());
            return all;
        }());
        EXPECT_EQ(result.exit_code, row.exit_code);
        EXPECT_NE(result.errors.find("panel_resource_compiler: " + row.fault), std::string::npos)
            << result.errors;
    }
}

TEST_F(fit, sheets_show_what_is_outside_its_box) {
    const QRgb red = qRgb(0xe5, 0x48, 0x4d);
    const QRgb frame = qRgb(0x3f, 0xa7, 0xe0);
    catalogue_.write("texts/de.tsv", "row\ttext\n2\t-------------------------------- --------\n");
    catalogue_.write("texts/fr.tsv", "row\ttext\n2\tשלום שלום שלום שלום\n");
    const std::string sheets = catalogue_.folder().path("a/s");
    const process_result result =
        run({screen("s", sized("box", {50, 40}) + PLAIN), screen("t", sized("box", {41, 12}) + WRAPPED)},
            {"--language=de", "--language=fr", "--sheet", sheets});
    EXPECT_NE(result.errors.find(sheets + "/fit-de-01.png\n"), std::string::npos) << result.errors;
    const QImage german(QString::fromStdString(sheets + "/fit-de-01.png"));
    const QImage hebrew(QString::fromStdString(sheets + "/fit-fr-01.png"));
    // Each picture shows two entries: the first of the long line needs two columns.
    const int column = 330;
    const QRect first = extent_of(german.copy(0, 0, column, german.height()), frame);
    EXPECT_EQ(first.size(), QSize(50, 40));
    EXPECT_EQ(extent_of(german.copy(first), red), QRect()) << "white within";
    const QRect outside = extent_of(german.copy(first.right() + 1, 0, column, german.height()), red);
    EXPECT_GT(outside.width(), 100);
    EXPECT_EQ(outside.left(), 0) << "goes on where the box ends";
    const QRect second = extent_of(german.copy(column, 0, german.width() - column, german.height()), frame);
    EXPECT_EQ(second.size(), QSize(41, 12));
    EXPECT_GT(extent_of(german.copy(column, second.bottom() + 1, column, german.height()), red).height(), 20)
        << "wrapped";
    const QRect right = extent_of(hebrew.copy(0, 0, column, hebrew.height()), frame);
    EXPECT_EQ(right.size(), QSize(50, 40));
    EXPECT_GT(extent_of(hebrew.copy(0, 0, right.left(), hebrew.height()), red).width(), 40);
    EXPECT_EQ(extent_of(hebrew.copy(right.right() + 1, 0, column - right.right() - 1, hebrew.height()), red),
              QRect());
}

TEST_F(fit, sheets_are_bounded_and_replace_those_of_an_earlier_run) {
    const std::string sheets = catalogue_.folder().path("s");
    const auto files = [&sheets] {
        return std::distance(fs::directory_iterator(sheets), fs::directory_iterator());
    };
    std::vector<std::string> screens = {screen("tall", sized("box", {1, 100000}) + PLAIN)};
    for (int i = 0; i < 1300; ++i) {
        screens.push_back(screen("s", sized("box", {1, 1}) + R"("id":"1","font":{"px":9},"arguments":[")" +
                                          std::to_string(i) + "\"],"));
    }
    const std::vector<std::string> words = {"--language=de", "--sheet", sheets};
    const process_result result = run(screens, words);
    EXPECT_NE(result.errors.find("\nde: the first 1000 of 1301 texts that do not fit are drawn\n"),
              std::string::npos);
    EXPECT_GT(files(), 2);
    EXPECT_LT(files(), 12);
    for (const auto& entry : fs::directory_iterator(sheets)) {
        EXPECT_LT(QImage(QString::fromStdString(entry.path().string())).height(), 3000) << entry.path();
    }
    catalogue_.folder().write("s/fit-fr-01.png", "of another language");
    EXPECT_EQ(run({screens[0]}, words).errors.find("the first"), std::string::npos);
    EXPECT_EQ(files(), 2);
    catalogue_.write("ignore.tsv", "check\tsubject\tlanguage\treason\nfit\t1\tde\tmeant\n");
    EXPECT_EQ(run({screens[0]}, words).errors, "de: 1 texts measured\n");
    EXPECT_EQ(files(), 1) << "what is ignored is not drawn";
}
