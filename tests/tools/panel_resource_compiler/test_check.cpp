#include "checks.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

using namespace velarion;

namespace {

using language_map = std::map<std::string, std::string>;

/** A catalogue whose message 1 has a text of its own in every language, on row 2. */
const language_map TEXTS = {{"ja", "色"},   {"en", "Color"},  {"de", "Farbe"}, {"fr", "Couleur"},
                            {"es", "Tono"}, {"it", "Colore"}, {"nl", "Kleur"}, {"ru", "Цвет"}};

void write_texts(const scratch_catalogue& catalogue, const language_map& rows) {
    for (const auto& [language, text] : TEXTS) {
        const auto row = rows.find(language);
        catalogue.write("texts/" + language + ".tsv",
                        "row\ttext\n2\t" + text + "\n" +
                            (row == rows.end() ? "" : "3\t" + row->second + "\n"));
    }
    catalogue.write("messages.tsv", "id\tname\trow\n1\tMSG_ONE\t2\n3\tMSG_THREE\t3\n");
}

/** The same text in every language but some. */
language_map all_but(const std::string& text, const language_map& others) {
    language_map texts = others;
    for (const auto& language : TEXTS) {
        texts.emplace(language.first, text);
    }
    return texts;
}

/** The lines of a report that a check wrote. */
std::string found_by(const std::string& check, const std::string& report) {
    std::string lines;
    for (std::size_t start = 0, end = 0; (end = report.find('\n', start)) != std::string::npos;
         start = end + 1) {
        const std::string line = report.substr(start, end - start + 1);
        lines += line.find(" [" + check + "]\n") != std::string::npos ? line : "";
    }
    return lines;
}

const struct {
    const char* check;
    language_map texts; ///< of row 3
    const char* report;
} TEXT_RULES[] = {
    {"placeholders",
     all_but("%1 %2 100% %0", {{"de", "%2 %1 %1"}, {"fr", "%2"}, {"es", "\\n\\\\%1 %2 %3"}, {"nl", ""}}),
     "texts/de.tsv:3:9: error: row 3: %1 stands twice; once in ja, en, it, ru [placeholders]\n"
     "texts/fr.tsv:3:3: error: row 3: %1 is missing; it stands in ja, en, it, ru [placeholders]\n"
     "texts/es.tsv:3:13: error: row 3: %3 is too many; it does not stand in ja, en, it, ru [placeholders]\n"},
    {"placeholders", all_but("%1", {{"en", "no"}}),
     "texts/en.tsv:3:3: error: row 3: %1 is missing; it stands in ja, de, fr, es, it, nl, ru "
     "[placeholders]\n"},
    {"placeholders",
     {{"ja", "no"}, {"en", "%1"}},
     "texts/ja.tsv:3:3: error: row 3: %1 is missing; it stands in en [placeholders]\n"},
    {"placeholders", all_but("%9 %0", {{"de", "%9"}, {"fr", "%0"}}),
     "texts/fr.tsv:3:3: error: row 3: %9 is missing; it stands in ja, en, de, es, it, nl, ru "
     "[placeholders]\n"},
    {"placeholders", all_but("", {{"en", "%1 %1 %1 %1"}, {"ja", "%1"}}),
     "texts/ja.tsv:3:3: error: row 3: %1 stands once; 4 times in en [placeholders]\n"},
    {"control-characters", all_but("a", {{"de", "a\xC2\x80"}, {"fr", "a\\tb"}, {"ru", "a\\nb"}}),
     "texts/de.tsv:3:4: error: row 3: holds U+0080, which the panel cannot show; remove it (a line break is "
     "\\n) "
     "[control-characters]\n"
     "texts/fr.tsv:3:4: error: row 3: holds U+0009, which the panel cannot show; remove it (a line break is "
     "\\n) "
     "[control-characters]\n"},
    {"control-characters",
     all_but("a", {{"de", "\x7F"}, {"fr", "\uFDD0"}, {"es", "\uFFFE"}, {"it", "\u2028"}, {"nl", "\u00A0."}}),
     "texts/de.tsv:3:3: error: row 3: holds U+007F, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/fr.tsv:3:3: error: row 3: holds U+FDD0, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/es.tsv:3:3: error: row 3: holds U+FFFE, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/it.tsv:3:3: error: row 3: holds U+2028, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"},
    {"control-characters",
     all_but("a", {{"de", "\u2029"}, {"fr", "b\uFEFF"}, {"es", "\uFFFD"}, {"it", "\U0001FFFF"}}),
     "texts/de.tsv:3:3: error: row 3: holds U+2029, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/fr.tsv:3:4: error: row 3: holds U+FEFF, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/es.tsv:3:3: error: row 3: holds U+FFFD, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"
     "texts/it.tsv:3:3: error: row 3: holds U+1FFFF, which the panel cannot show; remove it (a line break is "
     "\\n) [control-characters]\n"},
    {"length", all_but("a", {{"it", std::string(4097, 'a')}, {"nl", std::string(4096, 'a')}}),
     "texts/it.tsv:3:3: error: row 3: has 4097 bytes; a text may have 4096 [length]\n"},
    {"missing",
     {{"ja", "b"}, {"en", "a"}, {"de", ""}, {"fr", " \xC2\xA0"}, {"es", "b"}, {"it", "b"}, {"nl", "b"}},
     "texts/de.tsv:3:3: warning: row 3: is empty; the text in en is \"a\" [missing]\n"
     "texts/fr.tsv:3:3: warning: row 3: is blank; the text in en is \"a\" [missing]\n"
     "texts/ru.tsv:2: warning: row 3: has no line here, where it belongs behind this one; the text in en is "
     "\"a\" "
     "[missing]\n"
     "packs/86/texts.tsv:2: warning: row 3: has no line here, where it belongs behind this one; the text in "
     "en is "
     "\"a\" [missing]\n"},
    {"missing",
     {},
     "messages.tsv:3: warning: message 3, MSG_THREE: row 3 has no text in any language; row 1 is for "
     "messages without one [missing]\n"},
    {"edge-blanks", all_but("a", {{"de", " a"}, {"ja", "a\xE3\x80\x80"}}),
     "texts/ja.tsv:3:4: warning: row 3: ends with a blank, U+3000 [edge-blanks]\n"
     "texts/de.tsv:3:3: warning: row 3: begins with a blank, U+0020 [edge-blanks]\n"},
    {"line-breaks", all_but("b\\nc", {{"en", "a\\nb"}, {"it", "b\\nc\\nd"}}),
     "texts/it.tsv:3:3: warning: row 3: has 2 line breaks; the English text has 1 [line-breaks]\n"},
    {"line-breaks", {{"en", "a\\nb"}, {"de", ""}, {"fr", " "}}, ""},
    {"line-breaks", {{"en", " "}, {"de", "a\\nb"}}, ""},
    {"end-punctuation", {{"en", "Wait."}, {"de", ""}, {"fr", " "}}, ""},
    {"end-punctuation",
     {{"en", "ca. 9 appr."}, {"de", "etwa"}, {"ja", "後：」"}, {"fr", "abcdef."}, {"nl", "abcde."}},
     "texts/ja.tsv:3:5: warning: row 3: ends with a colon; the English text ends with a full stop "
     "[end-punctuation]\n"},
    {"end-punctuation",
     {{"en", "Two boxes"}, {"de", "abcdef."}, {"fr", "abcde."}, {"es", "a!)\u00A0"}, {"nl", "a :"}},
     "texts/de.tsv:3:9: warning: row 3: ends with a full stop; the English text ends with no punctuation "
     "[end-punctuation]\n"
     "texts/es.tsv:3:6: warning: row 3: ends with an exclamation mark; the English text ends with no "
     "punctuation [end-punctuation]\n"
     "texts/nl.tsv:3:5: warning: row 3: ends with a colon; the English text ends with no punctuation "
     "[end-punctuation]\n"},
    {"end-punctuation",
     {{"en", "Wait."}, {"ja", "待つ。"}, {"de", "Warten"}, {"fr", "x (Attendez.)"}, {"es", "¡Espere!"}},
     "texts/de.tsv:3:8: warning: row 3: ends with no punctuation; the English text ends with a full stop "
     "[end-punctuation]\n"
     "texts/es.tsv:3:10: warning: row 3: ends with an exclamation mark; the English text ends with a full "
     "stop "
     "[end-punctuation]\n"},
    {"end-punctuation",
     {{"en", "Go…"}, {"de", "Geht."}, {"ja", "中！"}},
     "texts/ja.tsv:3:4: warning: row 3: ends with an exclamation mark; the English text ends with an "
     "ellipsis "
     "[end-punctuation]\n"
     "texts/de.tsv:3:7: warning: row 3: ends with a full stop; the English text ends with an ellipsis "
     "[end-punctuation]\n"},
    {"quoted-names", {{"en", "a"}, {"de", "„Farbe“ x“"}, {"nl", "‘Kleur’ x’"}}, ""},
    {"quoted-names",
     {{"en", "“%0 kind” “%9 kind”"}},
     "texts/en.tsv:3:4: warning: row 3: quotes \"%0 kind\", which is no text [quoted-names]\n"},
    {"quoted-names",
     {{"en", "a"}, {"nl", "‘Foto’s’"}},
     "texts/nl.tsv:3:4: warning: row 3: quotes \"Foto’s\", which is no text [quoted-names]\n"},
    {"quoted-names", {{"en", "a"}, {"fr", "«\u00A0Couleur\u00A0?\u00A0!\u00A0»"}}, ""},
    {"end-punctuation", {{"en", "Go…"}, {"ja", "中です。"}, {"de", "Geht..."}, {"fr", "Va…"}}, ""},
    {"end-punctuation",
     {{"en", "%1 minutes"}, {"de", "%1 Min."}, {"ru", "Вы ждёте минуту."}},
     "texts/ru.tsv:3:18: warning: row 3: ends with a full stop; the English text ends with no punctuation "
     "[end-punctuation]\n"},
    {"inverted-marks",
     {{"en", "Go?"}, {"es", "Va?"}, {"de", "Geht?"}},
     "texts/es.tsv:3:5: warning: row 3: has 0 \"¿\" and 1 \"?\" [inverted-marks]\n"},
    {"inverted-marks", {{"en", "Go!"}, {"es", "¡Va!"}, {"de", "Geht!"}}, ""},
    {"inverted-marks",
     {{"en", "Go!"}, {"es", "Va ¡"}, {"de", "¡Geht"}},
     "texts/es.tsv:3:6: warning: row 3: has 1 \"¡\" and 0 \"!\" [inverted-marks]\n"},
    {"no-break-blanks", {{"en", "a"}, {"fr", "! Va\u202F?! b\u00A0; c\u00A0: d «"}}, ""},
    {"no-break-blanks",
     {{"en", "a"}, {"fr", "Va! b ; c!"}},
     "texts/fr.tsv:3:5: warning: row 3: has no no-break blank before \"!\" [no-break-blanks]\n"
     "texts/fr.tsv:3:9: warning: row 3: has no no-break blank before \";\" [no-break-blanks]\n"
     "texts/fr.tsv:3:12: warning: row 3: has no no-break blank before \"!\" [no-break-blanks]\n"},
    {"no-break-blanks",
     {{"en", "Go?"}, {"fr", "Va ? 12:30 http://a «\u00A0b\u00A0»\u202F: c «d"}, {"de", "Geht?"}},
     "texts/fr.tsv:3:6: warning: row 3: has no no-break blank before \"?\" [no-break-blanks]\n"
     "texts/fr.tsv:3:33: warning: row 3: has no no-break blank behind \"«\" [no-break-blanks]\n"},
    {"same-as-english",
     {{"en", "Start"}, {"de", "Start"}, {"fr", "Départ"}},
     "texts/de.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"},
    {"same-as-english", {{"en", "New York"}, {"de", "New York"}, {"fr", "New York"}, {"ru", "Нью-Йорк"}}, ""},
    {"same-as-english",
     {{"en", "New York"}, {"fr", "New York"}, {"es", "New York"}, {"ru", " "}},
     "texts/fr.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"
     "texts/es.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"},
    {"same-as-english",
     {{"en", "Wait here"}, {"fr", "Wait here"}, {"es", "Wait here"}, {"ru", "Ждите"}},
     "texts/fr.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"
     "texts/es.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"},
    {"same-as-english",
     {{"en", "Scan NOTE"}, {"de", "Scan NOTE"}},
     "texts/de.tsv:3:3: warning: row 3: is the same as the English text [same-as-english]\n"},
    {"same-as-english", {{"en", "NOTE"}, {"de", "NOTE"}}, ""},
    {"same-as-english", {{"en", "%1 min, 2 col., USB"}, {"de", "%1 min, 2 col., USB"}}, ""},
    {"renderings",
     {{"en", "Color"}, {"de", "Buntheit"}, {"fr", "Couleur"}},
     "texts/de.tsv:3:3: warning: row 3: \"Color\" is \"Farbe\" in row 2, and \"Buntheit\" here "
     "[renderings]\n"},
    {"quoted-names",
     {{"en", "Set “Color” to “%1”."},
      {"de", "„Bunt“"},
      {"fr", "«\u00A0"
             "Couleur\u00A0»"},
      {"nl", "‘Kleur’ foto’s"},
      {"ja", "「色」を"}},
     "texts/de.tsv:3:4: warning: row 3: quotes \"Bunt\", which is no text [quoted-names]\n"},
    {"quoted-names",
     {{"en", "Size: “size”, “Mode”, “+”, “%1 x”"},
      {"de", "„FARBE…“ „Modus“"},
      {"ru", "«цвет» «РОД»"},
      {"nl", "Maat\\nx: ‘maat x’ ‘Modus’ ‘Wijze’"}},
     "texts/en.tsv:3:18: warning: row 3: quotes \"Mode\", which is no text [quoted-names]\n"
     "texts/nl.tsv:3:22: warning: row 3: quotes \"Modus\", which is no text [quoted-names]\n"
     "texts/nl.tsv:3:30: warning: row 3: quotes \"Wijze\", which is no text [quoted-names]\n"},
};

} // namespace

