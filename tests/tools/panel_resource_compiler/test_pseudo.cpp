#include "scratch_catalogue.h"

#include <gtest/gtest.h>

TEST(pseudo, texts_are_longer_and_keep_what_is_no_word) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n1\tA\t2\n");
    catalogue.write("texts/en.tsv",
                    "row\ttext\n2\tCopy\n3\t Page %1 of 12:\\n\\t50% <b>C:\\\\x</b> \n4\t \n5\t%1%2\n");
    const std::string packs = catalogue.folder().path("packs");
    const struct {
        std::vector<std::string> arguments;
        const char* folder;
        const char* direction;
        const char* texts;
    } rows[] = {
        {{"--output", packs + "/"},
         "65001",
         "ltr",
         "2\t[\u00C7\u00F6\u00FE\u00FD \u013C]\n3\t [\u00DE\u00E5\u011D\u00E9 %1 \u00F6\u0192 12: "
         "\u013C\u00F6\u0155\u00E9\\n"
         "\\t50% <b>\u00C7:\\\\\u1E8B</b> \u013C\u00F6\u0155\u00E9\u0271] \n4\t \n5\t[%1%2 \u013C]\n"},
        {{"--output", packs + "/300", "--mirrored", "--language-id", "300"},
         "300",
         "rtl",
         "2\t\u202E[\u00C7\u00F6\u00FE\u00FD \u013C]\u202C\n3\t \u202E[\u00DE\u00E5\u011D\u00E9 "
         "\u202D%1\u202C \u00F6\u0192 "
         "\u202D12\u202C: \u013C\u00F6\u0155\u00E9\u202C\\n\u202E\\t\u202D50\u202C% <b>\u00C7:\\\\\u1E8B</b> "
         "\u013C\u00F6\u0155\u00E9\u0271]\u202C \n4\t \n5\t\u202E[\u202D%1\u202C\u202D%2\u202C "
         "\u013C]\u202C\n"},
    };
    for (const auto& row : rows) {
        for (int time = 0; time < 2; ++time) { // its own pack is replaced
            const process_result result = catalogue.run("pseudo", row.arguments);
            EXPECT_EQ(result.exit_code, 0) << result.errors;
        }
        const std::string folder = std::string("packs/") + row.folder;
        const std::string texts = catalogue.folder().read(folder + "/texts.tsv");
        EXPECT_EQ(texts.substr(texts.find("row\ttext\n") + 9), row.texts);
        const process_result built =
            catalogue.run("pack", {"--pack", catalogue.folder().path(folder), "-Werror=placeholders",
                                   "-Wno-control-characters"});
        EXPECT_EQ(built.exit_code, 0) << built.errors;
        const std::string properties = catalogue.folder().read(folder + "/pack.conf");
        EXPECT_NE(properties.find(std::string("direction = ") + row.direction), std::string::npos)
            << properties;
    }
    EXPECT_EQ(catalogue.run("pseudo", {"--output", catalogue.path("packs"), "--language-id", "86"}).exit_code,
              3);
    EXPECT_EQ(catalogue.folder().read("catalogue/packs/86/texts.tsv"), "row\ttext\n2\tPack\n");
    for (const char* id : {"999", "65536", "-1"}) {
        EXPECT_EQ(catalogue.run("pseudo", {"--output", packs, "--language-id", id}).exit_code, 2) << id;
    }
}
