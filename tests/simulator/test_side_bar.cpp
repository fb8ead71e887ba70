#include "device_link.h"
#include "findings_overlay.h"
#include "inspector.h"
#include "panel_frame.h"
#include "panel_view.h"
#include "record_tab.h"
#include "simulation.h"
#include "units.h"
#include "wait_until.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <functional>

namespace velarion {
namespace {

template <class WIDGET> WIDGET* labelled(const QWidget& area, const char* label) {
    for (WIDGET* widget : area.findChildren<WIDGET*>()) {
        if (widget->text().remove(QLatin1Char('&')) == QLatin1String(label)) {
            return widget;
        }
    }
    ADD_FAILURE() << label;
    return nullptr;
}

std::string row_of(const QTreeWidgetItem* item) {
    QStringList cells;
    for (int i = 0; item && i < item->columnCount(); ++i) {
        cells.append(item->text(i));
    }
    return cells.join(QLatin1Char('|')).toStdString();
}

/** The side bar beside a panel, worked with the mouse. */
class side_bar : public testing::Test {
protected:
    side_bar() {
        QGuiApplication::clipboard()->clear();
        view_.resize(PANEL_SIZE);
        view_.show();
        bar_.show();
        view_.picture();
        EXPECT_TRUE(wait_until([this] { return list().topLevelItemCount() > 0; }));
    }
    ~side_bar() override { panel_.choose_preferred_language({0, 0}); }

    QTabWidget& tabs() { return *bar_.findChild<QTabWidget*>(); }
    QWidget& element_tab() { return *tabs().widget(0); }
    QTreeWidget& list() { return *element_tab().findChildren<QTreeWidget*>().at(1); }
    /** What the side bar tells of the element that is pointed at. */
    std::string title() { return element_tab().findChild<QLabel*>()->text().toStdString(); }
    std::string news() {
        return labelled<QToolButton>(bar_, "Overlay")
            ->parentWidget()
            ->findChild<QLabel*>()
            ->text()
            .toStdString();
    }
    std::string screen() { return panel_.panel().screen_name().toStdString(); }
    /** The first text of an id, or of none that is written so. */
    shown_text shown(const char* wanted) {
        for (const shown_text& text : describe_panel(panel_.panel()).texts) {
            if (text.message.id() == QLatin1String(wanted) || text.text == QLatin1String(wanted)) {
                return text;
            }
        }
        return {};
    }
    std::string text_of(const char* id) { return shown(id).text.toStdString(); }
    QPoint place_of(const char* id) { return view_.view_box(shown(id).box).center(); }
    void mouse(QEvent::Type type, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButtons held = Qt::NoButton) {
        const bool is_move = type == QEvent::MouseMove;
        QMouseEvent event(type, place, is_move ? Qt::NoButton : Qt::LeftButton, held, modifiers);
        QCoreApplication::sendEvent(&view_, &event);
    }
    void point(const QPoint& place) { mouse(QEvent::MouseMove, place); }
    void click(const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        mouse(QEvent::MouseButtonPress, place, modifiers, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, place, modifiers);
    }
    std::string copied() { return QGuiApplication::clipboard()->text().toStdString(); }
    void choose(QComboBox* box, const QVariant& data) {
        box->setCurrentIndex(box->findData(data));
        Q_EMIT box->activated(box->currentIndex());
    }