TEST(check, rules_for_texts) {
    for (const auto& row : TEXT_RULES) {
        const scratch_catalogue catalogue;
        write_texts(catalogue, row.texts);
        EXPECT_EQ(found_by(row.check, catalogue.run("check", {"--all"}).errors), row.report) << row.check;
    }
}

TEST(check, a_name_that_three_english_texts_quote_is_one) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/en.tsv", "row\ttext\n2\t“Mode”, “Kind”\n3\tA “mode”\n4\t“Mode”.\n5\t“Kind”\n");
    EXPECT_EQ(found_by("quoted-names", catalogue.run("check").errors),
              "texts/en.tsv:2:12: warning: row 2: quotes \"Kind\", which is no text [quoted-names]\n"
              "texts/en.tsv:5:4: warning: row 5: quotes \"Kind\", which is no text [quoted-names]\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\ten\n3\t“Mode” “Mode” “Mode”\n");
    catalogue.write("texts/de.tsv", "row\ttext\n2\t„Art“\n4\t„Art“\n5\t„Art“\n");
    EXPECT_EQ(found_by("quoted-names", catalogue.run("check").errors),
              "texts/en.tsv:3:4: warning: row 3: quotes \"Mode\", which is no text [quoted-names]\n"
              "texts/en.tsv:3:11: warning: row 3: quotes \"Mode\", which is no text [quoted-names]\n"
              "texts/en.tsv:3:18: warning: row 3: quotes \"Mode\", which is no text [quoted-names]\n"
              "texts/de.tsv:2:4: warning: row 2: quotes \"Art\", which is no text [quoted-names]\n"
              "texts/de.tsv:3:4: warning: row 4: quotes \"Art\", which is no text [quoted-names]\n"
              "texts/de.tsv:4:4: warning: row 5: quotes \"Art\", which is no text [quoted-names]\n")
        << "one text that quotes thrice is one; other languages follow the English one";
}

