#include "hard_key.h"
#include "jam_guidance.h"
#include "machine_leds.h"
#include "machine_state.h"
#include "panel_view_ids.h"
#include "sound_levels.h"
#include "supply_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

namespace velarion {
namespace {

void work(machine_state& machine, int steps) {
    for (int i = 0; i < steps; ++i) {
        machine.step();
    }
}

TEST(machine, a_second_job_waits_until_the_first_is_over) {
    machine_state machine;
    EXPECT_FALSE(machine.start_fax()); // lacks a number
    ASSERT_TRUE(machine.start_copy());
    const std::size_t first = machine.jobs().size() - 1;
    machine.set_fax({QStringLiteral("0123"), fax_resolution::FINE});
    ASSERT_TRUE(machine.start_fax());
    EXPECT_EQ(machine.jobs().back().state, job_state::WAITING);
    work(machine, machine.jobs()[first].all_steps());
    EXPECT_EQ(machine.jobs()[first].state, job_state::COMPLETED);
    EXPECT_EQ(machine.current_job(), &machine.jobs().back());
    machine.cancel_job();
    EXPECT_EQ(machine.jobs().back().state, job_state::CANCELED);
}

TEST(machine, a_fault_holds_the_job_and_lights_the_alert) {
    machine_state machine;
    machine.start_copy();
    work(machine, 5);
    machine.raise_jam(jam_places().front());
    work(machine, 50);
    ASSERT_TRUE(machine.current_job());
    EXPECT_EQ(machine.current_job()->steps, 5);
    EXPECT_EQ(leds_of(machine)[DVC_PNL_DEC_LED_ALERT], DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    EXPECT_EQ(leds_of(machine)[DVC_PNL_DEC_LED_START], DVC_PNL_DEC_LED_STATUS_OFF);
    for (std::size_t i = 0; i < jam_places().front().steps.size(); ++i) {
        EXPECT_TRUE(machine.jam().has_value()) << i;
        machine.do_jam_step();
    }
    EXPECT_FALSE(machine.jam().has_value());
    work(machine, 1);
    EXPECT_EQ(machine.current_job()->steps, 6);
}

void want(machine_state& machine, int tray, copy_sides sides = copy_sides::ONE_TO_ONE, int copies = 1) {
    copy_settings settings;
    settings.tray = tray;
    settings.sides = sides;
    settings.copies = copies;
    machine.set_copy(settings);
}

void set_sheets(machine_state& machine, int number, int sheets) {
    paper_tray tray = machine.trays()[static_cast<std::size_t>(number - 1)];
    tray.sheets = sheets;
    machine.set_tray(tray);
}

/** Sheets of each tray. */
std::string paper_of(const machine_state& machine) {
    std::string sheets;
    for (const paper_tray& tray : machine.trays()) {
        sheets += std::to_string(tray.sheets) + " ";
    }
    return sheets;
}

TEST(machine, leds_tell_its_condition) {
    struct {
        const char* name;
        std::function<void(machine_state& machine)> act;
        const char*
            leds; ///< power, energy saver, start, stop, data in, alert, fax, print: off, on, slow, fast
    } const rows[] = {
        {"ready", [](machine_state&) {}, "10100000"},
        {"asleep", [](machine_state& m) { m.set_asleep(true); }, "11000000"},
        {"a jam wakes it", [](machine_state& m) { m.set_asleep(true), m.raise_jam(jam_places()[1]); },
         "10000200"},
        {"a job keeps it awake", [](machine_state& m) { m.start_copy(), m.set_asleep(true); }, "10213000"},
        {"reading the last original", [](machine_state& m) { m.start_copy(), work(m, 17); }, "10213000"},
        {"printing", [](machine_state& m) { m.start_copy(), work(m, 18); }, "10210000"},
        {"paused", [](machine_state& m) { m.start_copy(), m.pause_job(), work(m, 30); }, "10100000"},
        {"no paper in the tray", [](machine_state& m) { want(m, 4), m.start_copy(), work(m, 30); },
         "10000200"},
        {"no paper of the size",
         [](machine_state& m) {
             set_sheets(m, 1, 0), set_sheets(m, BYPASS_TRAY, 0), m.start_copy(), work(m, 18);
         },
         "10000200"},
        {"received faxes", [](machine_state& m) { m.set_received_faxes(2); }, "10101010"},
        {"a fax on its way",
         [](machine_state& m) { m.set_fax({QStringLiteral("1")}), m.start_fax(), work(m, 40); }, "10210020"},
        {"toner low", [](machine_state& m) { m.set_toner(toner_color::BLACK, 1); }, "10100000"},
        {"toner at its end", [](machine_state& m) { m.set_toner(toner_color::YELLOW, -5); }, "10100100"},
    };
    for (const auto& row : rows) {
        machine_state machine;
        row.act(machine);
        std::string leds;
        for (const DVC_PNL_DEC_LED_STATUS_ID led : leds_of(machine)) {
            leds += std::to_string(led);
        }
        EXPECT_EQ(leds, row.leds) << row.name;
    }
}

TEST(machine, a_copy_takes_its_sheets_from_a_tray_with_paper) {
    struct {
        const char* name;
        int tray;
        copy_sides sides;
        int copies, in_tray_1, steps;
        const char* paper;
    } const rows[] = {
        {"by itself", 0, copy_sides::ONE_TO_ONE, 2, 410, 18 + 6 * 5, "404 275 60 0 25 "},
        {"both sides of a sheet, an odd page", 0, copy_sides::ONE_TO_TWO, 2, 410, 18 + 4 * 5,
         "406 275 60 0 25 "},
        {"a sheet for each side", 0, copy_sides::TWO_TO_ONE, 1, 410, 18 + 6 * 5, "404 275 60 0 25 "},
        {"the next of the size", 0, copy_sides::ONE_TO_ONE, 2, 4, 18 + 6 * 5, "0 275 60 0 23 "},
        {"the chosen one", 2, copy_sides::ONE_TO_ONE, 1, 410, 18 + 3 * 5, "410 272 60 0 25 "},
        {"not from another one", 1, copy_sides::ONE_TO_ONE, 1, 2, -1, "0 275 60 0 25 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        machine_state machine;
        want(machine, row.tray, row.sides, row.copies);
        set_sheets(machine, 1, row.in_tray_1);
        ASSERT_TRUE(machine.start_copy());
        int steps = 0;
        for (; machine.current_job() && steps < 200; ++steps) {
            machine.step();
        }
        EXPECT_EQ(machine.current_job() ? -1 : steps, row.steps);
        EXPECT_EQ(paper_of(machine), row.paper);
    }
}

TEST(machine, a_job_tells_how_far_it_is) {
    struct {
        int steps, percent, original, set, pages;
    } const rows[] = {{0, 0, 1, 1, 0},   {6, 12, 2, 1, 0},  {17, 35, 3, 1, 0}, {18, 37, 3, 1, 0},
                      {32, 66, 3, 1, 2}, {33, 68, 3, 2, 3}, {47, 97, 3, 2, 5}, {48, 100, 3, 2, 6}};
    for (const auto& row : rows) {
        machine_state machine;
        want(machine, 0, copy_sides::ONE_TO_ONE, 2);
        machine.start_copy();
        work(machine, row.steps);
        const machine_job& job = machine.jobs().back();
        EXPECT_EQ(job.percent(), row.percent) << row.steps;
        EXPECT_EQ(job.original_in_work(), row.original) << row.steps;
        EXPECT_EQ(job.set_in_work(), row.set) << row.steps;
        EXPECT_EQ(job.pages_done(), row.pages) << row.steps;
    }
    machine_state machine;
    machine.set_fax({QStringLiteral("0123")});
    machine.start_fax();
    for (const auto& [steps, phase] : {std::make_pair(17, job_phase::READING),
                                       {1, job_phase::DIALING},
                                       {19, job_phase::DIALING},
                                       {1, job_phase::OUTPUT}}) {
        work(machine, steps);
        EXPECT_EQ(machine.jobs().back().phase(), phase) << machine.steps();
    }
    EXPECT_EQ(paper_of(machine), "410 275 60 0 25 ");
}

TEST(machine, nothing_starts_that_lacks_something) {
    machine_state machine;
    EXPECT_FALSE(machine.start_scan()); // lacks a destination
    scan_settings scan;
    scan.destination = machine.scan_destinations().size();
    machine.set_scan(scan);
    EXPECT_FALSE(machine.start_scan());
    scan.destination = 0;
    machine.set_scan(scan);
    machine.set_fax({QStringLiteral("1")});
    machine.set_originals(0);
    EXPECT_FALSE(machine.start_copy() || machine.start_scan() || machine.start_fax());
    EXPECT_FALSE(machine.print_documents({99}));
    EXPECT_FALSE(machine.current_job());
    machine.set_originals(1);
    EXPECT_TRUE(machine.start_scan());
    EXPECT_EQ(machine.current_job()->destination, QLatin1String("office@example.com"));
}

TEST(machine, jobs_have_ascending_numbers_and_begin_in_their_order) {
    machine_state machine;
    ASSERT_TRUE(machine.print_documents({2, 4, 8}));
    struct {
        int number, sheets;
        const char* name;
    } const rows[] = {{105, 2, "Invoice 4711"}, {106, 12, "会議資料"}, {107, 2, "Menu"}};
    for (const auto& row : rows) {
        const machine_job* job = machine.current_job();
        ASSERT_TRUE(job);
        EXPECT_EQ(job->number, row.number);
        EXPECT_EQ(job->destination, QString::fromUtf8(row.name));
        EXPECT_EQ(job->all_steps(), row.sheets * 5); // without originals
        machine.cancel_job();
    }
    EXPECT_FALSE(machine.current_job());
    machine.resume_job(); // without effect on a job that is over
    EXPECT_EQ(machine.jobs().back().state, job_state::CANCELED);
    machine.delete_documents({1, 3, 99});
    ASSERT_EQ(machine.documents().size(), 6U);
    EXPECT_EQ(machine.documents()[1].number, 4);
}

TEST(machine, only_a_job_at_work_is_paused_and_only_a_paused_one_goes_on) {
    machine_state machine;
    machine.start_copy();
    machine.take_key(KEY_START);
    EXPECT_EQ(machine.current_job()->state, job_state::RUNNING);
    machine.pause_job();
    machine.raise_jam(jam_places()[0]);
    machine.undo_jam_step(); // there is none before
    machine.do_jam_step();
    machine.do_jam_step();
    machine.undo_jam_step();
    EXPECT_EQ(machine.jam()->step, 1);
    machine.clear_jam();
    work(machine, 5);
    EXPECT_EQ(machine.current_job()->steps, 0);
    machine.take_key(KEY_START);
    work(machine, 5);
    EXPECT_EQ(machine.current_job()->steps, 5);
    EXPECT_EQ(machine.clock(), QLatin1String("10:05"));
    work(machine, 590);
    EXPECT_EQ(machine.clock(), QLatin1String("10:06"));
}

TEST(machine, supplies_are_shown_as_full_as_they_are) {
    struct {
        int percent;
        const char* tray;
        const char* toner;
    } const rows[] = {{0, ICON_NORMAL_OTHER_PAPER_TRAY_2_EMPTY, ICON_TONER_CYAN00},
                      {1, ICON_NORMAL_OTHER_PAPER_TRAY_2_LOW, ICON_TONER_CYAN10}, // not empty
                      {15, ICON_NORMAL_OTHER_PAPER_TRAY_2_LOW, ICON_TONER_CYAN10},
                      {16, ICON_NORMAL_OTHER_PAPER_TRAY_2_HALF, ICON_TONER_CYAN10},
                      {60, ICON_NORMAL_OTHER_PAPER_TRAY_2_HALF, ICON_TONER_CYAN60},
                      {61, ICON_NORMAL_OTHER_PAPER_TRAY_2_FULL, ICON_TONER_CYAN60},
                      {100, ICON_NORMAL_OTHER_PAPER_TRAY_2_FULL, ICON_TONER_CYAN100}};
    for (const auto& row : rows) {
        const paper_tray tray{2, paper_size::A4, paper_kind::PLAIN, row.percent * 5, 500};
        EXPECT_EQ(tray_picture(tray), QLatin1String(row.tray)) << row.percent;
        EXPECT_EQ(toner_picture({toner_color::CYAN, row.percent}), QLatin1String(row.toner)) << row.percent;
    }
    EXPECT_EQ(tray_picture({BYPASS_TRAY, paper_size::A4, paper_kind::PLAIN, 0, 100}),
              QLatin1String(ICON_NORMAL_OTHER_PAPER_BYPASS_EMPTY));
    const struct {
        std::size_t sound;
        int volume, level;
    } levels[] = {{0, 3, 1}, {0, 1, 0}, {0, 5, 2}, {1, 1, 0}, {1, 3, 1}, {1, 5, 3}};
    for (const auto& row : levels) {
        EXPECT_EQ(find_sound_level(panel_sounds()[row.sound], row.volume), row.level) << row.volume;
    }
}

TEST(machine, each_step_out_of_a_jam_has_a_text_of_its_own) {
    for (const jam_place& place : jam_places()) {
        std::vector<message_text> texts;
        for (int step = 0; step < static_cast<int>(place.steps.size()); ++step) {
            const message_text text = jam_step_text(place, step);
            EXPECT_EQ(std::count(texts.begin(), texts.end(), text), 0) << place.name << " " << step;
            texts.push_back(text);
        }
    }
}

} // namespace
} // namespace velarion
