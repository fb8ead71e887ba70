#include "checks.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

using namespace velarion;
namespace fs = std::filesystem;

TEST(program, tells_wrong_usage) {
    const scratch_catalogue catalogue;
    const struct {
        std::vector<std::string> arguments;
        std::string fault;
    } rows[] = {
        {{}, "--pack is missing"},
        {{"--pack"}, "--pack needs a value"},
        {{"--pack", ""}, "--pack is empty"},
        {{"--pack", "a", "b"}, "unexpected \"b\""},
        {{"--pack", "a", "--fill"}, "unknown option \"--fill\""},
        {{"--pack", "a", "-Wfonts"}, "unknown option \"-Wfonts\""},
        {{"--pack=a", "-Wno-font"}, "unknown check \"font\"; known are " + selectable_check_names()},
        {{"--pack=a", "-Werror="}, "unknown check \"\"; known are " + selectable_check_names()},
    };
    for (const auto& row : rows) {
        const process_result result = catalogue.run("pack", row.arguments);
        EXPECT_EQ(result.exit_code, 2) << row.fault;
        EXPECT_EQ(result.errors, std::string("panel_resource_compiler: ") + row.fault +
                                     "; see panel_resource_compiler pack --help\n");
    }
}

TEST(program, tells_which_word_of_which_command_is_wrong) {
    const scratch_catalogue catalogue;
    const struct {
        const char* command;
        std::vector<std::string> arguments;
        std::string fault;
    } rows[] = {
        {"export",
         {"--language=de", "--format", "xliff", "--output", "file"},
         "--format \"xliff\" is not one of po|ts"},
        {"export", {"--language=de", "--output", "file"}, "--format is missing"},
        {"export", {"--language=pl", "--format=po", "--output=file"}, "the catalogue has no language \"pl\""},
        {"import", {"--language=de"}, "FILE is missing"},
        {"import", {"--language=de", "file.xlf"}, "\"file.xlf\" ends neither in .po nor in .ts"},
        {"rename", {"1"}, "NEW is missing"},
        {"rename", {"1", "NEW", "more"}, "unexpected \"more\""},
        {"remove", {}, "ENTRY is missing"},
        {"find", {}, "PATTERN is missing"},
        {"find",
         {"a", "--language=972"},
         "--language \"972\" is neither a standard language nor a pack of this catalogue"},
        {"find", {"(", "--regex"}, "--regex \"(\": missing closing parenthesis at character 2"},
        {"add", {"--name=M", "--row", "2x"}, "--row \"2x\" is not a whole number"},
        {"add",
         {"--name=M", "--id", "2147483648"},
         "--id \"2147483648\" is above 2147483647, the highest number"},
        {"add",
         {"--name=M", "--id", "-2147483649"},
         "--id \"-2147483649\" is below -2147483648, the lowest number"},
        {"add", {"--name=M", "--picture"}, "--file is missing"},
        {"add", {"--name=M", "--file=a.png"}, "--file needs --picture"},
        {"confirm", {"--language=en"}, "--language \"en\" is no language that is translated here"},
        {"confirm", {"--language=de", "2", "3"}, "row 3 has no text in de"},
        {"confirm", {"--language=de", "x"}, "ROW \"x\" is not a whole number"},
        {"check", {"--fail-on=all"}, "--fail-on \"all\" is not one of broken|missing|stale|suspicious"},
        {"check", {"--language=x"}, "--language \"x\" is no language of the catalogue"},
        {"pseudo", {"--output=a", "--language-id=999"}, "--language-id 999 is none of 1 to 65535 except 999"},
        {"stats", {"more"}, "unexpected \"more\""},
        {"sort", {"-x"}, "unknown option \"-x\""},
    };
    for (const auto& row : rows) {
        const process_result result = catalogue.run(row.command, row.arguments);
        EXPECT_EQ(result.exit_code, 2) << row.fault;
        EXPECT_EQ(result.errors, "panel_resource_compiler: " + row.fault + "; see panel_resource_compiler " +
                                     row.command + " --help\n");
        EXPECT_EQ(result.output, "");
    }
}

