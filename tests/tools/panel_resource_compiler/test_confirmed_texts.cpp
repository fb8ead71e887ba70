#include "confirmed_texts.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace velarion;

TEST(confirmed_texts, hashes_are_the_same_everywhere) {
    EXPECT_EQ(english_hash(""), "4fd0bfc1");  // cbf29ce4 ^ 84222325
    EXPECT_EQ(english_hash("a"), "296230c0"); // af63dc4c ^ 8601ec8c, the published value of one letter
    EXPECT_EQ(english_hash("\xC3\xA4"), english_hash("\xC3\xA4"));
    EXPECT_NE(english_hash("Copy"), english_hash("Copy "));
}

TEST(confirmed_texts, a_text_is_stale_when_the_english_one_changed) {
    const scratch_folder folder;
    std::ostringstream output;
    diagnostics report(output);
    confirmed_texts texts(folder.path("c"), "de");
    ASSERT_TRUE(texts.read(report)) << output.str();
    texts.confirm(12, "Copy");
    texts.confirm(3, "Scan");
    texts.confirm(4, "");
    texts.forget(3);
    file_replacement files;
    std::string fault;
    texts.save(files);
    ASSERT_TRUE(files.commit(fault)) << fault;
    confirmed_texts again(folder.path("c"), "de");
    ASSERT_TRUE(again.read(report)) << output.str();
    EXPECT_EQ(again.state(12, "Copy"), confirmation::CURRENT);
    EXPECT_EQ(again.state(12, "Copies"), confirmation::STALE);
    EXPECT_EQ(again.state(3, "Scan"), confirmation::NONE);
    EXPECT_EQ(again.state(4, ""), confirmation::CURRENT);
    EXPECT_EQ(again.line_of(12), 3U);
    for (const char* bad :
         {"2\t0123456\n", "2\t0123456G\n", "3\t01234567\n3\t01234567\n", "x\t01234567\n", "2\n"}) {
        folder.write("c/confirmed/de.tsv", std::string("row\tenglish\n") + bad);
        EXPECT_FALSE(confirmed_texts(folder.path("c"), "de").read(report)) << bad;
    }
}
