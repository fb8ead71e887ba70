#include "panel_list.h"
#include "simulation.h"
#include "units.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace velarion {
namespace {

void touch(QWidget& widget, QEvent::Type type, int y) {
    QMouseEvent event(type, QPoint(20, y), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

TEST(panel, a_text_steps_down_where_its_box_is_small) {
    const simulation panel;
    text_block text(text_role::BODY);
    text.set_message(message_text::literal(QStringLiteral("Paper selection")));
    const int width = text.size_hint(0).width();
    const int caption = font_of(text_role::CAPTION).pixelSize();
    struct {
        int width, pixels;
        bool overflows;
    } const rows[] = {{width, font_of(text_role::BODY).pixelSize(), false},
                      {width - 2, caption, false},
                      {width / 2, caption, true}};
    for (const auto& row : rows) {
        panel_contents contents;
        text.describe(QRect(0, 0, row.width, 40), contents);
        EXPECT_EQ(contents.texts[0].font.pixelSize(), row.pixels) << row.width;
        EXPECT_EQ(contents.texts[0].overflows(), row.overflows) << row.width;
    }
}

TEST(panel, a_list_tells_a_tap_from_a_drag) {
    const simulation panel;
    panel_list list;
    std::vector<list_row> rows(20, list_row{QStringLiteral("a"), QStringLiteral("4"), "1"});
    list.set_rows(rows);
    const int row = px(grid::row);
    list.resize(300, 4 * row);
    int chosen = -1;
    QObject::connect(&list, &panel_list::chosen, &list, [&chosen](int place) { chosen = place; });
    struct {
        int from, to, chosen;
    } const touches[] = {{row + 5, row + 9, 1},      // a finger is not still
                         {3 * row + 5, row + 5, -1}, // scrolls by two rows
                         {5, 5, 2},
                         {5, 50 * row, -1}, // not above the first row
                         {5, 5, 0}};
    for (const auto& one : touches) {
        chosen = -1;
        touch(list, QEvent::MouseButtonPress, one.from);
        touch(list, QEvent::MouseMove, one.to);
        touch(list, QEvent::MouseButtonRelease, one.to);
        EXPECT_EQ(chosen, one.chosen) << one.from << " to " << one.to;
    }
}

TEST(panel, a_list_follows_wheel_and_keys_within_its_rows) {
    const simulation panel;
    panel_list list;
    std::vector<list_row> rows(20, list_row{QString(), {}, "1"});
    for (int i = 0; i < 20; ++i) {
        rows[static_cast<std::size_t>(i)].name = QString::number(i);
    }
    rows[12].is_chosen = true;
    list.set_rows(rows);
    const int row = px(grid::row);
    list.resize(300, 4 * row);
    int chosen = -1;
    QObject::connect(&list, &panel_list::chosen, &list, [&chosen](int place) { chosen = place; });
    const auto top = [&list, row] { // the first row that is seen
        touch(list, QEvent::MouseButtonPress, 5);
        int place = -1;
        const auto told =
            QObject::connect(&list, &panel_list::chosen, &list, [&place](int at) { place = at; });
        touch(list, QEvent::MouseButtonRelease, 5);
        QObject::disconnect(told);
        return place;
    };
    const auto press = [&list, &chosen](int key, int times) {
        for (int i = 0; i < times; ++i) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&list, &event);
        }
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(&list, &enter);
        return chosen;
    };
    const auto turn = [&list](int angle) {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, angle), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &event);
    };
    EXPECT_EQ(press(Qt::Key_Down, 1), 13); // from the chosen one on
    EXPECT_EQ(top(), 10);
    turn(-4 * row);
    EXPECT_EQ(top(), 12);
    list.set_rows(std::vector<list_row>(rows.begin(), rows.begin() + 19)); // stays where somebody scrolled to
    EXPECT_EQ(top(), 12);
    turn(2 * row);
    EXPECT_EQ(top(), 11);
    EXPECT_EQ(press(Qt::Key_Down, 30), 18);
    EXPECT_EQ(top(), 15);
    EXPECT_EQ(press(Qt::Key_Up, 30), 0);
    EXPECT_EQ(top(), 0);
    list.begin_anew();
    EXPECT_EQ(top(), 9);
    EXPECT_EQ(press(Qt::Key_Down, 9), 18);
    list.set_rows(std::vector<list_row>(rows.begin(), rows.begin() + 5));
    EXPECT_EQ(press(Qt::Key_Up, 1), 3); // of those that are left
    panel_contents contents;
    list.describe(contents);
    EXPECT_EQ(contents.texts.size(), 4U);
    touch(list, QEvent::MouseButtonPress, 5);
    touch(list, QEvent::MouseButtonRelease, 2 * row + 5); // never moved, and yet elsewhere
    EXPECT_EQ(chosen, 3);
}

TEST(panel, rows_are_mirrored_from_right_to_left) {
    const simulation panel;
    panel_list list;
    list.set_rows({{QStringLiteral("a"), QStringLiteral("4"), "1", "2"}});
    list.resize(300, 100);
    panel_contents ltr;
    list.describe(ltr);
    panel_contents rtl;
    list.setLayoutDirection(Qt::RightToLeft);
    list.describe(rtl);
    EXPECT_EQ(rtl.pictures[1].box.right(), 299 - ltr.pictures[1].box.left());
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(rtl.texts[i].box.right(), 299 - ltr.texts[i].box.left()) << i;
    }
}

TEST(panel, tab_goes_through_the_screen_before_the_navigation) {
    simulation panel;
    QStringList names;
    while (names.size() < 20) {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QCoreApplication::sendEvent(panel.panel().focusWidget(), &tab);
        names.append(panel.panel().focusWidget()->objectName());
    }
    EXPECT_EQ(names[names.indexOf(QStringLiteral("status_pill")) + 1], QStringLiteral("copy"));
}

} // namespace
} // namespace velarion
