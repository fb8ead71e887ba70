#include "dvc_pnl_rmg_message_table.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <filesystem>
#include <sstream>

namespace {

/** What texts hold that a C++ source could spoil. */
const struct {
    const char* field; ///< as the catalogue writes it
    const char* text;
} TEXTS[] = {
    {"say \"Copy\" /* %1 // */ R\"(x)\"", "say \"Copy\" /* %1 // */ R\"(x)\""},
    {"C:\\\\new\\\\table \\\\", "C:\\new\\table \\"},
    {"\\\\n is not\\na line\\tbreak\\n", "\\n is not\na line\tbreak\n"},
    {"?\?=?\?/?\?(!?\?", "?\?=?\?/?\?(!?\?"},
    {"\xE2\x80\xAB\xD7\x90\xE2\x81\xA7"
     "7",
     "\xE2\x80\xAB\xD7\x90\xE2\x81\xA7"
     "7"}, // runs that do not end
    {"\x01\x1A\x7F .\xE3\x82\xB3\xF0\x9F\x96\xA8 1", "\x01\x1A\x7F .\xE3\x82\xB3\xF0\x9F\x96\xA8 1"},
};
constexpr int FIRST_ROW = 2;

std::string table_of_texts() {
    std::string table = "row\ttext\n";
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        table += std::to_string(row++) + "\t" + text.field + "\n";
    }
    return table;
}

/** Compiles sources of the folder "out" as a library; the trigraphs of old compilers are in force. */
void* load_compiled(const scratch_catalogue& catalogue, const std::vector<std::string>& sources) {
    const std::string folder = catalogue.folder().path("out/");
    std::vector<std::string> command = {CXX_COMPILER, "-std=c++11",  "-trigraphs", "-Werror",
                                        "-shared",    "-fPIC",       "-I",         TABLE_FOLDER,
                                        "-I",         EXPORT_FOLDER, "-o",         folder + "generated.so"};
    for (const std::string& source : sources) {
        command.push_back(folder + source);
    }
    const process_result result = run_process(command);
    EXPECT_EQ(result.exit_code, 0) << result.errors;
    return dlopen((folder + "generated.so").c_str(), RTLD_NOW | RTLD_LOCAL);
}

template <typename TYPE> TYPE symbol(void* library, const char* name) {
    return reinterpret_cast<TYPE>(!library ? nullptr : dlsym(library, name));
}

} // namespace

TEST(generated_source, message_tables_hold_what_the_catalogue_says) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n7\tNAME \"\\\\ ?\?=\\t\t1\n2147483647\tLAST\t21998\n");
    catalogue.write("texts/de.tsv",
                    table_of_texts() + "30\t" + std::string(TEXTS[0].field).substr(4) + "\n31\tru\n");
    ASSERT_EQ(catalogue.run("message-tables", {"-Wno-placeholders", "-Wno-control-characters"}).exit_code, 0);
    void* library = load_compiled(catalogue, {"message_id_table.cpp", "message_text_table.cpp"});
    const auto* ids = symbol<const DVC_PNL_RMG_IMPL_MESSAGE*>(library, "dvc_pnl_rmg_impl_message_table");
    const auto* size = symbol<const int*>(library, "dvc_pnl_rmg_imple_message_table_size");
    using ROW = const char* const[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];
    const auto* rows = symbol<const ROW*>(library, "standard_language_message_table");
    ASSERT_TRUE(ids && size && rows);
    ASSERT_EQ(*size, 2);
    EXPECT_EQ(ids[0].message_id, 7);
    EXPECT_STREQ(ids[0].message_name, "NAME \"\\ ?\?=\t");
    EXPECT_EQ(ids[0].message_table_index, 1);
    EXPECT_EQ(ids[1].message_id, 2147483647);
    const int german = 2;
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        EXPECT_STREQ(rows[row][german], text.text);
        EXPECT_GT(rows[row][german], rows[FIRST_ROW][german - 1]) << "a language's own texts lie together";
        EXPECT_LT(rows[row++][german], rows[FIRST_ROW][german + 1]);
    }
    EXPECT_STREQ(rows[FIRST_ROW][7], "ru");
    EXPECT_EQ(rows[30][german], rows[FIRST_ROW][german] + 4) << "the end of another text";
    EXPECT_EQ(rows[31][german], rows[FIRST_ROW][7]) << "another language's text";
    EXPECT_LT(rows[31][german], rows[FIRST_ROW][0]) << "lies in front of all that is one language's";
    for (int language = 0; language < DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT; ++language) {
        EXPECT_STREQ(rows[1][language], "");
        EXPECT_STREQ(rows[21998][language], "");
        EXPECT_EQ(rows[21999][language], nullptr);
    }
}

