#include "panel_dialog.h"
#include "panel_frame.h"
#include "panel_list.h"
#include "panel_stage.h"
#include "panel_touch.h"
#include "screen_table.h"
#include "simulation.h"
#include "text_field.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <gtest/gtest.h>

namespace velarion {
namespace {

/** Screens in every state, worked by keys alone. */
class focus : public testing::TestWithParam<const char*> {
protected:
    ~focus() override { panel_.choose_preferred_language({0, 0}); }

    QWidget* current() { return panel_.panel().focusWidget(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(current() ? current() : &panel_.panel(), &event);
    }
    /** What can be touched, however the focus goes. */
    QList<QWidget*> touchable() {
        QList<QWidget*> found;
        QWidget* area = &panel_.panel();
        area = panel_.panel().dialog() ? panel_.panel().dialog() : area;
        for (QWidget* widget : area->findChildren<QWidget*>()) {
            const bool takes_touch = qobject_cast<QAbstractButton*>(widget) ||
                                     qobject_cast<panel_list*>(widget) ||
                                     (qobject_cast<text_field*>(widget) &&
                                      panel_.panel().screen_name() == QLatin1String("keyboard"));
            if (takes_touch && widget->isEnabled() && widget->isVisibleTo(area)) {
                found.append(widget);
            }
        }
        return found;
    }
    QRect box(const QWidget* widget) { return {widget->mapTo(&panel_.panel(), QPoint()), widget->size()}; }
    /** Whether a reader comes to the second one later: further on in its row, or below, or in a later column.
     */
    bool is_read_after(const QWidget* first, const QWidget* second) {
        const bool has_own_direction = first->parentWidget() == second->parentWidget();
        const bool is_turned = (has_own_direction ? first->parentWidget() : &panel_.panel())->isRightToLeft();
        const QRect before = box(first);
        const QRect after = box(second);
        return after.top() > before.bottom() ||
               (is_turned ? after.right() < before.left() : after.left() > before.right());
    }
    QImage look(QWidget* widget) {
        QImage image(widget->size(), QImage::Format_RGB32);
        widget->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    /** From the first stop on, once around. */
    void walk(const std::string& where);

    simulation panel_;
    panel_stage stage_{panel_, QLatin1String(GetParam())};
};

void focus::walk(const std::string& where) {
    SCOPED_TRACE(where);
    stage_.panel_picture(); // lays it out
    const QList<QWidget*> all = touchable();
    if (!current()) {
        press(Qt::Key_Tab); // nothing on the screen itself
    }
    QList<QWidget*> stops;
    QList<QImage> looks;
    while (!stops.contains(current()) && stops.size() <= all.size()) {
        stops.append(current());
        press(Qt::Key_Shift); // keys make the focus visible
        looks.append(look(current()));
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(current(), stops.first());
    for (QWidget* widget : all) {
        EXPECT_EQ(stops.count(widget), 1) << qPrintable(widget->objectName());
    }
    for (int i = 0; i < stops.size(); ++i) {
        EXPECT_TRUE(all.contains(stops[i])) << i;
        EXPECT_TRUE(stops[i] == current() || look(stops[i]) != looks[i]) << "not seen on " << i;
    }
    int turns = 0; // once around, from the bottom to the top
    std::string names;
    for (int i = 0; i < stops.size(); ++i) {
        turns += is_read_after(stops[i], stops[(i + 1) % stops.size()]) ? 0 : 1;
        names += stops[i]->objectName().toStdString() + " ";
    }
    EXPECT_EQ(turns, 1) << names;
    for (int i = stops.size(); i-- > 0;) {
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(current(), stops[i]) << i;
    }
}

TEST_P(focus, visits_all_that_can_be_touched_in_the_order_of_reading_and_is_seen) {
    for (const screen_view& view : all_screen_views()) {
        stage_.show(view, {1, 0});
        walk(view.name);
    }
    for (const char* name : {"color", "density"}) { // a dialog keeps it
        stage_.show(*panel_stage::find_view(QStringLiteral("copy")), {1, 0});
        stage_.panel_picture();
        QPoint place;
        ASSERT_EQ(find_touchable(panel_.panel(), QLatin1String(name), place), QString());
        touch_panel(panel_.panel(), place);
        ASSERT_TRUE(panel_.panel().dialog());
        walk(name);
    }
}

INSTANTIATE_TEST_SUITE_P(both_directions, focus, testing::Values("ltr", "rtl"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
} // namespace velarion