TEST(check, conventions_of_other_languages) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/en.tsv", "row\ttext\n2\tLong sentences.\n");
    catalogue.write("texts/ja.tsv", "row\ttext\n2\t長名：値\n3\t「長\\n名」「値」\n4\t「値長」\n");
    const std::map<std::string, std::string> packs = {
        {"66", "2\tไทย\n"},
        {"48", "2\tx.\n3\tłódź\n4\t„ŁÓDŹ” „ÉĽ”\n"},
        {"30", "2\tx.\n3\tωμεγα\n4\t«ΩΜΕΓΑ»\n"},
        {"86", "2\tx!\n"},
    };
    catalogue.write("texts/ru.tsv", "row\ttext\n2\tx.\n3\tёлка\n4\t«ЁЛКА» «ЕЛКА»\n");
    std::filesystem::remove_all(catalogue.path("packs/86"));
    for (const auto& [pack, texts] : packs) {
        catalogue.write_pack(pack, "font_family = F\n", "row\ttext\n" + texts);
    }
    const std::string report = catalogue.run("check", {"--all"}).errors;
    EXPECT_EQ(found_by("quoted-names", report),
              "texts/ja.tsv:4:4: warning: row 4: quotes \"値長\", which is no text [quoted-names]\n"
              "texts/ru.tsv:4:11: warning: row 4: quotes \"ЕЛКА\", which is no text [quoted-names]\n"
              "packs/48/texts.tsv:4:11: warning: row 4: quotes \"ÉĽ\", which is no text [quoted-names]\n");
    EXPECT_EQ(found_by("end-punctuation", report).find("packs/66"), std::string::npos) << report;
    EXPECT_NE(found_by("end-punctuation", report).find("packs/86"), std::string::npos) << report;
}

