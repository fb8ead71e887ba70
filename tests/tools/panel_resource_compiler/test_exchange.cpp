#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const std::string CONTROLS = "11\t\x01\x1F\xF0\x9F\x96\xA8\n";

/** What other programs could spoil: escapes, edges, blanks, empty texts, their stand-in, rows without
 * message. */
constexpr char ENGLISH[] =
    "row\ttext\n2\tCopy\n3\tPage %1 of %2\n4\t \\n Two\\nlines\\n\n5\ta\\\\nb\\t<&>\"'%\n"
    "6\t \n9\tno message\n11\t\x01\x7F\n12\t\xE2\x88\x85\n";
const std::string GERMAN =
    "# comment\nrow\ttext\n2\tKopie\n3\tSeite %1 von %2\n\n4\t \\n \\tZwei\\nZeilen\\n\n"
    "5\ta\\\\nb\\t<&>\"'%]]>\n6\t  \n8\tnur deutsch\n9\t\xE2\x88\x85\xE2\x88\x85\n"
    "10\t\n" +
    CONTROLS + "12\t\n";

class exchange : public testing::Test {
protected:
    exchange() {
        std::string messages = "id\tname\trow\n";
        for (int id = 2; id <= 10; id += id == 8 ? 2 : 1) {
            messages += std::to_string(id) + "\tMSG_" + std::to_string(id) + "\t" + std::to_string(id) + "\n";
        }
        catalogue_.write("messages.tsv", messages + "20\tMSG_AGAIN\t2\n");
        catalogue_.write("texts/en.tsv", ENGLISH);
        catalogue_.write("texts/de.tsv", GERMAN);
        catalogue_.write_pack("86", "font_family = F\n", GERMAN);
        catalogue_.write("ignore.tsv", "check\tsubject\tlanguage\treason\ncontrol-characters\t4\t*\tmeant\n"
                                       "control-characters\t5\t*\tmeant\n");
    }

    std::string export_as(const std::string& language, const std::string& format) const {
        const std::string file = "out/" + language + "." + format;
        const process_result result = catalogue_.run("export", {"--language", language, "--format", format,
                                                                "--output", catalogue_.folder().path(file)});
        EXPECT_EQ(result.exit_code, 0) << result.errors;
        return catalogue_.folder().read(file);
    }

    process_result import(const std::string& language, const std::string& file, const std::string& contents,
                          const std::vector<std::string>& more = {}) const {
        const std::string path = "out/" + file;
        catalogue_.folder().write(path, contents);
        std::vector<std::string> arguments = {"--language", language, catalogue_.folder().path(path)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return catalogue_.run("import", arguments);
    }

    std::string german() const { return catalogue_.folder().read("catalogue/texts/de.tsv"); }

    const scratch_catalogue catalogue_;
};

void replace(std::string& text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from << " in " << text;
    text.replace(at, from.size(), to);
}

std::string many(int letters) {
    std::string text;
    for (int i = 0; i < letters; ++i) {
        text += "\u00E4";
    }
    return text;
}

/** Removes the lines that hold a text. */
std::string without(std::string text, const std::string& part) {
    for (std::size_t at = 0; (at = text.find(part)) != std::string::npos;) {
        const std::size_t start = text.rfind('\n', at) + 1;
        text.erase(start, text.find('\n', at) + 1 - start);
    }
    return text;
}

} // namespace

TEST_F(exchange, every_text_comes_back_as_it_was) {
    std::string plain_german = without(GERMAN, "#");
    replace(plain_german, "\n\n", "\n");
    for (const std::string language : {"de", "86", "en"}) {
        for (const std::string format : {"po", "ts"}) {
            const std::string file = language == "86" ? "packs/86/texts.tsv" : "texts/" + language + ".tsv";
            const std::string before = catalogue_.folder().read("catalogue/" + file);
            const std::string exported = export_as(language, format);
            EXPECT_EQ(import(language, "a." + format, exported).exit_code, 0);
            EXPECT_EQ(catalogue_.folder().read("catalogue/" + file), before) << format;
            if (language == "en") {
                continue;
            }
            catalogue_.write(file, "row\ttext\n" + CONTROLS); // what arrives must not lean on what was there
            const process_result taken = import(language, "b." + format, without(exported, "exported"));
            EXPECT_EQ(taken.errors, "");
            EXPECT_EQ(catalogue_.folder().read("catalogue/" + file), plain_german) << format << taken.output;
            catalogue_.write(file, before);
        }
    }
    EXPECT_FALSE(std::filesystem::exists(catalogue_.path("confirmed/en.tsv"))) << "English is no translation";
}

