#include "device_link.h"
#include "dvc_pnl_dec_communication.h"
#include "service_process.h"
#include "wait_until.h"

#include <QCoreApplication>

#include <csignal>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace {

using namespace velarion;

/** @return what the service says of itself, which may be busy with other requests at first */
int status_value(service_status_field field) {
    device_message status;
    EXPECT_TRUE(wait_until([&] { return (status = ask_service(CONTROL_STATUS, {})).result == DEVICE_OK; }));
    return status.records.at(field).value;
}

using test_device_link = scratch_service;

TEST_F(test_device_link, leds_are_set_by_each_service_and_the_newest_wish_wins) {
    device_link link;
    link.set_led(5, 2);
    link.start();
    const auto shows = [&link](int led, int status) {
        return [&link, led, status] { return link.led(led).told == status; };
    };
    EXPECT_EQ(link.led(5).told, led_state::UNKNOWN);
    for (int turn = 0; turn < 2; ++turn) {
        service_process service;
        EXPECT_TRUE(wait_until(shows(5, 2))) << turn;
        EXPECT_TRUE(wait_until([&] { return !link.led(5).is_lit; })); // it blinks
        EXPECT_TRUE(wait_until(shows(6, 0)));
        service.end_by(SIGKILL);
        EXPECT_TRUE(wait_until(shows(5, led_state::UNKNOWN)));
    }
    service_process service;
    EXPECT_TRUE(wait_until(shows(5, 2)));
    link.set_fault(FAULT_DELAY, 300);
    EXPECT_TRUE(wait_until([&] { return link.watch().condition() == service_condition::SLOW; }));
    const int before = status_value(STATUS_REQUESTS);
    for (int i = 0; i < 100; ++i) {
        link.set_led(3, i % 2);
        QCoreApplication::processEvents();
    }
    link.set_led(3, 3);
    EXPECT_TRUE(wait_until(shows(3, 3)));
    EXPECT_LT(status_value(STATUS_REQUESTS) - before, 50);
    link.set_fault(FAULT_NONE);
    EXPECT_TRUE(wait_until([&] { return link.watch().condition() == service_condition::RUNNING; }));
    for (int led = 0; led < LED_COUNT; ++led) {
        link.set_led(led, 1);
    }
    for (int led = 0; led < LED_COUNT; ++led) {
        EXPECT_TRUE(wait_until(shows(led, 1))) << led;
    }
}

TEST_F(test_device_link, the_watch_tells_what_is_wrong_and_that_it_is_over) {
    device_link link;
    link.start();
    std::optional<service_process> service;
    const auto fault = [&](int kind, int value) { return [&, kind, value] { link.set_fault(kind, value); }; };
    const auto signal = [&](int number) {
        return [&, number] {
            EXPECT_TRUE(wait_until([&] { return link.watch().process() > 0; }));
            ::kill(link.watch().process(), number);
        };
    };
    const auto kill_service = [&] { service->end_by(SIGKILL); };
    const auto start_service = [&] { service.emplace(); };
    const struct {
        const char* name;
        std::function<void()> act;
        service_condition condition;
        std::function<void()> mend;
    } rows[] = {
        {"absent", [] {}, service_condition::ABSENT, start_service},
        {"killed", kill_service, service_condition::ABSENT, start_service},
        {"delay", fault(FAULT_DELAY, 400), service_condition::SLOW, fault(FAULT_NONE, 0)},
        {"drop", fault(FAULT_DROP, 0), service_condition::SILENT, fault(FAULT_NONE, 0)},
        {"refuse", fault(FAULT_FAIL, 7), service_condition::REFUSING, fault(FAULT_NONE, 0)},
        {"stopped", signal(SIGSTOP), service_condition::SILENT, signal(SIGCONT)},
    };
    int news = 0;
    QObject::connect(&link.watch(), &service_watch::changed,
                     [&] { news += link.watch().is_just_back() ? 1 : 0; });
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        row.act();
        EXPECT_TRUE(wait_until([&] { return link.watch().condition() == row.condition; }));
        EXPECT_EQ(link.is_there(), row.condition == service_condition::SLOW);
        const QString said = link.watch().text();
        const int led_status = static_cast<int>(&row - rows + 1) % 2;
        link.set_led(4, led_status); // lost or refused at first
        const int told = news;
        row.mend();
        EXPECT_TRUE(wait_until([&] { return link.watch().condition() == service_condition::RUNNING; }));
        EXPECT_TRUE(wait_until([&] { return link.led(4).told == led_status; }));
        EXPECT_TRUE(wait_until([&] { return link.watch().text() != said; })); // a late result may come first
        // that it is back; the first one was not there before
        EXPECT_TRUE(&row == &rows[0] || wait_until([&] { return news > told; }));
    }
}

TEST_F(test_device_link, keys_come_back_in_their_order) {
    service_process service;
    device_link link;
    std::vector<std::pair<int, bool>> events;
    QObject::connect(&link, &panel_hardware::key_changed, [&](int key, bool is_pressed) {
        events.push_back({key, is_pressed});
    });
    link.start();
    EXPECT_TRUE(wait_until([] { // it is registered, and takes notifications
        const device_message reply = ask_service(CONTROL_KEY_EVENT, {0, DVC_PNL_DEC_KEY_PRESSED});
        return !reply.records.empty() && reply.records.front().value == 1;
    }));
    std::vector<std::pair<int, bool>> expected = {{0, true}};
    for (int i = 0; i < 2000; ++i) {
        const int key = i % KEY_COUNT;
        link.move_key(key, true);
        link.move_key(key, false);
        expected.insert(expected.end(), {{key, true}, {key, false}});
        if (i % 250 == 249) { // the service gives up who leaves 1024 messages unread
            ASSERT_TRUE(wait_until([&] { return events.size() == expected.size(); })) << events.size();
        }
    }
    EXPECT_EQ(events, expected);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
