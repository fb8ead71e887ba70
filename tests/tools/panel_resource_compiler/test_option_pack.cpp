#include "option_pack.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char GOOD_PROPERTIES[] = "font_family = Pack Sans\n";
const char GOOD_TEXTS[] = "row\ttext\n2\tPack\n";

/** What reading the pack of a folder below "packs" reports, beside the faults of the catalogue. */
std::string reports_of_pack(const scratch_catalogue& catalogue, const std::string& name,
                            option_pack* pack = nullptr) {
    return catalogue.reports_of([&](diagnostics& report) {
        const message_catalogue messages = read_message_catalogue(catalogue.path(), report);
        const option_pack read = read_option_pack(catalogue.path() + "/packs/" + name, messages, report);
        if (pack != nullptr) {
            *pack = read;
        }
    });
}

} // namespace

TEST(option_pack, the_folder_is_named_like_a_language_id) {
    const char* const bad[] = {"0", "999", "65536", "-86", "086", "86a", "hebrew", "99999999999"};
    for (const std::string name : bad) {
        const scratch_catalogue catalogue;
        catalogue.write("packs/" + name + "/pack.conf", GOOD_PROPERTIES);
        catalogue.write("packs/" + name + "/texts.tsv", GOOD_TEXTS);
        EXPECT_EQ(reports_of_pack(catalogue, name),
                  "packs/" + name +
                      ": error: the folder's name must be a language id, 1 to 65535 except 999\n");
    }
    for (const std::string name : {"1", "65535"}) {
        const scratch_catalogue catalogue;
        catalogue.write("packs/" + name + "/pack.conf", GOOD_PROPERTIES);
        catalogue.write("packs/" + name + "/texts.tsv", GOOD_TEXTS);
        EXPECT_EQ(reports_of_pack(catalogue, name), "");
    }
}

TEST(option_pack, reports_each_fault_with_its_place) {
    const struct {
        const char* name;
        std::string properties;
        std::string texts;
        const char* reports;
    } rows[] = {
        {"properties", "# c\n\nfont_family = F\nfamily = F\ndirection=up\nrtl\n", GOOD_TEXTS,
         "packs/86/pack.conf:4: error: unknown property \"family\"; known are font_family, direction and "
         "font\n"
         "packs/86/pack.conf:5: error: direction \"up\" is neither \"ltr\" nor \"rtl\"\n"
         "packs/86/pack.conf:6: error: is no \"key = value\" line\n"},
        {"no family", "direction = ltr\n", GOOD_TEXTS, "packs/86/pack.conf: error: names no font_family\n"},
        {"fonts", "font_family = F\nfont = /nowhere/a.ttf\nfont = /nowhere/b.otf\n", GOOD_TEXTS,
         "packs/86/pack.conf:2: warning: font \"/nowhere/a.ttf\" is not installed; the pack goes without "
         "[-Wfonts]\n"
         "packs/86/pack.conf:3: error: font \"/nowhere/b.otf\" does not end in .ttf\n"},
        {"rows", GOOD_PROPERTIES, "row\ttext\n3\ta\n3\tb\n-1\tc\n21999\td\nx\te\n",
         "packs/86/texts.tsv:3: error: row 3 stands twice\n"
         "packs/86/texts.tsv:4: error: row -1 is outside 0 to 21998\n"
         "packs/86/texts.tsv:5: error: row 21999 is outside 0 to 21998\n"
         "packs/86/texts.tsv:6: error: row \"x\" is not a whole number\n"},
        {"placeholders", GOOD_PROPERTIES, "row\ttext\n2\t%1\n3\t%1\n",
         "packs/86/texts.tsv:2: warning: row 2: placeholders none in en, %1 here [-Wplaceholders]\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const scratch_catalogue catalogue;
        catalogue.write("packs/86/pack.conf", row.properties);
        catalogue.write("packs/86/texts.tsv", row.texts);
        EXPECT_EQ(reports_of_pack(catalogue, "86"), row.reports);
    }
    EXPECT_EQ(reports_of_pack(scratch_catalogue(), "7"),
              "packs/7/pack.conf: error: cannot be opened for reading\n"
              "packs/7/texts.tsv: error: cannot be opened for reading\n");
}

TEST(option_pack, lays_the_files_of_the_device) {
    const scratch_catalogue catalogue;
    const scratch_folder& folder = catalogue.folder();
    folder.write("fonts/Pack Sans.ttf", "font");
    catalogue.write("packs/972/pack.conf", "font_family = Pack Sans\r\ndirection = rtl\r\nfont = " +
                                               folder.path("fonts/Pack Sans.ttf") + "\r\n");
    catalogue.write("packs/972/texts.tsv", GOOD_TEXTS);
    catalogue.write("packs/972/keymap/lang_info.txt", "keys");
    option_pack pack;
    EXPECT_EQ(reports_of_pack(catalogue, "972", &pack), "");
    std::filesystem::create_directories(folder.path("out"));
    for (int pass = 1; pass <= 2; ++pass) { // the second goes over the files of the first
        std::string fault;
        EXPECT_TRUE(write_option_pack(pack, folder.path("out"), fault)) << fault;
        EXPECT_EQ(folder.read("out/tree/panel/attr/opt_attribute.txt"), "il_ae=0\n");
        EXPECT_EQ(folder.read("out/tree/panel/optfonts/Pack Sans.ttf"), "font");
        EXPECT_EQ(folder.read("out/tree/panel/keymap/lang_info.txt"), "keys");
    }
}