TEST_F(exchange, an_import_takes_what_is_finished_and_never_merges_in_silence) {
    const std::string exported = export_as("de", "po");
    const std::string fuzzy = "#, fuzzy\nmsgctxt \"2\"";
    const std::string row_2 = "msgctxt \"2\"\nmsgid \"Copy\"\nmsgstr \"Kopie\"\n";
    const std::string again = row_2 + "\nmsgctxt \"3\"";
    const std::string edited = "msgstr \"Kopieren\"";
    const struct {
        const char* from; ///< of the PO file
        std::string to;
        const char* changed; ///< the catalogue's German text of row 2 by then
        std::vector<std::string> arguments;
        int exit_code;
        std::string tells;
        const char* text; ///< of row 2 at the end
    } rows[] = {
        {"msgstr \"Kopie\"", edited, "Kopie", {}, 0, "de: 0 new, 1 changed, 9 same, 0 removed\n", "Kopieren"},
        {"msgstr \"Kopie\"", edited, "Kopie", {"--dry-run"}, 0, "\n+2\tKopieren\n", "Kopie"},
        {"msgstr \"Kopie\"",
         edited,
         "Ablichtung",
         {},
         1,
         "text became \"Ablichtung\" since the export",
         "Ablichtung"},
        {"msgstr \"Kopie\"", edited, "Kopieren", {}, 0, "de: 0 new, 0 changed, 10 same", "Kopieren"},
        {"Seite",
         "Blatt",
         "Ablichtung",
         {},
         0,
         "de: 1 changed in the catalogue since the export and not in the",
         "Ablichtung"},
        {"msgid \"Copy\"", "msgid \"Copies\"", "Kopie", {}, 1, "the English text is \"Copy\" now", "Kopie"},
        {"msgid \"Copy\"",
         "msgid \"Copies\"",
         "Kopie",
         {"--skip-conflicts"},
         0,
         "de: 1 in conflict",
         "Kopie"},
        {"msgctxt \"2\"", "msgctxt \"7\"", "Kopie", {}, 1, "row 7: the English text is \"\" now", "Kopie"},
        {"msgctxt \"2\"",
         "msgctxt \"02\"",
         "Kopie",
         {},
         1,
         ": error: \"02\" is no row of the catalogue",
         "Kopie"},
        {"msgctxt \"2\"", "msgctxt \"21998\"", "Kopie", {}, 1, "\"21998\" is no row of the", "Kopie"},
        {"msgid \"Copy\"", "msgid \"a" + many(40) + '"', "Kopie", {}, 1, "\"a" + many(30) + "...\"", "Kopie"},
        {"msgctxt \"3\"", again, "Kopie", {}, 1, "duplicate message definition", "Kopie"},
        {"msgctxt \"3\"", "msgctxt \"A|2\"", "Kopie", {}, 1, "row 2 stands in line ", "Kopie"},
        {"msgctxt \"2\"", fuzzy, "Kopie", {}, 0, "9 same, 0 removed\nde: 1 unfinished", "Kopie"},
        {"Kopie\"", "\"", "Kopie", {"--accept-unfinished"}, 0, "9 same, 1 removed\n", ""},
        {"Seite %1 von %2", "%1 von %3", "Kopie", {}, 1, "\"%1 von %3\": %2 is missing; it", "Kopie"},
        {"Seite %1 von %2", "%1 %2 %2", "Kopie", {}, 1, "%2 stands twice; once in en", "Kopie"},
        {"\"Kopie\"", "\"K\\033\"", "Kopie", {}, 1, "row 2, \"K?\": holds U+001B, which the", "Kopie"},
        {"msgstr \"Kopie\"",
         "msgid_plural \"x\"\nmsgstr[0] \"Kopie\"",
         "Kopie",
         {},
         1,
         "plural forms",
         "Kopie"},
        {"msgctxt \"2\"\n", "", "Kopie", {}, 1, "\"Copy\" has no msgctxt, which names its row", "Kopie"},
        {"X-Panel-Language: de",
         "X-Panel-Language: fr",
         "Kopie",
         {},
         1,
         "holds the language fr, not de",
         "Kopie"},
        {"charset=UTF-8",
         "charset=ISO-8859-1",
         "Kopie",
         {},
         1,
         "charset is \"ISO-8859-1\"; save it as",
         "Kopie"},
        {"Kopie", "K\xF6pie", "Kopie", {}, 1, "is not UTF-8 text; save it as such [encoding]", "Kopie"},
        {"msgstr \"Kopie\"", "msgstr \"Kopie", "Kopie", {}, 1, ":21:", "Kopie"},
    };
    for (const auto& row : rows) {
        std::string file = exported;
        replace(file, row.from, row.to);
        std::string before = GERMAN;
        replace(before, "2\tKopie\n", std::string("2\t") + row.changed + "\n");
        catalogue_.write("texts/de.tsv", before);
        const process_result result = import("de", "a.po", file, row.arguments);
        EXPECT_EQ(result.exit_code, row.exit_code) << row.to << result.errors;
        EXPECT_NE((result.output + result.errors).find(row.tells), std::string::npos)
            << row.tells << " in " << result.output << result.errors;
        const std::string line = *row.text ? std::string("\n2\t") + row.text + "\n" : "row\ttext\n3\t";
        EXPECT_NE(german().find(line), std::string::npos) << row.to << german();
        EXPECT_EQ(row.exit_code == 0 || german() == before, true) << row.to << german();
    }
    std::string windows = "\xEF\xBB\xBF" + exported;
    for (std::size_t at = 0; (at = windows.find('\n', at)) != std::string::npos; at += 2) {
        windows.replace(at, 1, "\r\n");
    }
    catalogue_.write("texts/de.tsv", GERMAN);
    EXPECT_EQ(import("49", "w.po", windows).output, "de: 0 new, 0 changed, 10 same, 0 removed\n");
}

