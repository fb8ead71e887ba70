#include "keyboard_file.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace velarion;

namespace {

class keyboard_file : public testing::Test {
protected:
    QString path_of(const std::string& contents) const {
        scratch_.write("file", contents);
        return QString::fromStdString(scratch_.path("file"));
    }

    QString fault_;
    scratch_folder scratch_;
};

} // namespace

TEST_F(keyboard_file, keys_functions_and_single_signs) {
    keyboard board;
    ASSERT_TRUE(
        read_keyboard(path_of("# x\r\nname = N = M\r\ndirection = rtl\n\n[base]\n: { } [ ] a:bc  {up*2.5}\n"
                              "[ ] <\n[up]\n{base}\n[composition]\n= = ==\n"),
                      board, fault_))
        << fault_.toStdString();
    EXPECT_EQ(board.name, QLatin1String("N = M"));
    EXPECT_TRUE(board.is_right_to_left);
    ASSERT_EQ(board.layers.size(), 2U);
    ASSERT_EQ(board.layers[0].rows.size(), 2U);
    const auto& row = board.layers[0].rows[0];
    ASSERT_EQ(row.size(), 7U);
    EXPECT_EQ(row[0].text, QLatin1String(":"));
    EXPECT_EQ(row[1].text, QLatin1String("{"));
    EXPECT_EQ(row[5].held, QLatin1String("bc"));
    EXPECT_EQ(row[6].function, QLatin1String("up"));
    EXPECT_EQ(row[6].width, 2.5);
    ASSERT_EQ(board.compositions.size(), 1U);
    EXPECT_EQ(board.compositions[0].second, QLatin1String("=="));
}

TEST_F(keyboard_file, faults_name_their_line) {
    const struct {
        const char* contents;
        const char* fault;
    } rows[] = {
        {"name = x\n", "file:2: there is no layer, \"[base]\""},
        {"\nnone = x\n[base]\na\n", "file:2: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"[base]\na {x*0} b\n", "file:2: \"{x*0}\" is no key"},
        {"[base]\na: b\n", "file:2: \"a:\" is no key"},
        {"[base]\na\n[composition]\na=b\n", "file:4: is no \"KEYS = TEXT\""},
        {"[base]\na {up}\n", "file: layer \"base\": {up} is neither a function nor a layer"},
        {"[base]\n\xFF\n", "file: is larger than 1 MiB or no UTF-8"},
        {"[base]\na\n", ""},
        {"[base]\n {} [] {base*20}  {backspace} {enter} {left} {next} {right} {space}\n", ""},
        {"direction = ltr\n[base]\na\n", ""},
        {"direction = up\n[base]\na\n",
         "file:1: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"side = rtl\n[base]\na\n", "file:1: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"name = \n[base]\na\n", "file:1: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"[base a]\na\n", "file:1: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"[]\n[base]\na\n", "file:1: is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""},
        {"[base]\n{base*20.5}\n", "file:2: \"{base*20.5}\" is no key"},
        {"[base]\n{base*1*1}\n", "file:2: \"{base*1*1}\" is no key"},
        {"[base]\n{base*x}\n", "file:2: \"{base*x}\" is no key"},
        {"[base]\n{*2}\n", "file:2: \"{*2}\" is no key"},
        {"[composition]\n = b\n", "file:2: is no \"KEYS = TEXT\""},
        {"[composition]\na = \n", "file:2: is no \"KEYS = TEXT\""},
    };
    for (const auto& row : rows) {
        keyboard board;
        fault_.clear();
        EXPECT_EQ(read_keyboard(path_of(row.contents), board, fault_), row.fault == std::string())
            << row.contents;
        EXPECT_EQ(fault_.section(QLatin1Char('/'), -1).toStdString(), row.fault);
    }
}

TEST_F(keyboard_file, prohibitions_of_all_languages_and_of_one) {
    const QString path =
        path_of("[*]\nfile = / U+0041-U+0043 -\n[81]\nfile = U+1F600\nline = x\n[7]\nfile = 7\n");
    prohibitions rules;
    ASSERT_TRUE(read_prohibitions(path, 81, rules, fault_)) << fault_.toStdString();
    EXPECT_EQ(rules.size(), 2U);
    EXPECT_EQ(rules[QStringLiteral("file")].toStdString(), "/ABC-\xF0\x9F\x98\x80");
    for (const char* bad :
         {"[1]\nf = ab\n", "[1]\nf = U+110000\n", "[1]\nf = U+0043-U+0041\n", "[1]\nf = U+0000-U+FFFF\n",
          "f = a\n", "[1]\nf = U+004G\n", "[1]\nf = a-b-c\n", "[1]\nf = U+0000-U+0100\n"}) {
        EXPECT_FALSE(read_prohibitions(path_of(bad), 1, rules, fault_)) << bad;
    }
}

TEST_F(keyboard_file, limits) {
    keyboard board;
    const std::string start = "[base]\na\n";
    const std::string full = start + std::string((1 << 20) - start.size(), '\n');
    EXPECT_TRUE(read_keyboard(path_of(full), board, fault_)) << fault_.toStdString();
    EXPECT_FALSE(read_keyboard(path_of(full + '\n'), board, fault_));
    EXPECT_TRUE(fault_.endsWith(QLatin1String("file: is larger than 1 MiB or no UTF-8")));
    prohibitions rules;
    EXPECT_TRUE(read_prohibitions(path_of("[*]\nf = U+0100-U+01FF\n"), 1, rules, fault_));
    EXPECT_EQ(rules[QStringLiteral("f")].size(), 256);
}

TEST_F(keyboard_file, language_information_keeps_the_order_of_the_keyboards) {
    const QString path =
        path_of("[7]\nname = R\nkeyboard = b.kbd\nkeyboard = a.kbd\n[8]\nkeyboard = c.kbd\n");
    language_information information;
    ASSERT_TRUE(read_language_information(path, 7, information, fault_)) << fault_.toStdString();
    EXPECT_EQ(information.name, QLatin1String("R"));
    EXPECT_EQ(information.keyboards, (QStringList{QStringLiteral("b.kbd"), QStringLiteral("a.kbd")}));
    EXPECT_FALSE(read_language_information(path_of("[7]\ncolour = x\n"), 7, information, fault_));
    EXPECT_FALSE(read_language_information(QStringLiteral("/none"), 7, information, fault_));
    const QString pipe = QString::fromStdString(scratch_.path("pipe"));
    ASSERT_EQ(mkfifo(scratch_.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(read_language_information(pipe, 7, information, fault_));
    EXPECT_EQ(fault_, pipe + QLatin1String(": is no regular file; replace it by one"));
}