TEST(check, the_rendering_that_most_rows_have_is_the_usual_one) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/en.tsv", "row\ttext\n2\tColor\n3\tColor\n4\tColor\n");
    catalogue.write("texts/de.tsv", "row\ttext\n2\tBunt\n3\tFarbe\n4\tFarbe\n5\tx\n6\ty\n");
    catalogue.write("texts/fr.tsv", "row\ttext\n2\t\n3\t\n4\tCouleur\n");
    catalogue.write("texts/it.tsv", "row\ttext\n2\tColore\n3\tTinta\n4\t\n");
    EXPECT_EQ(found_by("renderings", catalogue.run("check").errors),
              "texts/de.tsv:2:3: warning: row 2: \"Color\" is \"Farbe\" in row 3, and \"Bunt\" here "
              "[renderings]\n"
              "texts/it.tsv:3:3: warning: row 3: \"Color\" is \"Colore\" in row 2, and \"Tinta\" here "
              "[renderings]\n");
}

TEST(check, a_row_without_message_is_told_once_in_english_if_it_can_be) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/ja.tsv", "row\ttext\n2\tja\n9\t九\n10\t十\n11\t\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\ten\n9\tnine\n");
    catalogue.write_pack("86", "font_family = F\n", "row\ttext\n2\tPack\n10\tten\n12\ttwelve\n");
    EXPECT_EQ(found_by("unused-rows", catalogue.run("check").errors),
              "texts/en.tsv:3:3: remark: row 9: no message uses \"nine\" [unused-rows]\n"
              "texts/ja.tsv:4:4: remark: row 10: no message uses \"十\" [unused-rows]\n"
              "packs/86/texts.tsv:4:4: remark: row 12: no message uses \"twelve\" [unused-rows]\n");
}