TEST_F(exchange, files_of_other_programs_that_hold_what_the_panel_has_not_are_refused) {
    const std::string exported = export_as("de", "ts");
    const struct {
        const char* from;
        const char* to;
        const char* tells;
    } rows[] = {
        {"<TS ", "<xliff ", "xliff"},
        {"</TS>", "", ": error: "},
        {"encoding=\"UTF-8\"", "encoding=\"klingon\"", "[exchange]"},
        {"<translation>Kopie<", "<translation><numerusform>Kopie</numerusform><",
         "\"numerusform\" within a text"},
        {"<message>", "<message numerus=\"yes\">", "has plural forms"},
        {">Kopie<", ">K\xF6pie<", "[exchange]"},
        {">Kopie<", ">&k;<", "[exchange]"},
        {">Kopie<", "><byte value=\"xD\"/><", "holds a carriage return"},
    };
    for (const auto& row : rows) {
        std::string file = exported;
        replace(file, row.from, row.to);
        const process_result result = import("de", "a.ts", file);
        EXPECT_EQ(result.exit_code, 1) << row.to << result.output;
        EXPECT_NE(result.errors.find(row.tells), std::string::npos) << row.to << result.errors;
        EXPECT_EQ(german(), GERMAN) << row.to;
    }
    std::string gone = exported;
    replace(gone, "<translation>Kopie", "<translation type=\"vanished\">Kopieren");
    EXPECT_EQ(import("de", "a.ts", gone).exit_code, 0);
    EXPECT_EQ(german(), GERMAN);
    EXPECT_EQ(import("de", "a.xlf", exported).exit_code, 2);
    EXPECT_EQ(import("pl", "a.ts", exported).exit_code, 2);
    EXPECT_EQ(catalogue_.run("import", {"--language", "de", catalogue_.path("none.ts")}).exit_code, 3);
    const std::string pipe = catalogue_.folder().path("out/pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDWR); // holds what is written
    EXPECT_EQ(catalogue_.run("export", {"--language", "de", "--format", "ts", "--output", pipe}).exit_code,
              0);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe)) << "written to, not replaced";
    ::close(reader);
}

TEST_F(exchange, a_translation_of_another_english_text_is_marked_until_it_is_confirmed) {
    const std::string mark = "#, fuzzy\nmsgctxt \"2\"";
    ASSERT_EQ(import("de", "a.po", export_as("de", "po")).exit_code, 0);
    EXPECT_EQ(export_as("de", "po").find(mark), std::string::npos);
    std::string english = ENGLISH;
    replace(english, "Copy", "Copies");
    catalogue_.write("texts/en.tsv", english);
    std::string stale = export_as("de", "po");
    EXPECT_NE(stale.find(mark), std::string::npos) << stale;
    EXPECT_NE(export_as("de", "ts").find("<translation type=\"unfinished\">Kopie<"), std::string::npos);
    ASSERT_EQ(import("de", "a.po", stale).exit_code, 0);
    EXPECT_NE(export_as("de", "po").find(mark), std::string::npos) << "nobody has looked at it";
    ASSERT_EQ(import("de", "a.po", stale, {"--accept-unfinished"}).exit_code, 0);
    EXPECT_NE(export_as("de", "po").find(mark), std::string::npos) << "taken, and still unfinished";
    replace(stale, mark, "msgctxt \"2\"");
    ASSERT_EQ(import("de", "a.po", stale).exit_code, 0);
    EXPECT_EQ(export_as("de", "po").find(mark), std::string::npos);
    std::string unfinished = export_as("de", "po");
    replace(unfinished, "msgctxt \"2\"", mark);
    replace(unfinished, "\"Kopie\"", "\"Ablichtung\"");
    ASSERT_EQ(import("de", "a.po", unfinished, {"--accept-unfinished"}).exit_code, 0);
    EXPECT_EQ(catalogue_.folder().read("catalogue/confirmed/de.tsv").find("\n2\t"), std::string::npos)
        << "what was confirmed is gone";
}

TEST_F(exchange, a_pack_that_check_refuses_is_not_exported) {
    for (const char* texts : {"22000\tx\n", "1\tx\n", "x\ty\n"}) {
        catalogue_.write_pack("86", "font_family = F\n", std::string("row\ttext\n") + texts);
        const process_result result =
            catalogue_.run("export", {"--language", "86", "--format", "po", "--output",
                                      catalogue_.folder().path("out/86.po")});
        EXPECT_EQ(result.exit_code, 1) << texts;
        EXPECT_FALSE(std::filesystem::exists(catalogue_.folder().path("out/86.po"))) << texts;
    }
}

TEST_F(exchange, programs_of_translators_take_what_is_exported) {
    export_as("de", "po");
    const std::string file = catalogue_.folder().path("out/de.po");
    const process_result result = run_process({"msgfmt", "-c", "-o", file + ".mo", file});
    EXPECT_EQ(result.exit_code, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
}
