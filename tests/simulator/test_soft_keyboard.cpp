#include "key_button.h"
#include "key_popup.h"
#include "keyboard_input.h"
#include "simulation.h"
#include "soft_keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

#include <string>

namespace velarion {
namespace {

keyboard_layer layer(const char* name, const std::vector<const char*>& rows) {
    keyboard_layer made{QLatin1String(name), {}};
    for (const char* row : rows) {
        made.rows.emplace_back();
        for (const QString& key : QString::fromUtf8(row).split(QLatin1Char(' '))) {
            const bool is_function = key.size() > 2 && key[0] == QLatin1Char('{');
            const QString sign = key.section(QLatin1Char(':'), 0, 0);
            made.rows.back().push_back({is_function ? QString() : sign, key.section(QLatin1Char(':'), 1),
                                        is_function ? key.mid(1, key.size() - 2) : QString(), 1});
        }
    }
    return made;
}

/** The keys of the panel under fingers and under the keys of a PC, 900 x 300. */
class keys : public testing::Test {
protected:
    keys() {
        window_.resize(900, 300);
        board_->setParent(&window_);
        board_->setGeometry(0, 0, 900, 300);
        QObject::connect(board_, &soft_keyboard::entered, board_, [this] { ++entered_; });
        window_.show();
    }