TEST(check, rules_for_the_whole) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n1\tMSG_ONE\t2\n2\tMSG_ONE\t1\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\ten\n9\tnine\n");
    for (const char* name : {"texts/pl.tsv", "confirmed/pl.tsv", "extra.tsv", "packs/86/readme"}) {
        catalogue.write(name, "");
    }
    catalogue.write("packs/86/keymap/a.kbd", "name = A\n[base]\n{nothing}\n");
    catalogue.write("packs/86/keymap/proh_info.txt", "[*]\nline_start = ab\n");
    EXPECT_EQ(
        catalogue.run("check", {"--keyboards", catalogue.path("packs/86/keymap")}).errors,
        "extra.tsv: warning: nothing reads it; tables are messages.tsv, images.tsv, figures.tsv and "
        "ignore.tsv "
        "[unknown-files]\n"
        "texts/pl.tsv: warning: nothing reads it; standard languages are ja, en, de, fr, es, it, nl and ru, "
        "others stand in packs/NUMBER/texts.tsv [unknown-files]\n"
        "packs/86/readme: warning: nothing reads it; a pack has pack.conf, texts.tsv and keymap/ "
        "[unknown-files]\n"
        "confirmed/pl.tsv: warning: nothing reads it; standard languages are ja, en, de, fr, es, it, nl and "
        "ru, others stand in packs/NUMBER/texts.tsv [unknown-files]\n"
        "packs/86/keymap/a.kbd: error: layer \"base\": {nothing} is neither a function nor a layer "
        "[keyboard]\n"
        "packs/86/keymap/proh_info.txt:2: error: is no list of characters and ranges [keyboard]\n"
        "packs/86/keymap/a.kbd: error: layer \"base\": {nothing} is neither a function nor a layer "
        "[keyboard]\n"
        "packs/86/keymap/proh_info.txt:2: error: is no list of characters and ranges [keyboard]\n"
        "messages.tsv:3: remark: the name MSG_ONE stands in line 2 already, for the id 1 [duplicate-names]\n"
        "texts/en.tsv:3:3: remark: row 9: no message uses \"nine\" [unused-rows]\n"
        "keyboard: 86 2\n4 errors, 4 warnings, 2 remarks\n");
    EXPECT_EQ(catalogue.run("check", {"--language=de"}).errors, "");
}