    simulation panel_;
    panel_view view_{panel_.panel()};
    device_link link_; // nothing serves it
    QList<QStringList> commands_;
    QString fault_;
    inspector bar_{{panel_, view_, link_, [this](const QStringList& words) {
                        commands_.append(words);
                        return fault_;
                    }}};
};

TEST_F(side_bar, the_mouse_points_and_copies_or_touches) {
    const QPoint copy = place_of("1");
    const QPoint fax = place_of("4");
    const QPoint nothing(5, 475);
    point(copy);
    EXPECT_EQ(title(), "Copy");
    mouse(QEvent::MouseMove, fax, Qt::NoModifier, Qt::LeftButton); // drags something on the panel
    EXPECT_EQ(title(), "Copy");
    tabs().setCurrentIndex(3);
    click(fax, Qt::ControlModifier);
    EXPECT_EQ(copied(), "4");
    EXPECT_EQ(news(), "Copied 4");
    EXPECT_EQ(title(), "Fax");
    EXPECT_EQ(tabs().currentIndex(), 0);
    EXPECT_EQ(screen(), "home"); // was not touched
    point(copy);
    EXPECT_EQ(title(), "Fax"); // stays
    click(nothing, Qt::ControlModifier);
    EXPECT_EQ(title().find("Point at"), 0U);
    EXPECT_EQ(copied(), "4");
    point(copy);
    EXPECT_EQ(title(), "Copy");

    bar_.set_inspecting(true);
    click(fax);
    QGuiApplication::clipboard()->clear();
    click(copy);
    mouse(QEvent::MouseButtonDblClick, copy, Qt::NoModifier, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, copy);
    EXPECT_EQ(copied(), "1");
    EXPECT_EQ(screen(), "home");
    bar_.set_inspecting(false);
    point(fax);
    EXPECT_EQ(title(), "Fax");
    click(fax);
    EXPECT_EQ(screen(), "fax");
    EXPECT_EQ(title(), "Fax"); // is called so, too
    panel_.panel().open(QStringLiteral("trays"));
    view_.picture();
    EXPECT_TRUE(wait_until([this] { return title().find("Point at") == 0; })); // it is gone
}

TEST_F(side_bar, the_list_of_elements_is_worked_without_a_mouse) {
    const auto find = [this](const char* text, int column) {
        const auto found = list().findItems(QLatin1String(text), Qt::MatchExactly, column);
        EXPECT_EQ(found.size(), 1) << text;
        return found.value(0);
    };
    list().setCurrentItem(find("Copy", 1));
    EXPECT_EQ(title(), "Copy");
    Q_EMIT list().itemActivated(find("Copy", 1), 0);
    EXPECT_EQ(copied(), "1");
    list().setCurrentItem(find("10:05", 1));
    EXPECT_EQ(row_of(list().currentItem()), "\u2013|10:05"); // has no id
    labelled<QPushButton>(bar_, "Copy id")->click();
    EXPECT_EQ(copied(), "10:05");
    point(place_of("4"));
    EXPECT_EQ(row_of(list().currentItem()), "4|Fax");
    click({5, 475}, Qt::ControlModifier);
    EXPECT_FALSE(labelled<QPushButton>(bar_, "Copy id")->isEnabled());
    panel_.panel().open(QStringLiteral("copy"));
    view_.picture();
    EXPECT_TRUE(
        wait_until([this] { return !list().findItems(QStringLiteral("127"), Qt::MatchExactly).isEmpty(); }));
    EXPECT_TRUE(list().findItems(QStringLiteral("Fax"), Qt::MatchExactly, 1).isEmpty());
}

TEST_F(side_bar, each_button_of_the_device_tab_is_a_command_whose_fault_is_told) {
    QWidget& tab = *tabs().widget(4);
    const auto fields = tab.findChildren<QSpinBox*>();
    fields.at(0)->setValue(777);
    fields.at(1)->setValue(42);
    struct {
        const char* label;
        const char* command;
    } const rows[] = {{"Kill", "kill"},      {"Restart", "restart"}, {"Pause", "pause"},
                      {"Go on", "continue"}, {"Drop", "drop"},       {"Crash", "crash"},
                      {"Normal", "normal"},  {"Delay", "delay 777"}, {"Refuse", "refuse 42"}};
    for (const auto& row : rows) {
        commands_.clear();
        labelled<QPushButton>(tab, row.label)->click();
        EXPECT_EQ(commands_.size(), 1) << row.label;
        EXPECT_EQ(commands_.value(0).join(QLatin1Char(' ')), QLatin1String(row.command));
        EXPECT_EQ(news(), std::string("Device service: ") + row.command);
    }
    fault_ = QStringLiteral("it cannot");
    labelled<QPushButton>(tab, "Kill")->click();
    EXPECT_EQ(news(), "it cannot");
    link_.set_led(3, 2);
    EXPECT_EQ(row_of(tab.findChild<QTreeWidget*>()->topLevelItem(3)), "stop|blink_slow|\u2013|dark");
}

TEST_F(side_bar, the_fields_above_the_tabs_turn_the_panel) {
    const auto boxes = bar_.findChildren<QComboBox*>();
    choose(boxes.at(0), 49);
    EXPECT_EQ(text_of("1"), "Kopie");
    choose(boxes.at(1), 33);
    EXPECT_EQ(text_of("1"), "Kopie");
    choose(boxes.at(0), 0);
    EXPECT_EQ(text_of("1"), "Copie");
    panel_.choose_preferred_language({1, 0}); // from elsewhere
    EXPECT_EQ(boxes.at(0)->currentData().toInt(), 1);
    EXPECT_EQ(boxes.at(1)->currentData().toInt(), 33);
    panel_.choose_preferred_language({5, 0}); // in no list
    EXPECT_EQ(boxes.at(0)->currentData().toInt(), 5);
    panel_.choose_preferred_language({1, 0});
    boxes.at(2)->setCurrentIndex(2);
    Q_EMIT boxes.at(2)->activated(2);
    EXPECT_TRUE(panel_.panel().isRightToLeft());
    choose(boxes.at(0), 49); // a language does not turn it back
    EXPECT_TRUE(panel_.panel().isRightToLeft());
    EXPECT_FALSE(bar_.isRightToLeft());
    boxes.at(2)->setCurrentIndex(0);
    Q_EMIT boxes.at(2)->activated(0);
    EXPECT_FALSE(panel_.panel().isRightToLeft());

    choose(boxes.at(0), 1);
    auto* pseudo = labelled<QToolButton>(bar_, "Pseudo-texts");
    pseudo->click();
    EXPECT_GT(text_of("1").size(), 5U);
    pseudo->click();
    EXPECT_EQ(text_of("1"), "Copy");
    auto* names = labelled<QToolButton>(bar_, "Names");
    names->click();
    EXPECT_TRUE(qEnvironmentVariableIsSet("TEST_ICON_MESSAGE"));
    names->click();
    EXPECT_FALSE(qEnvironmentVariableIsSet("TEST_ICON_MESSAGE"));
    choose(boxes.at(1), 1);
}

TEST_F(side_bar, a_search_jumps_to_the_screen_and_marks_what_was_found) {
    bar_.begin_search();
    EXPECT_EQ(tabs().currentIndex(), 1);
    QWidget& tab = *tabs().widget(1);
    EXPECT_EQ(bar_.focusWidget(), tab.findChild<QLineEdit*>());
    tab.findChild<QLineEdit*>()->setText(QStringLiteral("11049"));
    auto* found = tab.findChild<QTreeWidget*>();
    ASSERT_TRUE(
        wait_until([found] { return found->topLevelItemCount() == 1; })); // when all have been visited
    Q_EMIT found->itemClicked(found->topLevelItem(0), 0);
    EXPECT_EQ(screen(), "settings_network");
    EXPECT_TRUE(wait_until([this] { return title() == "IPv6"; })); // when it is laid out
    view_.picture();
    const QPoint corner = view_.view_box(shown("IPv6").box).topLeft();
    EXPECT_EQ(view_.grab().toImage().pixelColor(corner - QPoint(3, 3)), QColor(Qt::white));
    panel_.choose_preferred_language({49, 0}); // everything is visited anew
    EXPECT_EQ(found->topLevelItemCount(), 0);
}

/** Two texts of one id, the second overflowing, a text in English instead, and a picture that is missing. */
TEST_F(side_bar, the_overlay_tells_faults_by_their_colours) {
    panel_findings findings;
    for (const int left : {100, 300, 500}) {
        text_finding text;
        text.shown.message = "1";
        text.shown.box = QRect(left, 100, 80, 40);
        text.shown.needed = QSize(left == 300 ? 120 : 60, 20);
        text.shown.alignment = Qt::AlignLeft | Qt::AlignTop;
        text.overflows = left == 300;
        findings.texts.push_back(text);
    }
    findings.texts[2].shown.message = "2";
    findings.texts[2].origin.source = text_source::STANDARD_LANGUAGE;
    findings.texts[2].origin.language_id = 1;
    findings.texts[2].origin.wanted_id = 49;
    picture_finding picture;
    picture.shown.box = QRect(100, 300, 80, 40);
    picture.origin.variant = picture_variant::MISSING;
    findings.pictures.push_back(picture);
    picture.shown.box.moveLeft(300);
    picture.shown.found_name = picture.origin.found_name = QStringLiteral("a.png");
    picture.origin.variant = picture_variant::NORMAL;
    findings.pictures.push_back(picture);
    QImage image(PANEL_SIZE, QImage::Format_RGB32);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        draw_findings(painter, findings);
    }
    const auto brightest = [&image](const QRect& area) {
        QColor found(Qt::black);
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor color = image.pixelColor(x, area.top());
            found = color.lightness() > found.lightness() ? color : found;
        }
        return found;
    };
    enum kind { NOTHING, RED, AMBER, BLUE };
    struct {
        const char* name;
        QRect area;
        kind color;
    } const rows[] = {{"a good text", {110, 120, 60, 1}, NOTHING},
                      {"its box", {100, 100, 80, 1}, BLUE},
                      {"a text that overflows", {310, 120, 60, 1}, RED},
                      {"the room that it needs", {385, 100, 35, 1}, RED},
                      {"beyond that", {421, 100, 60, 1}, NOTHING},
                      {"a text in English", {510, 120, 60, 1}, AMBER},
                      {"a missing picture", {104, 320, 10, 1}, RED},
                      {"a picture that is there", {310, 320, 60, 1}, NOTHING},
                      {"its box", {300, 300, 80, 1}, BLUE}};
    for (const auto& row : rows) {
        const QColor color = brightest(row.area);
        EXPECT_EQ(color != QColor(Qt::black), row.color != NOTHING) << row.name;
        EXPECT_EQ(color.red() > color.blue(), row.color == RED || row.color == AMBER) << row.name;
        EXPECT_EQ(color.green() > 2 * color.blue(), row.color == AMBER) << row.name;
    }
    EXPECT_GT(brightest({135, 320, 10, 1}).red(), brightest({104, 320, 10, 1}).red()); // crossed out
}

