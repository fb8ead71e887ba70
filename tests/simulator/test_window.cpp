#include "device_link.h"
#include "hard_key.h"
#include "main_window.h"
#include "message_log.h"
#include "panel_view.h"
#include "service_keeper.h"
#include "service_process.h"
#include "simulation.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>

#include <cstdio>
#include <fstream>
#include <functional>

namespace {

using namespace velarion;

constexpr int ENOUGH = 60000; // ms, on the slowest machine
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int GENEROUS = 5000; // ms, in programs some times slower
#else
constexpr int GENEROUS = 1000; // ms; 100 is what is aimed at, and printed
#endif

/** @return ms that this thread could have worked but other programs had the processors; 0 where none says so
 */
int waited_for_processor() {
    std::ifstream file("/proc/thread-self/schedstat");
    long long worked = 0;
    long long waited = 0;
    file >> worked >> waited;
    return static_cast<int>(waited / 1000000);
}

/** A simulator with its window, as run_window() puts it together. */
class test_window : public scratch_service {
protected:
    /** Presses keys and switches languages, as long as it takes. @return whether the condition came about */
    bool wait_until(const std::function<bool()>& is_so) {
        QElapsedTimer time;
        time.start();
        for (int turn = 0; time.elapsed() < ENOUGH && !is_so(); ++turn) {
            link_.move_key(turn % 8 == 0 ? KEY_START : KEY_COPY + turn % 3, turn % 2 == 0);
            if (turn % 20 == 0) {
                panel_.choose_preferred_language(panel_.languages()[static_cast<std::size_t>(turn / 20 % 8)]);
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        return is_so();
    }

    bool wait_for(service_condition condition) {
        return wait_until([this, condition] { return link_.watch().condition() == condition; });
    }

    message_log messages_;
    trace_log traces_{false};
    device_link link_;
    service_keeper service_{link_};
    simulation panel_{&link_};
    main_window window_{{panel_, link_, service_, messages_, traces_}};
};

TEST_F(test_window, never_freezes_whatever_the_service_does) {
    window_.show();
    service_.begin(service_source::NONE);
    wait_for(service_condition::ABSENT);
    window_.pulse().take_longest(); // what comes before the first frame is start-up
    const struct {
        const char* command;
        service_condition condition;
    } rows[] = {
        {"start", service_condition::RUNNING},    {"kill", service_condition::ABSENT},
        {"start", service_condition::RUNNING},    {"pause", service_condition::SILENT},
        {"continue", service_condition::RUNNING}, {"delay 400", service_condition::SLOW},
        {"normal", service_condition::RUNNING},   {"refuse 7", service_condition::REFUSING},
        {"drop", service_condition::SILENT},      {"normal", service_condition::RUNNING},
        {"crash", service_condition::ABSENT},     {"restart", service_condition::RUNNING},
        {"stop", service_condition::ABSENT},
    };
    bool was_refused = false;
    bool was_told = false;
    QObject::connect(&messages_, &message_log::added, [&](const message_entry& entry) {
        was_refused |= entry.result == QLatin1String("refused with 7: unknown key");
        was_told |= entry.is_notification && entry.parameters == QLatin1String("key 20, status pressed");
    });
    int led_status = 0;
    for (const auto& row : rows) {
        const int waited = waited_for_processor();
        link_.set_led(DVC_PNL_DEC_LED_PRINT_SERVICE, ++led_status % 4);
        EXPECT_EQ(service_.run(QString::fromLatin1(row.command).split(QLatin1Char(' '))), QString());
        EXPECT_TRUE(wait_for(row.condition)) << row.command << ": " << qPrintable(link_.watch().text());
        EXPECT_TRUE(row.condition != service_condition::REFUSING || wait_until([&] { return was_refused; }));
        const int longest = window_.pulse().take_longest();
        std::printf("longest pause with \"%s\": %d ms\n", row.command, longest);
        EXPECT_LT(longest - (waited_for_processor() - waited), GENEROUS) << row.command;
    }
    for (const char* command : {"start", "stop", "start"}) { // the next one before the last one has ended
        EXPECT_EQ(service_.run({QString::fromLatin1(command)}), QString()) << command;
        EXPECT_TRUE(command[2] == 'o' || wait_for(service_condition::RUNNING));
    }
    EXPECT_TRUE(wait_for(service_condition::RUNNING));
    EXPECT_TRUE(wait_until([&] { return was_told; })) << messages_.entries().size();
    EXPECT_EQ(traces_.records().size(), 2U); // of the pictures' preloading
}

TEST_F(test_window, each_of_two_quick_taps_counts) {
    QPushButton button(&panel_.panel());
    button.setGeometry(100, 100, 100, 50);
    button.raise();
    int presses = 0;
    QObject::connect(&button, &QAbstractButton::pressed, [&presses] { ++presses; });
    window_.show();
    button.show();
    const QPoint place = window_.view().view_box(button.geometry()).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_.view(), &event);
    }
    EXPECT_EQ(presses, 2);
}

} // namespace
