#ifndef COMMAND_H
#define COMMAND_H

#include <QCommandLineParser>
#include <QStringList>

/** Exit codes of panelctl. */
enum EXIT_CODE : int {
    EXIT_FOUND = 0,
    EXIT_NOT_FOUND = 1, ///< at least one of the things asked for does not exist
    EXIT_USAGE = 2,
    EXIT_SERVICE = 3 ///< a file or a service failed
};

/** One command: what it is called, and what it does with the words behind its name. */
struct panelctl_command {
    const char* name;
    const char* summary;
    int (*run)(const QStringList& arguments);
};

int run_message_command(const QStringList& arguments);
int run_languages_command(const QStringList& arguments);
int run_packs_command(const QStringList& arguments);
int run_settings_command(const QStringList& arguments);
int run_units_command(const QStringList& arguments);

/**
 * Reads the words behind a command's name; adds --json and --help to its options.
 *
 * @param exit_code  receives what to end with when the result is false: EXIT_FOUND after --help,
 *                   EXIT_USAGE after a fault, which is reported
 */
bool read_arguments(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                    int& exit_code);

/** Reports a fault of usage. @return EXIT_USAGE */
int usage_fault(const QString& command, const QString& fault);

/** Reports a fault of any other kind, as "panelctl: text". */
void report_fault(const QString& text);

/** The option that asks for JSON. */
extern const char JSON_OPTION[];

#endif
