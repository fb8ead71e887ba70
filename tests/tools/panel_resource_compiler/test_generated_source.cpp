#include "dvc_pnl_rmg_message_table.h"
#include "scratch_catalogue.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

/** What texts hold that a C++ source could spoil. */
const struct {
    const char* field; ///< as the catalogue writes it
    const char* text;
} TEXTS[] = {
    {"say \"Copy\"", "say \"Copy\""},
    {"C:\\\\new\\\\table \\\\", "C:\\new\\table \\"},
    {"\\\\n is not\\na line break\\n", "\\n is not\na line break\n"},
    {"a\\tb", "a\tb"},
    {"?\?=?\?/?\?(!?\?", "?\?=?\?/?\?(!?\?"},
    {"/* %1 // */ R\"(x)\"", "/* %1 // */ R\"(x)\""},
    {"\xE3\x82\xB3\xE3\x83\x94\xE3\x83\xBC\xF0\x9F\x96\xA8"
     "1",
     "\xE3\x82\xB3\xE3\x83\x94\xE3\x83\xBC\xF0\x9F\x96\xA8"
     "1"},
    {"\x01\x1A\x7F \r.", "\x01\x1A\x7F \r."},
};
const int FIRST_ROW = 2;

std::string table_of_texts() {
    std::string table = "row\ttext\n";
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        table += std::to_string(row++) + "\t" + text.field + "\n";
    }
    return table;
}

/** Generated sources as a library that stays loaded; the trigraphs of old compilers are in force. */
class compiled_source {
public:
    compiled_source(const std::string& folder, const std::vector<std::string>& sources) {
        const std::string library = folder + "/generated.so";
        std::vector<std::string> command = {CXX_COMPILER,       "-std=c++11", "-trigraphs",
                                            "-shared",          "-fPIC",      "-I" TABLE_FOLDER,
                                            "-I" EXPORT_FOLDER, "-o",         library};
        for (const std::string& source : sources) {
            command.push_back(folder + "/" + source);
        }
        const process_result result = run_process(command);
        EXPECT_EQ(result.exit_code, 0) << result.errors;
        handle_ = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    }

    template <typename TYPE> TYPE symbol(const char* name) const {
        return reinterpret_cast<TYPE>(handle_ == nullptr ? nullptr : dlsym(handle_, name));
    }

private:
    void* handle_;
};

} // namespace

TEST(generated_source, message_tables_hold_what_the_catalogue_says) {
    const scratch_catalogue catalogue;
    catalogue.write("messages.tsv", "id\tname\trow\n7\tNAME \"\\\\ ?\?=\\t\t1\n2147483647\tLAST\t21998\n");
    catalogue.write("texts/de.tsv", table_of_texts());
    ASSERT_EQ(catalogue.run("messages", {"-Wno-placeholders"}).exit_code, 0);
    const compiled_source source(catalogue.folder().path("out"),
                                 {"message_id_table.cpp", "message_text_table.cpp"});
    const auto* ids = source.symbol<const DVC_PNL_RMG_IMPL_MESSAGE*>("dvc_pnl_rmg_impl_message_table");
    const auto* size = source.symbol<const int*>("dvc_pnl_rmg_imple_message_table_size");
    using ROW = const char* const[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT];
    const auto* rows = source.symbol<const ROW*>("standard_language_message_table");
    ASSERT_TRUE(ids != nullptr && size != nullptr && rows != nullptr);
    ASSERT_EQ(*size, 2);
    EXPECT_EQ(ids[0].message_id, 7);
    EXPECT_STREQ(ids[0].message_name, "NAME \"\\ ?\?=\t");
    EXPECT_EQ(ids[0].message_table_index, 1);
    EXPECT_EQ(ids[1].message_id, 2147483647);
    EXPECT_EQ(ids[1].message_table_index, 21998);
    const int german = 2;
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        EXPECT_STREQ(rows[row++][german], text.text);
    }
    EXPECT_STREQ(rows[FIRST_ROW][7], "ru");
    for (int language = 0; language < DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT; ++language) {
        EXPECT_STREQ(rows[1][language], "");
        EXPECT_STREQ(rows[21998][language], "");
        EXPECT_EQ(rows[21999][language], nullptr);
    }
}

TEST(generated_source, a_pack_answers_for_its_own_language_and_rows) {
    const scratch_catalogue catalogue;
    catalogue.write_pack("86", "font_family = Pack \"Sans\"\n", table_of_texts() + "21998\tlast\n");
    ASSERT_EQ(catalogue.run("pack", {"--pack", catalogue.path() + "/packs/86"}).exit_code, 0);
    const compiled_source source(catalogue.folder().path("out"), {"option_pack.cpp"});
    const auto is_valid = source.symbol<int (*)(int)>("isValidOptionLanguage");
    const auto message = source.symbol<const char* (*)(long, int)>("optionMessage");
    const auto family = source.symbol<const char* (*)(int, int)>("optionFontFamily");
    ASSERT_TRUE(is_valid != nullptr && message != nullptr && family != nullptr);
    int row = FIRST_ROW;
    for (const auto& text : TEXTS) {
        EXPECT_STREQ(message(row++, 86), text.text);
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
