#ifndef COMMAND_LINE_H
#define COMMAND_LINE_H

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <cstddef>

namespace velarion {

class dvc_pnl_rmg_language_resource;

/** Exit codes of panelctl. */
enum exit_status : int {
    EXIT_FOUND = 0,
    EXIT_NOT_FOUND = 1, ///< at least one of the things asked for does not exist
    EXIT_USAGE = 2,
    EXIT_SERVICE = 3 ///< a file or a service failed
};

/** The option that asks for JSON. */
inline constexpr char JSON_OPTION[] = "json";

/**
 * Reads the words behind a command's name; adds --json and --help to its options.
 *
 * @param exit_code  receives what to end with when the result is false: EXIT_FOUND after --help,
 *                   EXIT_USAGE after a fault, which is reported
 */
bool read_arguments(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                    int& exit_code);

/** Like read_arguments(), for a command that takes nothing but options. */
bool read_options(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                  int& exit_code);

/** The option --language, for one command. */
QCommandLineOption language_option();

/** Reads a language's number or name. @return false after a fault, which is reported; what names the option
 */
bool read_language_word(const QString& command, const QString& what, const QString& word, int& language_id);

/**
 * The language that --language asks for, or the one in force.
 * @return false after a fault, which is reported
 */
bool read_language_option(const QCommandLineParser& parser, const QString& command,
                          dvc_pnl_rmg_language_resource& language, int& language_id);

/** What a command does with the words behind an action's name, and how many it takes. */
struct command_action {
    const char* name;
    int argument_count;
    int (*run)(const QStringList& arguments, bool as_json);
};

/** Runs the action that the first word names, or the default one. @return its exit code, or EXIT_USAGE */
int run_action(const QCommandLineParser& parser, const QString& command, const char* default_action,
               const command_action* actions, std::size_t count);

template <std::size_t COUNT>
int run_action(const QCommandLineParser& parser, const QString& command, const char* default_action,
               const command_action (&actions)[COUNT]) {
    return run_action(parser, command, default_action, actions, COUNT);
}

/** Reads a whole number, decimal or "0x...". @return false after a fault, which is reported */
bool read_number(const QString& command, const QString& text, qint64& number);
/** The same for 32 bits. @param number  unchanged on failure */
bool read_number(const QString& command, const QString& text, int& number);

/** Reports a fault of usage. @return EXIT_USAGE */
int usage_fault(const QString& command, const QString& fault);

/** Reports a fault of any other kind, as "panelctl: text". */
void report_fault(const QString& text);

} // namespace velarion

#endif
