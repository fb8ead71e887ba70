#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace {

const std::string FONTS = "/usr/share/fonts/truetype/";
const std::string DEJAVU = FONTS + "dejavu/DejaVuSans.ttf";

/** A machine that has the stand-in of the panel's Latin font alone: no Armenian, no Chinese. */
class glyphs : public testing::Test {
protected:
    glyphs() {
        const scratch_folder& folder = catalogue_.folder();
        folder.write("fonts.conf", "<fontconfig><dir>" + FONTS + "liberation2</dir><cachedir>" +
                                       folder.path("cache") + "</cachedir></fontconfig>");
        catalogue_.write("messages.tsv", "id\tname\trow\n1\tA\t2\n");
        catalogue_.write_pack("86", "font_family = Liberation Sans\n");
    }

    process_result run(const std::vector<std::string>& more) {
        std::vector<std::string> command = {RESOURCE_COMPILER, "glyphs", "--catalogue", catalogue_.path("")};
        command.insert(command.end(), more.begin(), more.end());
        return run_process(command, {{"FONTCONFIG_FILE", catalogue_.folder().path("fonts.conf")}});
    }

    /** What two checks find of German texts, without the place of the file. */
    std::string found_in(const std::string& texts, const std::vector<std::string>& more = {}) {
        catalogue_.write("texts/de.tsv", "row\ttext\n" + texts);
        std::vector<std::string> words = {"--language=de"};
        words.insert(words.end(), more.begin(), more.end());
        const std::string report = run(words).errors;
        std::string found;
        for (std::size_t at = 0, end = 0; (end = report.find('\n', at)) != std::string::npos; at = end + 1) {
            const std::string line = report.substr(at, end - at + 1);
            const std::size_t place = line.find("de.tsv:");
            const bool is_wanted =
                line.find("[glyph]\n") != line.npos || line.find("[fallback]\n") != line.npos;
            found += is_wanted && place != line.npos ? line.substr(place + 7) : "";
        }
        return found;
    }

    scratch_catalogue catalogue_;
};

const std::string NOWHERE = "\U000F0000"; // a character of private use
const std::string LIMBO = "error: U+F0000 \"" + NOWHERE + "\" is in no font: rows ";

} // namespace

TEST_F(glyphs, a_character_is_told_once_with_its_rows_and_messages) {
    std::string many_rows;
    std::string many_messages = "id\tname\trow\n";
    for (int row = 2; row <= 11; ++row) {
        many_rows += std::to_string(row) + "\tab" + NOWHERE + NOWHERE + '\n';
        many_messages += std::to_string(row + 20) + "\tA\t" + std::to_string(row == 3 ? 2 : row) + '\n';
    }
    const struct {
        std::string messages;
        std::string texts;
        std::string found;
    } rows[] = {
        {"", "2\tall is \u00E4 there\n", ""},
        {"", "2\ta\u200B\u200E\u2028\u2029\uFE00\uFE0F\u0085\U000E0001b\n", ""},
        {"", "2\tx" + NOWHERE + "\n", "2:4: " + LIMBO + "2; messages 1 [glyph]\n"},
        {"", "123\t" + NOWHERE + "\n", "2:5: " + LIMBO + "123 [glyph]\n"},
        {"", "2\t\u00E4\\n\\t\\\\" + NOWHERE + "\n", "2:10: " + LIMBO + "2; messages 1 [glyph]\n"},
        {"", "2\t\u053F\uFE10\n",
         "2:3: error: U+053F \"\u053F\" is in no font: rows 2; messages 1 [glyph]\n"
         "2:4: error: U+FE10 \"\uFE10\" is in no font: rows 2; messages 1 [glyph]\n"},
        {"id\tname\trow\n3\tA\t2\n4\tB\t5\n9\tC\t2\n", "2\t" + NOWHERE + "\n3\ta" + NOWHERE + "\n",
         "2:3: " + LIMBO + "2, 3; messages 3, 9 [glyph]\n"},
        {many_messages, many_rows,
         "2:5: " + LIMBO +
             "2, 3, 4, 5, 6, 7, 8, 9 and 2 more; messages 22, 23, 24, 25, 26, 27, 28, 29 and 2 more "
             "[glyph]\n"},
    };
    for (const auto& row : rows) {
        if (!row.messages.empty()) {
            catalogue_.write("messages.tsv", row.messages);
        }
        EXPECT_EQ(found_in(row.texts), row.found) << row.texts;
    }
}

TEST_F(glyphs, fonts_come_from_the_machine_the_packs_and_the_device) {
    const std::string armenian = "2\ta\u053F\n";
    const std::string fallback = "2:4: remark: U+053F \"\u053F\" is not in \"Liberation Sans\" but in "
                                 "\"DejaVu Sans\": rows 2; messages 1 [fallback]\n";
    const std::string missing = "2:4: error: U+053F \"\u053F\" is in no font: rows 2; messages 1 [glyph]\n";
    const scratch_folder& folder = catalogue_.folder();
    const struct {
        const char* file;
        std::string found;
    } rows[] = {{"tree/a.ttf", fallback}, {"tree/deep/er/b.otf", fallback}, {"tree/deep/a.txt", missing}};
    for (const auto& row : rows) {
        std::filesystem::create_directories(std::filesystem::path(folder.path(row.file)).parent_path());
        std::filesystem::create_symlink(DEJAVU, folder.path(row.file));
        EXPECT_EQ(found_in(armenian, {"--device-tree", folder.path("tree")}), row.found) << row.file;
        std::filesystem::remove(folder.path(row.file));
    }
    EXPECT_EQ(found_in(armenian), missing);
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    catalogue_.write_pack("972", "font_family = Liberation Sans\n font = " + FONTS +
                                     "liberation2/LiberationMono-Regular.ttf\nfont =  " + DEJAVU +
                                     "\nfont = " + folder.path("pipe") + '\n');
    EXPECT_EQ(found_in(armenian), fallback);
    EXPECT_EQ(found_in(armenian, {"-Wno-fallback"}), "");
}

