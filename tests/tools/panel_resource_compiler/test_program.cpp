#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char FAULTY_IMAGES[] = "id\tname\tfile\n3\tA\ta/b.png\n";

} // namespace

TEST(program, tells_wrong_usage_from_its_own_help) {
    const struct {
        std::vector<std::string> arguments;
        const char* fault;
    } rows[] = {
        {{}, "no command"},
        {{"compile"}, "unknown command \"compile\""},
        {{"check"}, "--catalogue is missing"},
        {{"check", "--catalogue"}, "--catalogue needs a folder"},
        {{"check", "--catalog", "c"}, "unknown option \"--catalog\""},
        {{"messages", "--catalogue", "c"}, "--output is missing"},
        {{"pack", "--catalogue", "c", "--output", "o"}, "--pack is missing"},
    };
    for (const auto& row : rows) {
        const process_result result = run_compiler(row.arguments);
        EXPECT_EQ(result.exit_code, 2) << row.fault;
        EXPECT_EQ(result.errors, std::string("panel_resource_compiler: ") + row.fault + "; see --help\n");
        EXPECT_EQ(result.output, "");
    }
    const process_result help = run_compiler({"check", "--help"});
    EXPECT_EQ(help.exit_code, 0);
    EXPECT_EQ(help.errors, "");
    EXPECT_NE(help.output.find("\nUsage:\n"), std::string::npos);
}

TEST(program, writes_nothing_while_there_are_errors) {
    const scratch_catalogue catalogue;
    const std::string out = catalogue.folder().path("out");
    const std::string pack = catalogue.path() + "/packs/86";
    catalogue.write("texts/de.tsv", "row\ttext\n2\t%1\n");
    for (const std::string command : {"messages", "pack"}) {
        const process_result result = catalogue.run(command, {"--pack", pack, "-Werror=placeholders"});
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_EQ(result.errors, "texts/ja.tsv:2: error: row 2: placeholders none in ja, %1 in de "
                                 "[-Werror=placeholders]\n1 error, 0 warnings\n");
        EXPECT_FALSE(std::filesystem::exists(out));
        const process_result good = catalogue.run(command, {"--pack", pack, "-Wno-placeholders"});
        EXPECT_EQ(good.exit_code, 0);
        EXPECT_EQ(good.errors, "");
        EXPECT_TRUE(std::filesystem::remove_all(out));
    }
}

TEST(program, the_image_table_needs_no_messages) {
    const scratch_catalogue catalogue;
    const std::string out = catalogue.folder().path("out");
    catalogue.write("messages.tsv", "broken");
    EXPECT_EQ(catalogue.run("images").exit_code, 0);
    EXPECT_TRUE(std::filesystem::remove(out + "/image_name_table.cpp"));
    catalogue.write("images.tsv", FAULTY_IMAGES);
    EXPECT_EQ(catalogue.run("images").exit_code, 1);
    EXPECT_TRUE(std::filesystem::is_empty(out));
}

TEST(program, check_reads_images_and_packs) {
    const scratch_catalogue catalogue;
    catalogue.write("packs/README", "a file beside the packs");
    catalogue.write_pack("86", "font_family = F\nfont = /nowhere/f.ttf\n");
    const process_result good = catalogue.run("check");
    EXPECT_EQ(good.exit_code, 0);
    EXPECT_NE(good.errors.find("[-Wfonts]\n0 errors, 1 warning\n"), std::string::npos) << good.errors;
    EXPECT_FALSE(std::filesystem::exists(catalogue.folder().path("out")));
    catalogue.write("packs/hebrew/pack.conf", "");
    EXPECT_EQ(catalogue.run("check").exit_code, 1);
    const scratch_catalogue faulty;
    faulty.write("images.tsv", FAULTY_IMAGES);
    EXPECT_EQ(faulty.run("check").exit_code, 1);
}

TEST(program, an_output_that_cannot_be_written_is_reported) {
    const scratch_catalogue catalogue;
    const std::string plain_file = catalogue.folder().path("plain");
    const std::string folder = catalogue.folder().path("out");
    catalogue.folder().write("plain", "");
    std::filesystem::create_directories(folder + "/message_text_table.cpp/in the way");
    for (const std::string& output : {plain_file, plain_file + "/out", folder}) {
        const process_result result = catalogue.run("messages", {"--output", output});
        EXPECT_EQ(result.exit_code, 3) << output;
        EXPECT_NE(result.errors.find(output), std::string::npos) << result.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(folder + "/message_text_table.cpp.new"));
}

TEST(program, a_pack_gets_the_files_of_the_device) {
    const scratch_catalogue catalogue;
    const scratch_folder& folder = catalogue.folder();
    const std::string font = folder.path("fonts/Pack Sans.ttf");
    folder.write("fonts/Pack Sans.ttf", "font");
    catalogue.write_pack("972", "font_family = Pack Sans\r\ndirection = rtl\r\nfont = " + font + "\r\n");
    catalogue.write("packs/972/keymap/lang_info.txt", "keys");
    for (int pass = 1; pass <= 2; ++pass) { // the second goes over the files of the first
        const process_result result = catalogue.run("pack", {"--pack", catalogue.path() + "/packs/972"});
        EXPECT_EQ(result.exit_code, 0) << result.errors;
        EXPECT_EQ(folder.read("out/tree/panel/attr/opt_attribute.txt"), "il_ae=0\n");
        EXPECT_EQ(folder.read("out/tree/panel/optfonts/Pack Sans.ttf"), "font");
        EXPECT_EQ(folder.read("out/tree/panel/keymap/lang_info.txt"), "keys");
    }
}