TEST(check, what_fails_it) {
    const scratch_catalogue catalogue;
    const auto exit_code = [&catalogue](const std::vector<std::string>& arguments) {
        return catalogue.run("check", arguments).exit_code;
    };
    catalogue.write("texts/de.tsv", "row\ttext\n");
    catalogue.write("texts/fr.tsv", "row\ttext\n2\t en%1\n");
    EXPECT_EQ(exit_code({}), 1);
    EXPECT_EQ(exit_code({"-Wno-error=placeholders"}), 0);
    EXPECT_EQ(exit_code({"-Wno-placeholders", "-Werror=placeholders"}), 1);
    EXPECT_EQ(exit_code({"--language=33"}), 1);
    EXPECT_EQ(exit_code({"--language=de"}), 0);
    EXPECT_EQ(exit_code({"--language=49", "--fail-on=missing"}), 1);
    EXPECT_EQ(exit_code({"--language=49", "--fail-on=suspicious"}), 0);
    EXPECT_EQ(exit_code({"-Wno-placeholders", "--fail-on=suspicious"}), 1);
    EXPECT_EQ(exit_code({"-Wno-error=placeholders", "--fail-on=broken"}), 1);
    EXPECT_EQ(exit_code({"--fail-on=everything"}), 2);
    EXPECT_EQ(exit_code({"--language=87"}), 2);
}