    key_button* key(const char* name) {
        key_button* found = nullptr;
        for (auto* each :
             window_.findChildren<key_button*>(QStringLiteral("key_") + QString::fromUtf8(name))) {
            const bool is_offer = qobject_cast<key_popup*>(each->parentWidget());
            found = each->isVisible() && (!found || is_offer) ? each : found;
        }
        EXPECT_TRUE(found) << name;
        return found;
    }
    key_popup* popup() {
        for (auto* each : window_.findChildren<key_popup*>()) {
            if (each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    void send(QWidget* to, QEvent::Type type, int pc_key, const QString& text = QString()) {
        QKeyEvent event(type, pc_key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(to, &event);
    }
    void press(int pc_key) {
        send(window_.focusWidget(), QEvent::KeyPress, pc_key);
        send(window_.focusWidget(), QEvent::KeyRelease, pc_key);
    }
    void step(int steps) {
        while (steps-- > 0) {
            board_->step();
        }
    }
    void hold(const char* name) {
        key_button* held = key(name);
        held->setDown(true);
        Q_EMIT held->pressed();
        step(5);
    }
    std::string focus() {
        return window_.focusWidget() ? window_.focusWidget()->objectName().toStdString() : "";
    }
    std::string text() { return input_.text().toStdString(); }

    const simulation panel_; // its pictures
    keyboard_input input_{
        {{QStringLiteral("Latin"),
          false,
          {layer("base", {"q:12 w e r t y u i o p:12345678", "a:áà s d", "{shift} z {next} {space} {enter}"}),
           layer("shift", {"Q W E R T Y U I O P", "A S D", "{base} Z {next} {space} {enter}"})},
          {}},
         {QStringLiteral("Greek"), false, {layer("base", {"α β", "{next}"})}, {}}},
        QString(),
        QString(),
        40};
    QWidget window_;
    soft_keyboard* board_ = new soft_keyboard(input_);
    int entered_ = 0;
};

TEST_F(keys, a_key_that_is_held_offers_more) {
    hold("a");
    ASSERT_TRUE(popup());
    EXPECT_TRUE(board_->rect().contains(popup()->geometry()));
    key("s")->click(); // beside the offers: they go, and nothing is typed
    EXPECT_FALSE(popup());
    EXPECT_EQ(text(), "");
    hold("a");
    key("à")->click();
    EXPECT_EQ(text(), "à");
    EXPECT_FALSE(popup());
    for (const char* edge : {"q", "p"}) { // at an edge, and without room above
        hold(edge);
        ASSERT_TRUE(popup());
        EXPECT_TRUE(board_->rect().contains(popup()->geometry())) << edge;
        EXPECT_FALSE(popup()->geometry().intersects(key(edge)->geometry())) << edge;
        EXPECT_TRUE(popup()->isAncestorOf(window_.childAt(key("1")->mapTo(&window_, QPoint(5, 5))))) << edge;
        key("w")->click();
    }
    Q_EMIT key("s")->pressed(); // let go in time
    step(4);
    Q_EMIT key("s")->released();
    step(9);
    Q_EMIT key("a")->pressed();
    step(4);
    EXPECT_FALSE(popup());
    step(1);
    EXPECT_TRUE(popup());
}

TEST_F(keys, shift_is_for_one_letter_or_locked_and_keyboards_are_chosen) {
    key("shift")->click();
    key("A")->click();
    key("a")->click();
    hold("shift");
    key("A")->click();
    key("S")->click();
    key("base")->click();
    key("d")->click();
    EXPECT_EQ(text(), "AaASd");
    hold("next");
    ASSERT_TRUE(popup());
    key("Greek")->click();
    EXPECT_EQ(input_.board_number(), 1);
    key("β")->click();
    key("next")->click();
    key("enter")->click();
    EXPECT_EQ(text(), "AaASdβ");
    EXPECT_EQ(entered_, 1);
}

TEST_F(keys, arrows_go_to_the_key_that_a_person_expects) {
    struct {
        const char* from;
        int arrow;
        const char* to;
    } const rows[] = {
        {"q", Qt::Key_Right, "w"}, {"w", Qt::Key_Left, "q"},    {"q", Qt::Key_Left, "q"},
        {"p", Qt::Key_Right, "p"}, {"t", Qt::Key_Down, "a"},    {"q", Qt::Key_Down, "a"},
        {"s", Qt::Key_Up, "t"},    {"a", Qt::Key_Up, "r"},      {"shift", Qt::Key_Up, "a"},
        {"q", Qt::Key_Up, "q"},    {"s", Qt::Key_Down, "next"}, {"enter", Qt::Key_Down, "enter"}};
    for (const auto& row : rows) {
        key(row.from)->setFocus();
        press(row.arrow);
        EXPECT_EQ(focus(), std::string("key_") + row.to) << row.from << " " << row.arrow;
    }
    key("s")->setFocus();
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    press(Qt::Key_Space);
    EXPECT_EQ(text(), "sss");
    press(Qt::Key_Shift); // no arrow: stays
    EXPECT_EQ(focus(), "key_s");
    key("shift")->setFocus();
    press(Qt::Key_Space); // the keys are others; the focus stays in its place
    EXPECT_EQ(focus(), "key_base");

    key("base")->click();
    key("a")->setFocus();
    send(key("a"), QEvent::KeyPress, Qt::Key_Space);
    step(5);
    EXPECT_EQ(focus(), "key_á");
    press(Qt::Key_Left); // there is none
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(focus(), "key_à");
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "sssà");
    EXPECT_EQ(focus(), "key_a");
}

TEST_F(keys, what_a_pc_types_is_taken_unless_it_is_no_text) {
    struct {
        int key;
        const char* typed;
        bool is_taken;
        const char* text;
    } const rows[] = {{Qt::Key_X, "x", true, "x"},          {Qt::Key_Escape, "\x1b", false, "x"},
                      {Qt::Key_F1, "", false, "x"},         {Qt::Key_Y, "ÿ", true, "xÿ"},
                      {Qt::Key_Left, "", true, "xÿ"},       {Qt::Key_1, "1", true, "x1ÿ"},
                      {Qt::Key_Right, "", true, "x1ÿ"},     {Qt::Key_Backspace, "\b", true, "x1"},
                      {Qt::Key_Delete, "\x7f", false, "x1"}};
    for (const auto& row : rows) {
        EXPECT_EQ(
            board_->take_pc_key({QEvent::KeyPress, row.key, Qt::NoModifier, QString::fromUtf8(row.typed)}),
            row.is_taken)
            << row.key;
        EXPECT_EQ(text(), row.text) << row.key;
    }
}

TEST_F(keys, a_keyboard_alone_has_no_way_to_another_one) {
    input_.change_boards({{QStringLiteral("Greek"), false, {layer("base", {"α β", "{next} {space}"})}, {}}},
                         QStringLiteral("β"));
    board_->reload();
    EXPECT_FALSE(key("next")->isEnabled());
    key("β")->click();
    EXPECT_TRUE(input_.was_refused());
    key("space")->click();
    key("α")->click();
    EXPECT_EQ(text(), " α");
    panel_contents contents;
    key("space")->describe(contents);
    EXPECT_EQ(contents.texts.at(0).text, QLatin1String("Greek"));
}

} // namespace
} // namespace velarion
