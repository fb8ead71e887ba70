#include "hard_key.h"
#include "panel_frame.h"
#include "panel_view.h"
#include "pc_keys.h"
#include "simulation.h"
#include "units.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <string>

namespace velarion {
namespace {

TEST(pc_keys, stand_for_hard_keys_wherever_the_focus_is) {
    QWidget window;
    QWidget other;
    QLineEdit field(&window);
    std::string moved;
    const pc_keys keys(window, [&moved](int key, bool is_pressed) {
        moved += (is_pressed ? "+" : "-") + std::to_string(key);
    });
    constexpr auto DOWN = QEvent::KeyPress;
    constexpr auto UP = QEvent::KeyRelease;
    const struct {
        const char* name;
        QWidget& to;
        QEvent::Type type;
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* moved;
        bool repeats = false;
    } rows[] = {{"F2", window, DOWN, Qt::Key_F2, Qt::NoModifier, "+16"},
                {"again, as it is held", window, DOWN, Qt::Key_F2, Qt::NoModifier, "", true},
                {"let go in a field", field, UP, Qt::Key_F2, Qt::NoModifier, "-16"},
                {"let go once more", window, UP, Qt::Key_F2, Qt::NoModifier, ""},
                {"Shift+F2", window, DOWN, Qt::Key_F2, Qt::ShiftModifier, ""},
                {"in another window", other, DOWN, Qt::Key_F2, Qt::NoModifier, ""},
                {"Ctrl+F5", window, DOWN, Qt::Key_F5, Qt::ControlModifier, "+20"},
                {"F5 without Ctrl is let go", window, UP, Qt::Key_F5, Qt::NoModifier, "-20"},
                {"a digit", window, DOWN, Qt::Key_7, Qt::NoModifier, ""},
                {"of the keypad", window, DOWN, Qt::Key_7, Qt::KeypadModifier, "+7"},
                {"let go", window, UP, Qt::Key_7, Qt::KeypadModifier, "-7"},
                {"of the keypad, into a field", field, DOWN, Qt::Key_7, Qt::KeypadModifier, ""},
                {"with Alt", field, DOWN, Qt::Key_0, Qt::AltModifier, "+0"},
                {"and another one", field, DOWN, Qt::Key_F7, Qt::NoModifier, "+14"},
                {"in another window", window, QEvent::WindowDeactivate, 0, Qt::NoModifier, "-0-14"},
                {"let go too late", window, UP, Qt::Key_F7, Qt::NoModifier, ""}};
    for (const auto& row : rows) {
        moved.clear();
        QKeyEvent key_event(row.type, row.key, row.modifiers, QString(QChar(row.key)), row.repeats);
        QEvent plain_event(row.type);
        QCoreApplication::sendEvent(&row.to, row.key == 0 ? &plain_event : &key_event);
        EXPECT_EQ(moved, row.moved) << row.name;
    }
    EXPECT_EQ(field.text(), QStringLiteral("7"));
    EXPECT_EQ(pc_key_text(KEY_HASH), QStringLiteral("keypad / or Alt+,"));
    EXPECT_EQ(pc_key_text(KEY_COPY), QStringLiteral("Ctrl+F5"));
    for (const hard_key_entry& entry : hard_keys()) {
        EXPECT_FALSE(pc_key_text(entry.key).isEmpty()) << entry.name;
    }
}

/** Tells what a widget of the panel gets. */
class spy : public QWidget {
public:
    std::string got;

protected:
    bool event(QEvent* event) override {
        const auto* mouse = dynamic_cast<QMouseEvent*>(event);
        if (mouse) {
            got += std::to_string(mouse->type()) + ":" + std::to_string(mouse->x()) + "," +
                   std::to_string(mouse->y()) + " ";
        }
        return mouse || QWidget::event(event);
    }
};

TEST(view, finds_the_pixels_of_the_panel_at_every_zoom) {
    simulation panel;
    panel_view view(panel.panel());
    for (const auto& [wanted, zoom] : {std::make_pair(1, 1), {2, 2}, {3, 3}, {4, 4}, {9, 4}, {0, 1}}) {
        view.set_zoom(wanted);
        EXPECT_EQ(view.zoom(), zoom);
        EXPECT_EQ(view.sizeHint(), PANEL_SIZE * zoom);
        view.resize(view.sizeHint() + QSize(10, 10)); // a frame of 5
        for (const QPoint& place : {QPoint(0, 0), QPoint(123, 45), QPoint(799, 479)}) {
            EXPECT_EQ(view.view_box({place, QSize(1, 1)}),
                      QRect(place * zoom + QPoint(5, 5), QSize(zoom, zoom)));
            EXPECT_EQ(view.panel_place(view.view_box({place, QSize(1, 1)}).center()), place);
        }
        EXPECT_EQ(view.panel_place({4, 4}), QPoint(-1, -1));
    }
    spy widget;
    widget.setParent(&panel.panel());
    widget.setGeometry(100, 100, 50, 50);
    widget.show();
    const auto send = [&view](QEvent::Type type, const QPoint& place, Qt::MouseButton button) {
        QMouseEvent event(type, place + QPoint(5, 5), button, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    };
    send(QEvent::MouseButtonPress, {110, 120}, Qt::RightButton);
    send(QEvent::MouseMove, {111, 120}, Qt::NoButton);
    EXPECT_EQ(widget.got, "");
    send(QEvent::MouseButtonPress, {110, 120}, Qt::LeftButton);
    send(QEvent::MouseMove, {90, 300}, Qt::NoButton); // as under a finger
    send(QEvent::MouseButtonRelease, {90, 301}, Qt::LeftButton);
    send(QEvent::MouseMove, {110, 120}, Qt::NoButton);
    EXPECT_EQ(widget.got, "2:10,20 5:-10,200 3:-10,201 ");

    const auto turn = [&view](int angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(400, 240), QPointF(), QPoint(), QPoint(0, angle), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    };
    panel.panel().open(QStringLiteral("settings_language"));
    const QImage before = view.picture();
    turn(-120, Qt::NoModifier);
    QCoreApplication::processEvents();
    EXPECT_NE(view.picture(), before); // has scrolled
    EXPECT_EQ(view.zoom(), 1);
    turn(120, Qt::ControlModifier);
    EXPECT_EQ(view.zoom(), 2);
    turn(-120, Qt::ControlModifier);
    EXPECT_EQ(view.zoom(), 1);
    const QWidget* first = panel.panel().focusWidget();
    ASSERT_TRUE(first); // also on a panel that is shown
    for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
        EXPECT_EQ(panel.panel().focusWidget() == first, key == Qt::Key_Backtab);
    }
}

} // namespace
} // namespace velarion