TEST(program, output_that_cannot_be_written_is_no_success) {
    const scratch_catalogue catalogue;
    for (const char* arguments : {"check --json", "stats", "stats --json", "find --json en", "sort",
                                  "add --name N --text en=x --dry-run"}) {
        const process_result result = run_process(
            {"/bin/sh", "-c", std::string("exec \"$0\" ") + arguments + " --catalogue \"$1\" >/dev/full",
             RESOURCE_COMPILER, catalogue.path("")});
        EXPECT_EQ(result.exit_code, 3) << arguments;
        EXPECT_NE(result.errors.find("panel_resource_compiler: standard output cannot be written\n"),
                  std::string::npos)
            << result.errors;
    }
}

TEST(program, every_command_tells_what_it_takes) {
    const process_result list = run_process({RESOURCE_COMPILER, "--help"});
    std::istringstream lines(list.output);
    std::size_t commands = 0;
    for (std::string line; std::getline(lines, line);) {
        const bool is_command = line.compare(0, 2, "  ") == 0;
        const std::string command = line.substr(0, line.find(' ', 2)).erase(0, is_command ? 2 : 0);
        if (is_command) {
            const process_result help = run_process({RESOURCE_COMPILER, command, "--help"});
            EXPECT_EQ(help.exit_code, 0) << command;
            EXPECT_EQ(help.output.find("Usage: panel_resource_compiler " + command), 0U) << help.output;
            ++commands;
        }
    }
    EXPECT_GE(commands, 4U) << list.output;
    EXPECT_EQ(run_process({RESOURCE_COMPILER, "chek"}).exit_code, 2);
}

TEST(program, of_many_findings_of_one_check_the_first_are_shown) {
    const scratch_catalogue catalogue;
    std::string table = "id\tname\tfile\n";
    for (int id = 1; id <= 25; ++id) {
        table += std::to_string(id) + "\tI" + std::to_string(id) + "\ta.bmp\n";
    }
    catalogue.write("images.tsv", table + "26\tI26\t\n");
    const std::string some = catalogue.run("check").errors;
    EXPECT_EQ(std::count(some.begin(), some.end(), '\n'), 23) << some;
    EXPECT_NE(some.find("27:8: error: the image has no file"), std::string::npos) << some;
    EXPECT_NE(some.find("\n... and 5 more [extensions]\n1 error, 25 warnings\n"), std::string::npos) << some;
    const std::string all = catalogue.run("check", {"--all"}).errors;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 27) << all;
}

TEST(program, writes_nothing_while_there_are_errors) {
    const scratch_catalogue catalogue;
    catalogue.write("texts/de.tsv", "row\ttext\n2\t%1\n");
    const std::vector<std::string> pack = {"--pack", catalogue.path("packs/86")};
    for (const auto& [command, arguments] :
         {std::pair("message-tables", std::vector<std::string>()), std::pair("pack", pack)}) {
        const process_result result = catalogue.run(command, arguments);
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_EQ(result.errors,
                  "texts/de.tsv:2:3: error: row 2: %1 is too many; it does not stand in ja, en, fr, "
                  "es, it, nl, ru [placeholders]\n1 error, 0 warnings\n");
        EXPECT_FALSE(fs::exists(catalogue.folder().path("out")));
    }
}

TEST(program, an_output_that_cannot_be_written_is_reported) {
    const scratch_catalogue catalogue;
    const std::string plain_file = catalogue.folder().path("plain");
    const std::string folder = catalogue.folder().path("out");
    catalogue.folder().write("plain", "");
    fs::create_directories(folder + "/message_text_table.cpp/in the way");
    for (const std::string& output : {plain_file, plain_file + "/out", folder}) {
        const process_result result = catalogue.run("message-tables", {"--output", output});
        EXPECT_EQ(result.exit_code, 3) << output;
        EXPECT_NE(result.errors.find(output), std::string::npos) << result.errors;
    }
    EXPECT_FALSE(fs::exists(folder + "/message_text_table.cpp.new"));
}

