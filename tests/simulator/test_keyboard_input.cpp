#include "keyboard_input.h"

#include <gtest/gtest.h>

namespace velarion {

namespace {

keyboard_key text_key(const char* text) {
    return {QString::fromUtf8(text), {}, {}, 1};
}

keyboard_key function_key(const char* function) {
    return {{}, {}, QLatin1String(function), 1};
}

std::vector<keyboard> two_boards() {
    keyboard kana{QStringLiteral("kana"), false, {}, {}};
    for (const char* layer : {"base", "shift", "symbols"}) {
        kana.layers.push_back({QLatin1String(layer), {}});
    }
    for (const auto& composition :
         {std::make_pair("ka", "か"), std::make_pair("a", "あ"), std::make_pair("kk", "っk"),
          std::make_pair("~", "~"), std::make_pair("p", "qq"), std::make_pair("q", "p")}) {
        kana.compositions.emplace_back(QString::fromUtf8(composition.first),
                                       QString::fromUtf8(composition.second));
    }
    keyboard hebrew{QStringLiteral("hebrew"), true, {{QStringLiteral("base"), {}}}, {}};
    return {kana, hebrew};
}

/** Keys one after the other: "<name>" is a function, all else is typed. */
void press_all(keyboard_input& input, const QString& keys) {
    for (int i = 0; i < keys.size(); ++i) {
        const int end = keys[i] == QLatin1Char('<') ? keys.indexOf(QLatin1Char('>'), i) : i;
        input.press(end > i ? function_key(qPrintable(keys.mid(i + 1, end - i - 1)))
                            : text_key(QString(keys[i]).toUtf8()));
        i = end;
    }
}

struct typing_case {
    const char* what;
    const char* before;
    const char* keys;
    const char* text;
    int cursor;
    const char* layer;
    bool was_refused;
};

constexpr typing_case TYPING[] = {
    {"the longest composition counts, and what it yields composes again", "", "kka", "っか", 2, "base",
     false},
    {"composed where the cursor stands, not where the text ends", "kz", "<left>a", "かz", 1, "base", false},
    {"a sign that composes to itself stays", "", "~~", "~~", 2, "base", false},
    {"shift is for one key", "", "<shift>XY", "XY", 2, "base", false},
    {"a layer that is no shift stays", "", "<symbols>12", "12", 2, "symbols", false},
    {"a function is no text: the shift stays", "x", "<shift><left>", "x", 0, "shift", false},
    {"a prohibited sign is refused, the shift stays for another one", "", "<shift>:", "", 0, "shift", true},
    {"what is prohibited already does not stand in the way", "a:", "z", "a:z", 3, "base", false},
    {"the limit counts characters", "\U0001F600\U0001F600wwww", "zz", "\U0001F600\U0001F600wwwwz", 9, "base",
     true},
    {"a composition may stay within the limit", "wwwwwwk", "a", "wwwwwwか", 7, "base", false},
    {"backspace takes a letter with its points", "\u05e9\u05c1", "<backspace>", "", 0, "base", false},
    {"backspace before the first character", "z", "<left><backspace>", "z", 0, "base", false},
    {"in a keyboard from right to left the arrows are the other way round", "yz", "<next><right>x", "yxz", 2,
     "base", false},
    {"after the last keyboard the first one comes, in its first layer", "", "<symbols><next><next>", "", 0,
     "base", false},
};

} // namespace

TEST(keyboard_input, keys_change_the_text) {
    for (const typing_case& row : TYPING) {
        SCOPED_TRACE(row.what);
        keyboard_input input(two_boards(), QString::fromUtf8(row.before), QStringLiteral(":"), 7);
        press_all(input, QString::fromUtf8(row.keys));
        EXPECT_EQ(input.text(), QString::fromUtf8(row.text));
        EXPECT_EQ(input.cursor(), row.cursor);
        EXPECT_EQ(input.layer().name, QLatin1String(row.layer));
        EXPECT_EQ(input.was_refused(), row.was_refused);
    }
}

TEST(keyboard_input, a_locked_shift_stays_and_compositions_without_end_end) {
    keyboard_input input(two_boards(), QString(), QString(), 40);
    input.choose_layer(QStringLiteral("shift"), true);
    press_all(input, QStringLiteral("XYp"));
    EXPECT_EQ(input.layer().name, QLatin1String("shift"));
    EXPECT_TRUE(input.text().startsWith(QLatin1String("XY")));
}

} // namespace velarion