TEST(check, a_text_is_stale_when_the_english_one_changes) {
    const scratch_catalogue catalogue;
    write_texts(catalogue, {{"en", "a"}, {"de", "b"}, {"fr", ""}});
    const auto stale = [&catalogue] {
        const process_result result = catalogue.run("check", {"--fail-on=stale"});
        return found_by("stale", result.errors) + found_by("unconfirmed", result.errors) +
               std::to_string(result.exit_code);
    };
    EXPECT_EQ(stale(), "0") << "nothing is kept of any language";
    EXPECT_EQ(catalogue.run("confirm", {"--language=49", "3"}).output, "de: 1 text confirmed\n");
    EXPECT_EQ(stale(), "texts/de.tsv:2:3: remark: row 2: nobody has confirmed the text [unconfirmed]\n0");
    EXPECT_EQ(catalogue.run("confirm", {"--language=de"}).output, "de: 1 text confirmed\n");
    EXPECT_EQ(catalogue.run("confirm", {"--language=fr"}).output, "fr: 1 text confirmed\n");
    write_texts(catalogue, {{"en", "c"}, {"de", "b"}, {"fr", ""}});
    EXPECT_EQ(stale(),
              "texts/de.tsv:3:3: warning: row 3: the English text has changed to \"c\"; translate it, or "
              "confirm the row [stale]\n1");
    EXPECT_EQ(catalogue.run("confirm", {"--language=de", "3"}).exit_code, 0);
    EXPECT_EQ(stale(), "0");
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--language=en"},
                                                  {"--language=87"},
                                                  {"--language=de", "4"},
                                                  {"--language=fr", "3"},
                                                  {"--language=de", "x"}}) {
        EXPECT_EQ(catalogue.run("confirm", wrong).exit_code, 2) << wrong.back();
    }
    write_texts(catalogue, {{"en", ""}, {"de", "b"}});
    catalogue.write("confirmed/en.tsv", "row\tenglish\n9\t01234567\n");
    EXPECT_EQ(stale(), "0") << "nothing to translate; and English is no translation";
    EXPECT_EQ(catalogue.run("confirm", {"--language=de"}).output, "de: 0 texts confirmed\n");
    EXPECT_EQ(catalogue.folder().read("catalogue/confirmed/de.tsv").find("\n3\t"), std::string::npos);
}

TEST(check, what_is_meant_is_ignored_with_a_reason) {
    const scratch_catalogue catalogue;
    write_texts(catalogue, all_but("%1", {{"de", "a"}, {"fr", "b"}}));
    const std::string header = "check\tsubject\tlanguage\treason\n";
    catalogue.write("ignore.tsv", header + "placeholders\t3\tde\tmeant\nplaceholders\t3\tes\tgone\n"
                                           "table\t3\t*\tbroken\nmissing\t3\t*\tthe pack is small\n");
    const process_result result = catalogue.run("check");
    EXPECT_EQ(result.errors,
              "ignore.tsv:4:1: warning: \"table\" is no check that can be ignored; those are " +
                  selectable_check_names() +
                  " [ignore-list]\n"
                  "texts/fr.tsv:3:3: error: row 3: %1 is missing; it stands in ja, en, es, it, nl, ru "
                  "[placeholders]\n"
                  "ignore.tsv:3:1: warning: nothing is found of placeholders in 3 any more; remove the entry "
                  "[ignore-list]\nplaceholders: fr 1\n1 error, 2 warnings\n");
    EXPECT_EQ(catalogue.run("check", {"--language=it"}).errors.find("any more"), std::string::npos);
    EXPECT_EQ(catalogue.run("check", {"-Wno-placeholders"}).errors.find("any more"), std::string::npos);
    catalogue.write("ignore.tsv", header + "placeholders\t3\t*\tmeant\nplaceholders\t3\t*\tagain\n");
    EXPECT_EQ(catalogue.run("confirm", {"--language=it"}).exit_code, 0)
        << "a faulty text that is meant hinders nobody";
    EXPECT_EQ(catalogue.run("check").errors.find("ignore.tsv:3:1: warning: stands in line 2 already"), 0U);
    catalogue.write("ignore.tsv", header + "placeholders\t3\t*\tmeant\n");
    EXPECT_EQ(catalogue.run("message-tables").exit_code, 0) << "the build leaves out the same";
    catalogue.write("ignore.tsv", header + "placeholders\t3\t*\t \n");
    EXPECT_EQ(catalogue.run("message-tables").errors.find("ignore.tsv:2:18: error: has no reason; "), 0U);
}