TEST_F(glyphs, a_pack_may_name_several_families) {
    const std::string name = "packs/86/texts.tsv: remark: the font ";
    const struct {
        const char* families;
        const char* text;
        std::vector<std::string> found;
    } rows[] = {
        {"liberation sans", "a", {}},
        {"Liberation Sans, DejaVu Sans", "a\u053F", {}},
        {"DejaVu Sans ,Liberation Sans", "a\u053F", {}},
        {"Liberation Sans",
         "a\u053F",
         {"2:4: remark: U+053F \"\u053F\" is not in \"Liberation Sans\" but in \"DejaVu Sans\""}},
        {"Absent, Liberation Sans", "a", {name + "\"Absent\" is not here; checked with \""}},
        {"Absent, Gone",
         "a",
         {name + "\"Absent\" is not here", name + "\"Gone\" is not here; checked with \""}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.families);
        catalogue_.write_pack("86",
                              std::string("font_family = ") + row.families + "\nfont = " + DEJAVU + '\n',
                              std::string("row\ttext\n2\t") + row.text + '\n');
        const std::string report = run({"--language", "86"}).errors;
        for (const std::string& line : row.found) {
            EXPECT_NE(report.find(line), std::string::npos) << report;
        }
        EXPECT_EQ(report.empty(), row.found.empty()) << report;
    }
    EXPECT_NE(run({"--language=de"})
                  .errors.find("remark: the font \"Univers OTS\" is not here; checked with \"Liberation "
                               "Sans\" in its place [family]\n"),
              std::string::npos);
}

TEST_F(glyphs, what_fails_it_and_what_is_ignored) {
    const std::string header = "check\tsubject\tlanguage\treason\n";
    const std::string armenian = "row\ttext\n2\t\u053F\n";
    catalogue_.write_pack("86", "font_family = Liberation Sans\nfont = " + DEJAVU + "\n", armenian);
    catalogue_.write_pack("87", "font_family = Liberation Sans\n", "row\ttext\n2\t" + NOWHERE + "\n");
    const std::string unused = "ignore.tsv:2:1: warning: nothing is found of ";
    const struct {
        std::string ignored;
        std::vector<std::string> words;
        int exit_code;
        std::string told; ///< at the end
    } rows[] = {
        {"", {"--language=86"}, 0, "0 errors, 0 warnings, 1 remark\n"},
        {"", {"--language=86", "--fail-on=fallback"}, 1, "1 remark\n"},
        {"", {"--language=86", "--fail-on=warnings"}, 0, "1 remark\n"},
        {"", {"--language=86", "-Werror=fallback"}, 1, "1 error, 0 warnings\n"},
        {"", {"--language=86", "--language=87"}, 1, "1 error, 0 warnings, 1 remark\n"},
        {"", {"--language=87", "-Wno-error=glyph"}, 1, "1 error, 0 warnings\n"},
        {"glyph\tU+F0000\t87\tmeant\n", {"--language=87"}, 0, ""},
        {"glyph\tU+F0000\t*\tmeant\n", {"--language=87"}, 0, ""},
        {"glyph\tU+F0000\t86\tmeant\n", {"--language=87"}, 1, "1 error, 0 warnings\n"},
        {"fallback\tU+053F\t86\tmeant\n", {"--language=86"}, 0, ""},
        {"glyph\tU+0041\t87\told\nglyph\tU+F0000\t87\tmeant\n",
         {"--language=87", "--fail-on=warnings"},
         1,
         unused + "glyph in U+0041 any more; remove the entry [ignore-list]\n0 errors, 1 warning\n"},
        {"glyph\tU+0041\t*\told\n", {"--language=86", "--fail-on=warnings"}, 0, "0 warnings, 1 remark\n"},
        {"glyph\tU+0041\tde\told\n", {"--language=86", "--fail-on=warnings"}, 0, "0 warnings, 1 remark\n"},
        {"fallback\tU+0041\t86\told\n", {"--language=86", "-Wno-fallback", "--fail-on=warnings"}, 0, ""},
        {"fit\t9\t86\tof another command\n",
         {"--language=86", "--fail-on=warnings"},
         0,
         "0 warnings, 1 remark\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ignored + row.words.back());
        catalogue_.write("ignore.tsv", header + row.ignored);
        const process_result result = run(row.words);
        EXPECT_EQ(result.exit_code, row.exit_code);
        const std::size_t told = result.errors.size() - std::min(result.errors.size(), row.told.size());
        EXPECT_EQ(result.errors.substr(told), row.told);
        EXPECT_EQ(result.errors.empty(), row.told.empty()) << result.errors;
    }
    catalogue_.write("ignore.tsv", header + "glyph\tU+0041\t*\told\n");
    EXPECT_NE(run({}).errors.find("nothing is found of glyph in U+0041"), std::string::npos)
        << "of all languages";
    const process_result json = run({"--language=87", "--json"});
    EXPECT_EQ(json.errors, "");
    EXPECT_NE(json.output.find("\"check\": \"glyph\", \"language\": \"87\", \"subject\": \"U+F0000\""),
              std::string::npos)
        << json.output;
    EXPECT_NE(json.output.find("\"passed\": false}\n"), std::string::npos);
    EXPECT_NE(run({"--language=86", "--json"}).output.find("\"remarks\": 1, \"passed\": true}\n"),
              std::string::npos);
}