TEST(records, are_filtered_held_and_dropped_from_their_beginning) {
    record_tab tab({QStringLiteral("Time"), QStringLiteral("Message")}, 1);
    tab.show();
    auto& table = *tab.findChild<QTreeWidget*>();
    const auto shows = [&table](int count, const char* last) {
        return wait_until([&] {
            return table.topLevelItemCount() == count &&
                   (count == 0 || row_of(table.topLevelItem(count - 1)) == last);
        });
    };
    const auto add = [&tab](int number) {
        tab.add({QStringLiteral("10:05"), QStringLiteral("Message %1").arg(number)}, number == 1);
    };
    for (int i = 1; i <= 3; ++i) {
        add(i);
    }
    EXPECT_TRUE(shows(3, "10:05|Message 3"));
    EXPECT_NE(table.topLevelItem(0)->foreground(1), table.topLevelItem(1)->foreground(1)); // a fault
    tab.findChild<QLineEdit*>()->setText(QStringLiteral(" message 2 "));
    EXPECT_TRUE(shows(1, "10:05|Message 2"));
    table.setCurrentItem(table.topLevelItem(0));
    EXPECT_EQ(tab.findChild<QLabel*>()->text(), QStringLiteral("10:05  Message 2"));
    EXPECT_TRUE(tab.findChild<QLabel*>()->isVisible());
    tab.findChild<QLineEdit*>()->clear();
    EXPECT_FALSE(tab.findChild<QLabel*>()->isVisible());
    auto* hold = labelled<QPushButton>(tab, "Hold");
    hold->click();
    add(4);
    QElapsedTimer time;
    time.start();
    wait_until([&time] { return time.elapsed() > 250; }); // the tab's own delay is shorter
    EXPECT_EQ(table.topLevelItemCount(), 3);
    hold->click();
    EXPECT_TRUE(shows(4, "10:05|Message 4"));
    for (int i = 5; i <= 2500; ++i) {
        add(i);
    }
    EXPECT_TRUE(wait_until(
        [&] { return row_of(table.topLevelItem(table.topLevelItemCount() - 1)) == "10:05|Message 2500"; }));
    EXPECT_LE(table.topLevelItemCount(), 1200);
    EXPECT_EQ(table.findItems(QStringLiteral("Message 2000"), Qt::MatchExactly, 1).size(), 1);
    tab.findChild<QLineEdit*>()->setText(QStringLiteral("Message 3"));
    EXPECT_TRUE(shows(0, "")); // long gone
    labelled<QPushButton>(tab, "Clear")->click();
    tab.findChild<QLineEdit*>()->clear();
    EXPECT_TRUE(shows(0, ""));
    add(1);
    EXPECT_TRUE(shows(1, "10:05|Message 1"));
}

} // namespace
} // namespace velarion