TEST(program, links_in_the_output_folder_are_never_followed) {
    for (const std::string link : {"tree/panel/optfonts", "tree/panel/keymap/sub", "tree"}) {
        const scratch_catalogue catalogue;
        const scratch_folder& folder = catalogue.folder();
        catalogue.write("packs/86/keymap/sub/a.kbd", "a");
        folder.write("beside/font.ttf", "kept");
        folder.write("beside/panel/keep", "kept");
        folder.write("out/written_files.txt", "tree/panel/optfonts/font.ttf\ntree/panel/keep\n");
        fs::create_symlink(folder.path("new"), folder.path("out/option_pack.cpp.new"));
        fs::create_directories(fs::path(folder.path("out/" + link)).parent_path());
        fs::create_symlink(folder.path("beside"), folder.path("out/" + link));
        const process_result result =
            catalogue.run("pack", {"--pack", catalogue.path("packs/86"), "-Wno-keyboard"});
        const bool is_needed = link != "tree/panel/optfonts"; // the pack has no font
        EXPECT_EQ(result.exit_code, is_needed ? 3 : 0) << link;
        const std::string report = link + ": is a symbolic link, which is not followed; remove it\n";
        EXPECT_EQ(result.errors.find(report) != std::string::npos, is_needed) << result.errors;
        EXPECT_EQ(folder.read("beside/font.ttf") + folder.read("beside/panel/keep"), "keptkept") << link;
        EXPECT_FALSE(fs::exists(folder.path("new")) || fs::exists(folder.path("beside/a.kbd"))) << link;
    }
}

TEST(program, a_pack_gets_the_files_of_the_device_and_loses_those_of_an_earlier_build) {
    const scratch_catalogue catalogue;
    const scratch_folder& folder = catalogue.folder();
    const std::string panel = "out/tree/panel/";
    const auto build = [&catalogue] {
        const process_result result =
            catalogue.run("pack", {"--pack", catalogue.path("packs/972"), "-Wno-keyboard"});
        EXPECT_EQ(result.exit_code, 0) << result.errors;
    };
    folder.write("fonts/Pack Sans.ttf", "font");
    const std::string font = "font = " + folder.path("fonts/Pack Sans.ttf") + "\r\n";
    folder.write("fonts/Pack Bold.ttf", "bold");
    catalogue.write_pack("972", "font_family = Pack Sans\r\ndirection = rtl\r\n" + font +
                                    "font = " + folder.path("fonts/Pack Bold.ttf") + "\n");
    catalogue.write("packs/972/keymap/lang_info.txt", "keys");
    catalogue.write("packs/972/keymap/more", "a file, and then a folder");
    build();
    folder.write(panel + "keymap/user.kbd", "not of the pack");
    const std::string edited =
        "../catalogue/images.tsv\n" + catalogue.path("images.tsv") + "\n\ntree\nnone/a\n";
    folder.write("out/written_files.txt", edited + folder.read("out/written_files.txt"));
    fs::remove(catalogue.path("packs/972/keymap/more"));
    catalogue.write("packs/972/keymap/more/a.kbd", "a");
    build();
    EXPECT_EQ(folder.read(panel + "attr/opt_attribute.txt"), "il_ae=0\n");
    EXPECT_EQ(folder.read(panel + "optfonts/Pack Sans.ttf"), "font");
    EXPECT_EQ(folder.read(panel + "optfonts/Pack Bold.ttf"), "bold");
    EXPECT_EQ(folder.read(panel + "keymap/more/a.kbd"), "a");
    catalogue.write_pack("972");
    fs::remove_all(catalogue.path("packs/972/keymap"));
    build();
    EXPECT_TRUE(fs::is_empty(folder.path(panel + "optfonts")));
    EXPECT_FALSE(fs::exists(folder.path(panel + "keymap/lang_info.txt")));
    EXPECT_TRUE(fs::is_empty(folder.path(panel + "keymap/more")));
    EXPECT_EQ(folder.read(panel + "keymap/user.kbd"), "not of the pack");
    EXPECT_TRUE(fs::exists(catalogue.path("images.tsv")));
    catalogue.write_pack("972", "font_family = Pack Sans\n" + font + font);
    EXPECT_EQ(catalogue.run("check").exit_code, 1) << "fonts of one file name";
}
