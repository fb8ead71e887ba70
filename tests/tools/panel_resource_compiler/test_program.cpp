#include "process.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

process_result run_compiler(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), RESOURCE_COMPILER);
    return run_process(arguments);
}

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
    catalogue.write("texts/de.tsv", "row\ttext\n2\t%1\n");
    catalogue.write("packs/86/pack.conf", "font_family = Pack Sans\n");
    catalogue.write("packs/86/texts.tsv", "row\ttext\n2\tPack\n");
    const std::vector<std::string> common = {"--catalogue", catalogue.path(), "--output", out,
                                             "-Werror=placeholders"};
    for (std::vector<std::string> arguments :
         {std::vector<std::string>{"messages"}, {"pack", "--pack", catalogue.path() + "/packs/86"}}) {
        arguments.insert(arguments.end(), common.begin(), common.end());
        const process_result result = run_compiler(arguments);
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_EQ(catalogue.without_path(result.errors),
                  "texts/ja.tsv:2: error: row 2: placeholders none in ja, %1 in de "
                  "[-Werror=placeholders]\n1 error, 0 warnings\n");
        EXPECT_FALSE(std::filesystem::exists(out));
        arguments.back() = "-Wno-placeholders";
        EXPECT_EQ(run_compiler(arguments).exit_code, 0);
        EXPECT_TRUE(std::filesystem::remove_all(out));
    }
}

TEST(program, check_reads_the_packs_and_writes_nothing) {
    const scratch_catalogue catalogue;
    catalogue.write("packs/README", "a file beside the packs");
    catalogue.write("packs/86/pack.conf", "font_family = F\nfont = /nowhere/f.ttf\n");
    catalogue.write("packs/86/texts.tsv", "row\ttext\n2\tPack\n");
    const std::vector<std::string> check = {"check", "--catalogue", catalogue.path()};
    const process_result good = run_compiler(check);
    EXPECT_EQ(good.exit_code, 0);
    EXPECT_NE(good.errors.find("[-Wfonts]\n0 errors, 1 warning\n"), std::string::npos) << good.errors;
    catalogue.write("packs/hebrew/pack.conf", "");
    EXPECT_EQ(run_compiler(check).exit_code, 1);
}

TEST(program, an_output_that_cannot_be_written_is_reported) {
    const scratch_catalogue catalogue;
    const std::string plain_file = catalogue.path() + "/messages.tsv";
    const std::string folder = catalogue.folder().path("out");
    std::filesystem::create_directories(folder + "/message_text_table.cpp/in the way");
    for (const std::string& output : {plain_file, plain_file + "/out", folder}) {
        const process_result result =
            run_compiler({"messages", "--catalogue", catalogue.path(), "--output", output});
        EXPECT_EQ(result.exit_code, 3) << output;
        EXPECT_NE(result.errors.find(output), std::string::npos) << result.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(folder + "/message_text_table.cpp.new"));
}
