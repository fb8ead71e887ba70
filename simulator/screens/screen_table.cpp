#include "screen_table.h"

#include "copy_screen.h"
#include "documents_screen.h"
#include "fax_screen.h"
#include "guidance_screen.h"
#include "hardware_screen.h"
#include "help_screen.h"
#include "home_screen.h"
#include "keyboard_screen.h"
#include "language_screen.h"
#include "machine_state.h"
#include "network_screen.h"
#include "scan_screen.h"
#include "settings_screen.h"
#include "sounds_screen.h"
#include "status_screen.h"
#include "trays_screen.h"

namespace velarion {

namespace {

template <class SCREEN> panel_screen* make_screen(const panel_context& context) {
    return new SCREEN(context);
}

void run(machine_state& machine, int steps) {
    for (int i = 0; i < steps; ++i) {
        machine.step();
    }
}

void begin_copying(machine_state& machine) {
    copy_settings settings;
    settings.copies = 10;
    settings.sides = copy_sides::ONE_TO_TWO;
    machine.set_copy(settings);
    machine.start_copy();
    run(machine, 45);
}

void begin_faxing(machine_state& machine) {
    machine.set_fax({QStringLiteral("0123456789"), fax_resolution::FINE});
    machine.start_fax();
    run(machine, 50);
}

void begin_scanning(machine_state& machine) {
    scan_settings settings;
    settings.destination = 2;
    machine.set_scan(settings);
    machine.start_scan();
    run(machine, 8);
}

void stop_copying(machine_state& machine) {
    begin_copying(machine);
    machine.pause_job();
}

void jam_copying(machine_state& machine) {
    begin_copying(machine);
    machine.raise_jam(*find_jam_place(QStringLiteral("tray2")));
}

void want_paper(machine_state& machine) {
    copy_settings settings;
    settings.tray = 4;
    machine.set_copy(settings);
    machine.start_copy();
    run(machine, 20);
}

template <std::size_t PLACE> void raise_jam(machine_state& machine) {
    machine.raise_jam(jam_places()[PLACE]);
}

void come_to_last_step(machine_state& machine) {
    machine.raise_jam(jam_places().front());
    for (std::size_t i = 1; i < jam_places().front().steps.size(); ++i) {
        machine.do_jam_step();
    }
}

} // namespace

const std::vector<screen_entry>& all_screens() {
    static const std::vector<screen_entry> screens = {
        {"home", "the functions of the machine", make_screen<home_screen>},
        {"copy", "copying: settings, start and stop", make_screen<copy_screen>},
        {"scan", "scanning: destination, settings, start", make_screen<scan_screen>},
        {"fax", "faxing: the number, start", make_screen<fax_screen>},
        {"status", "the job at work and the job history", make_screen<status_screen>},
        {"documents", "the stored documents", make_screen<documents_screen>},
        {"trays", "paper trays and toner", make_screen<trays_screen>},
        {"guidance", "how jammed paper is removed", make_screen<guidance_screen>},
        {"help", "topics of help", make_screen<help_screen>},
        {"hardware_test", "LEDs and hard keys", make_screen<hardware_screen>},
        {"keyboard", "the soft keyboard of the language", make_screen<keyboard_screen>},
        {"settings", "the settings, a list that leads on", make_screen<settings_screen>},
        {"settings_language", "the machine's language and a user's", make_screen<language_screen>},
        {"settings_sounds", "the sounds and how loud they are", make_screen<sounds_screen>},
        {"settings_network", "the network settings", make_screen<network_screen>},
    };
    return screens;
}

const std::vector<screen_view>& all_screen_views() {
    static const std::vector<screen_view> views = {
        {"home", "home", nullptr},
        {"copy", "copy", nullptr},
        {"copy_running", "copy", begin_copying},
        {"copy_no_original", "copy", [](machine_state& machine) { machine.set_originals(0); }},
        {"scan", "scan", nullptr},
        {"scan_running", "scan", begin_scanning},
        {"fax", "fax", nullptr},
        {"fax_running", "fax", begin_faxing},
        {"status", "status", nullptr},
        {"status_running", "status", begin_copying},
        {"status_stopped", "status", stop_copying},
        {"status_jam", "status", jam_copying},
        {"status_no_paper", "status", want_paper},
        {"documents", "documents", nullptr},
        {"trays", "trays", nullptr},
        {"guidance", "guidance", raise_jam<0>},
        {"guidance_fuser", "guidance", raise_jam<1>},
        {"guidance_feeder", "guidance", raise_jam<2>},
        {"guidance_finisher", "guidance", raise_jam<3>},
        {"guidance_last", "guidance", come_to_last_step},
        {"help", "help", nullptr},
        {"hardware_test", "hardware_test", nullptr},
        {"keyboard", "keyboard", nullptr},
        {"settings", "settings", nullptr},
        {"settings_language", "settings_language", nullptr},
        {"settings_sounds", "settings_sounds", nullptr},
        {"settings_network", "settings_network", nullptr},
    };
    return views;
}

} // namespace velarion
