#include "cache_tab.h"
#include "dvc_pnl_dec_communication.h"
#include "element_details.h"
#include "message_log.h"
#include "picture_requests.h"
#include "screen_index.h"
#include "search_tab.h"
#include "simulation.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace velarion {
namespace {

/** What the side bar says of elements, "property: value; ..." without those of which fonts have a say. */
std::string said(const element_details& details) {
    QStringList rows;
    for (const QStringList& row : details.rows) {
        if (row[0] != QLatin1String("Font")) {
            rows.append(row.join(QStringLiteral(": ")));
        }
    }
    return (details.title + QStringLiteral(" | ") + rows.join(QStringLiteral("; "))).toStdString();
}

TEST(inspector, says_what_an_element_is_and_what_is_wrong_with_it) {
    simulation panel;
    panel.choose_preferred_language({49, 0});
    shown_text text;
    text.message = "1";
    text.text = QStringLiteral("Kopie");
    text.box = QRect(10, 20, 90, 45);
    text.needed = QSize(81, 27);
    shown_text wide = text;
    wide.message = message_text::literal(QStringLiteral("a\uE123"));
    wide.text = QStringLiteral("a\uE123");
    wide.needed = QSize(99, 54);
    wide.box.moveTo(15, 300);
    shown_text high = text;
    high.message = "99999999";
    high.needed = QSize(81, 54);
    high.box.moveTo(400, 20);
    shown_picture missing;
    missing.id = QStringLiteral("99999");
    missing.result = 7;
    missing.suffix = QStringLiteral("_on");
    missing.box = QRect(1, 2, 9, 18);
    const panel_findings found = panel_examiner().examine({{text, wide, high}, {missing}});
    const std::string size = "Box: 90 \u00d7 45 px, 70 \u00d7 35 dp; Needs: ";
    EXPECT_EQ(
        said(details_of(found.texts[0])),
        "Kopie | Id: 1; Name: MSG_NORMAL_TITLE_COPY; Row: 2; From: German (49), preferred; Place: 10, 20; " +
            size + "81 \u00d7 27 px, 63 \u00d7 21 dp; Lines: 1; Findings: none");
    EXPECT_EQ(said(details_of(found.texts[1])),
              "a\uE123 | From: no message: the same in every language; Place: 15, 300; " + size +
                  "99 \u00d7 54 px, 77 \u00d7 42 dp; Lines: 1; Findings: overflows its box by 9 px; "
                  "no font of the panel shows U+E123");
    EXPECT_EQ(describe_faults(found.texts[2]).toStdString(),
              "overflows its box by 9 px in height; there is no text");
    EXPECT_EQ(said(details_of(found.pictures[0])),
              "99999 | Id: 99999; File found: none, result 7; Variant: missing (asked for _on); "
              "Place: 1, 2; Box: 9 \u00d7 18 px, 7 \u00d7 14 dp; "
              "Cached: no; Findings: no picture");
    panel.choose_preferred_language({0, 0});
}

TEST(inspector, the_search_finds_texts_ids_and_names_on_every_screen) {
    simulation panel;
    const panel_examiner examiner;
    screen_index index(panel, examiner);
    search_tab tab(index);
    auto* field = tab.findChild<QLineEdit*>();
    auto* table = tab.findChild<QTreeWidget*>();
    QString chosen;
    QObject::connect(&tab, &search_tab::chosen, &tab, [&chosen](const QString& view, const element_key& key) {
        chosen = QStringLiteral("%1 %2 %3").arg(view).arg(static_cast<int>(key.is)).arg(key.id);
    });
    index.begin();
    while (!index.is_complete()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    const struct {
        const char* wanted;
        const char* first;  ///< cells of the first row
        const char* chosen; ///< by the return key
        bool is_in_many;
    } rows[] = {
        {"reduce/ENLARGE", "copy|91|Reduce/Enlarge", "copy 1 91", true},
        {" MSG_NORMAL_NET_AUTO ", "settings_network|10423|Obtain IP address automatically (DHCP)",
         "settings_network 1 10423", false},
        {"11049", "settings_network|11049|IPv6", "settings_network 1 11049", false},
        {"panel-2-south", "settings_network||panel-2-south", "settings_network 1 panel-2-south", false},
        {"no such text", "", "", false},
        {"", "", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.wanted);
        chosen.clear();
        field->setText(QLatin1String(row.wanted));
        Q_EMIT field->returnPressed();
        const QTreeWidgetItem* item = table->topLevelItem(0);
        EXPECT_EQ(item ? QStringList({item->text(0), item->text(1), item->text(2)}).join(QLatin1Char('|'))
                       : QString(),
                  QLatin1String(row.first));
        EXPECT_EQ(chosen, QLatin1String(row.chosen));
        EXPECT_EQ(table->topLevelItemCount() > 1, row.is_in_many) << table->topLevelItemCount();
    }
    field->setText(QStringLiteral("ico_globalnavi_home"));
    Q_EMIT field->returnPressed();
    EXPECT_GE(table->topLevelItemCount(), static_cast<int>(screen_index::view_count())); // each has the bar
    EXPECT_TRUE(chosen.startsWith(QStringLiteral("home 2 "))) << qPrintable(chosen);
}

TEST(inspector, the_cache_is_counted_and_emptied) {
    const simulation panel;
    cache_tab tab;
    picture_requests::set_counts({5, 3, 2});
    tab.show();
    const auto* counts = tab.findChild<QLabel*>();
    const auto* table = tab.findChild<QTreeWidget*>();
    EXPECT_TRUE(counts->text().startsWith(QStringLiteral("5 hits, 3 misses, 2 without a picture\n")));
    const int cached = table->topLevelItemCount();
    EXPECT_GT(cached, 0); // of the preloading
    for (QPushButton* button : tab.findChildren<QPushButton*>()) {
        button->click();
    }
    EXPECT_TRUE(counts->text().startsWith(QStringLiteral("0 hits, 0 misses, 0 without a picture\n")));
    EXPECT_LT(table->topLevelItemCount(), cached);
}

TEST(inspector, messages_of_the_device_service_are_put_into_words) {
    const struct {
        device_message message;
        const char* function;
        const char* parameters;
    } rows[] = {
        {make_message(DVC_PNL_DEC_FUNCTION_SET_LED_STATUS, {3, 1}), "set_led_status", "led stop, status on"},
        {make_message(DVC_PNL_DEC_FUNCTION_SET_LED_STATUS, {99, 77}), "set_led_status", "led 99, status 77"},
        {make_message(DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF, {}), "set_all_led_off", ""},
        {make_message(DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, {-2}), "add_key_observer",
         "observer 0xfffffffe"},
        {make_message(DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT, {16, DVC_PNL_DEC_KEY_PRESSED}),
         "notify_key_event", "key 16, status pressed"},
        {make_message(CONTROL_KEY_EVENT, {16, DVC_PNL_DEC_KEY_RELEASED}), "key_event",
         "key 16, status released"},
        {make_message(CONTROL_KEY_EVENT, {16, 9, 4}), "key_event", "key 16, status 9, 2: 4"},
        {make_message(424242, {7}), "function 424242", "0: 7"},
    };
    for (const auto& row : rows) {
        const message_entry entry = describe_message(row.message);
        EXPECT_EQ(entry.function.section(QStringLiteral(" ("), 0, 0).toStdString(), row.function);
        EXPECT_EQ(entry.parameters.toStdString(), row.parameters) << row.function;
    }
}

} // namespace
} // namespace velarion
