#ifndef SIMULATOR_OPTIONS_H
#define SIMULATOR_OPTIONS_H

#include "service_keeper.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace velarion {

/** Exit codes of the simulator. */
enum simulator_exit : int {
    SIMULATOR_GOOD = 0,
    SIMULATOR_FOUND_FAULTS = 1, ///< --fail-on found some, or a script ended before its last line
    SIMULATOR_USAGE = 2,
    SIMULATOR_FAILED = 3 ///< a file cannot be read or written
};

/** Where the simulator looks for faults of a panel. */
enum fault_class : unsigned int {
    FAULT_OVERFLOW = 1U,   ///< a text that its box cannot hold
    FAULT_GLYPHS = 2U,     ///< a character that no font shows
    FAULT_PICTURES = 4U,   ///< a picture that is not there
    FAULT_OVERLAP = 16U,   ///< a text over another one
    FAULT_FALL_BACKS = 8U, ///< a text in English where another language was asked for
};

/** What the command line asks for. */
struct simulator_options {
    QString screenshot; ///< file; empty: none. So the next ones
    QString all_screens;
    QString report;
    QString review;
    QString compare_with;
    QString script;
    bool lists_screens = false;

    QString screen;             ///< name of a view; empty: home, or all of them
    std::vector<int> languages; ///< ids; empty: that of the settings, or all of them
    QString direction;          ///< "ltr", "rtl" or empty: the language's
    bool has_overlay = false;
    bool watches = false;
    bool prints_timing = false;
    std::optional<service_source> service; ///< none: AUTO with a window, else what a script starts
    bool is_verbose = false;               ///< traces go to standard error as well
    unsigned int fail_on = 0;              ///< fault_class

    /** Whether pictures, a report or a review are to be written. */
    bool writes() const;
    /** Whether all is done without a window. */
    bool is_headless() const;
};

/**
 * Reads the command line, once the application is there; the library need not be.
 *
 * @param exit_code  receives what to end with when the result is false, after --help or a fault that is
 * reported
 */
bool read_simulator_options(const QStringList& arguments, simulator_options& options, int& exit_code);

/**
 * Reads names of fault classes with commas between them.
 *
 * @param faults   receives them, fault_class
 * @param unknown  receives the first word that names none, when the result is false
 */
bool read_fault_classes(const QString& list, unsigned int& faults, QString& unknown);

/** Whether a command line asks for something that is done without a window; before the application is there.
 */
bool asks_for_no_window(int argc, char** argv);

/** Reports a fault as "panel_simulator: text". */
void report_simulator_fault(const QString& text);

} // namespace velarion

#endif