TEST(check, json_has_every_finding) {
    const scratch_catalogue catalogue;
    write_texts(catalogue, all_but("\"a\\\\b\"", {{"ru", "\"b\" "}}));
    const process_result result = catalogue.run("check", {"--json", "--progress"});
    EXPECT_NE(result.errors.find("checking texts/ru.tsv\n"), std::string::npos) << result.errors;
    for (const char* part : {"{\"findings\": [\n  {\"file\": ",
                             "texts/ru.tsv\", \"line\": 3, \"column\": 6, \"severity\": \"warning\", "
                             "\"check\": \"edge-blanks\", \"language\": \"ru\", \"subject\": \"3\", ",
                             "is \\\"\\\"a\\\\b\\\"\\\"\"}", "\"missing\": {\"86\": 1}", "\"errors\": 0, ",
                             "\"passed\": true}\n"}) {
        EXPECT_NE(result.output.find(part), std::string::npos) << part << result.output;
    }
}

TEST(check, stats_count_by_language_and_area) {
    const scratch_catalogue catalogue;
    write_texts(catalogue, all_but("A: b", {{"de", ""}, {"ja", "あ：いう"}}));
    catalogue.write("messages.tsv",
                    "id\tname\trow\n1\tMSG_CMN_A\t2\n5\tMSG_ERROR_B\t3\n6\tMSG_CMN_C\t3\n7\tX\t1\n");
    catalogue.write("texts/it.tsv", "row\ttext\n3\ta: b\n9\tlonger\n");
    const std::string output = catalogue.run("stats").output;
    for (const char* line :
         {"ja                     3         2         0         1         0         1         4  id 5, row "
          "3\n",
          "de                     3         1         1         0         0         0         5  id 1, row "
          "2\n",
          "  CMN                  2         1         1         0         0         0         5  id 1, row "
          "2\n",
          "  ERROR                1         0         1         0         0         0         0  \n",
          "it                     3         1         1         1         1         1         6  row 9\n",
          "86                     3         1         1         0         0         0         4  id 1, row "
          "2\n"}) {
        EXPECT_NE(output.find(line), std::string::npos) << line << output;
    }
    EXPECT_NE(catalogue.run("stats", {"--json"})
                  .output.find("\"shared\": 1, \"unused\": 1, \"labels\": 1, \"longest\": 6, "
                               "\"longest_row\": 9, \"longest_id\": 0}"),
              std::string::npos);
}

TEST(check, stats_tell_labels_from_other_colons) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n1\tKEYS_A\t3\n2\tMSG_TWO\t1\n3\tKEYS_B\t3\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\t12:30 h\n3\ta:  \n4\t: abc\n5\ta: \\nbc\n6\t7654321\n");
    catalogue.write("texts/ja.tsv", "row\ttext\n3\t\n4\ta：b\n");
    const std::string output = catalogue.run("stats").output;
    for (const char* line :
         {"en                     2         1         0         1         4         0         7  row 2\n",
          "  KEYS                 2         1         0         1         0         0         4  id 1, row "
          "3\n",
          "ja                     2         0         1         0         1         1         3  row 4\n"}) {
        EXPECT_NE(output.find(line), std::string::npos) << line << output;
    }
}