TEST(generated_source, a_pack_answers_for_its_own_language_and_rows) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n1\tA\t2\n2\tB\t950\n");
    catalogue.write("texts/en.tsv", "row\ttext\n2\ten\n900\tEnglish\n901\tno\n");
    catalogue.write_pack("86", "font_family = Pack \"Sans\"\n", table_of_texts() + "901\t\n21998\tlast\n");
    const std::string own = "pack 86: 8 rows with texts of its own, ";
    const std::string folder = catalogue.path("packs/86/");
    EXPECT_EQ(
        catalogue.run("pack", {"--pack", folder, "--no-fill", "-Wno-control-characters", "-Wno-placeholders"})
            .output,
        own + "none filled\n");
    EXPECT_EQ(catalogue.folder().read("out/option_pack.cpp").find("English"), std::string::npos);
    const std::string filled_rows = "out/tree/panel/attr/filled_rows.txt";
    EXPECT_EQ(catalogue.folder().read(filled_rows), "");
    ASSERT_EQ(
        catalogue.run("pack", {"--pack", folder, "-Wno-control-characters", "-Wno-placeholders"}).output,
        own + "3 filled with English ones\n");
    EXPECT_EQ(catalogue.folder().read(filled_rows), "1\n900\n950\n");
    void* library = load_compiled(catalogue, {"option_pack.cpp"});
    const auto is_valid = symbol<int (*)(int)>(library, "isValidOptionLanguage");
    const auto message = symbol<const char* (*)(long, int)>(library, "optionMessage");
    const auto family = symbol<const char* (*)(int, int)>(library, "optionFontFamily");
    ASSERT_TRUE(is_valid && message && family);
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        EXPECT_STREQ(message(row++, 86), text.text);
    }
    EXPECT_STREQ(message(900, 86), "English");
    for (const long empty : {1L, 901L, 950L}) { // 901: the pack's own text
        EXPECT_STREQ(message(empty, 86), "") << empty;
    }
    EXPECT_STREQ(message(21998, 86), "last");
    for (const long missing : {-2147483647L, -1L, 0L, 1000L, 21999L, 2147483647L}) {
        EXPECT_EQ(message(missing, 86), nullptr) << missing;
    }
    EXPECT_EQ(message(FIRST_ROW, 886), nullptr);
    EXPECT_STREQ(family(0, 86), "Pack \"Sans\"");
    EXPECT_EQ(family(0, 886), nullptr);
    EXPECT_EQ(is_valid(86), 1);
    EXPECT_EQ(is_valid(0), 0);
}

TEST(generated_source, the_header_names_every_id_once) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv",
                    "id\tname\trow\n1\tMSG_A\t2\n2\tMSG_B.1\t2\n3\tMSG_B 1\t2\n4\tMSG_B_1_2\t2\n"
                    "5\ttemplate\t2\n6\t7 \"UP\"\\\\\t2\n7\tBOTH\t2\n");
    catalogue.write("images.tsv", "id\tname\tfile\n1\tICON_A\ta.png\n7\tBOTH\ta.png\n");
    const std::string header = catalogue.folder().path("out/panel_view_ids.h");
    ASSERT_EQ(catalogue.run("header", {"--output", header}).exit_code, 0);
    const auto written = std::filesystem::last_write_time(header);
    ASSERT_EQ(catalogue.run("header", {"--output", header}).exit_code, 0);
    EXPECT_EQ(std::filesystem::last_write_time(header), written) << "nothing to build anew";
    std::string names; // with their ids
    std::istringstream lines(catalogue.folder().read("out/panel_view_ids.h"));
    for (std::string line; std::getline(lines, line);) {
        const std::string type = "constexpr char ";
        names += line.compare(0, type.size(), type) == 0 ? line.substr(type.size()) : "";
    }
    EXPECT_EQ(names, "MSG_A[] = \"1\";MSG_B_1_2_2[] = \"2\";MSG_B_1_3[] = \"3\";MSG_B_1_2_4[] = \"4\";"
                     "template_5[] = \"5\";ID_7__UP__[] = \"6\";BOTH_7[] = \"7\";ICON_A[] = \"1\";"
                     "BOTH_IMAGE_7[] = \"7\";");
    catalogue.folder().write("out/user.cpp", "#include \"panel_view_ids.h\"\nextern const char* const id;\n"
                                             "const char* const id = velarion::MSG_A;\n");
    const char** id = symbol<const char**>(load_compiled(catalogue, {"user.cpp"}), "id");
    ASSERT_NE(id, nullptr);
    EXPECT_STREQ(*id, "1");
}
