#include "command.h"
#include "display.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>

const char JSON_OPTION[] = "json";

namespace {

const panelctl_command COMMANDS[] = {
    {"message", "the text of messages, by id or data file", run_message_command},
    {"languages", "the standard languages and the language in force", run_languages_command},
    {"packs", "the option language packs in the five slots", run_packs_command},
    {"settings", "the device settings: list, get, set, reset", run_settings_command},
    {"units", "sizes in dp, px and mm", run_units_command},
    {"font", "the font of a language", run_font_command},
    {"attribute", "whether an attribute of a language is set", run_attribute_command},
    {"keyboard", "the keyboard and language files of a language", run_keyboard_command},
    {"xml", "what message or image documents hold", run_xml_command},
    {"strings", "texts of a string document, by name", run_strings_command},
    {"image", "one picture, as PNG", run_image_command},
    {"images", "the rows of the image table", run_images_command},
    {"sheet", "contact sheets of pictures", run_sheet_command},
    {"data", "data files in the platform's store: put, get, exists, remove", run_data_command},
    {"led", "the LEDs of the panel: list, set, all-on, all-off, timer", run_led_command},
    {"key", "the hard keys of the panel: press, release", run_key_command},
    {"monitor", "what happens at the panel hardware, a line per event", run_monitor_command},
    {"service", "the panel device service: status and faults on purpose", run_service_command},
};

void print_help() {
    print_line(
        QStringLiteral("panelctl - the panel's texts, pictures, units and hardware from a command line\n\n"
                       "Usage: panelctl COMMAND [ARGUMENT...]\n\nCommands:"));
    std::vector<QStringList> rows;
    for (const panelctl_command& command : COMMANDS) {
        rows.push_back(
            {QStringLiteral("  %1").arg(QLatin1String(command.name)), QLatin1String(command.summary)});
    }
    print_table(rows);
    print_line(
        QStringLiteral("\n\"panelctl COMMAND --help\" tells more. Every command takes --json.\n"
                       "Exit codes: 0 found, 1 something not found, 2 usage, 3 a file or service failed."));
}

/** Start-up of the toolkit tells of session services that a command-line tool does not need. */
void drop_start_up_remark(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        report_fault(text);
    }
}

int run_command(const QString& name, const QStringList& arguments) {
    for (const panelctl_command& command : COMMANDS) {
        if (name == QLatin1String(command.name)) {
            return command.run(arguments);
        }
    }
    report_fault(QStringLiteral("unknown command \"%1\"; see panelctl --help").arg(name));
    return EXIT_USAGE;
}

/** @return the exit code, or EXIT_SERVICE when not all of the output could be written */
int finish_output(int exit_code) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return exit_code;
    }
    report_fault(QStringLiteral("standard output cannot be written"));
    return EXIT_SERVICE;
}

} // namespace

void report_fault(const QString& text) {
    std::fprintf(stderr, "panelctl: %s\n", text.toUtf8().constData());
}

int usage_fault(const QString& command, const QString& fault) {
    report_fault(QStringLiteral("%1; see panelctl %2 --help").arg(fault, command));
    return EXIT_USAGE;
}

bool read_arguments(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                    int& exit_code) {
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    parser.addOption(help);
    parser.addOption({QLatin1String(JSON_OPTION), QStringLiteral("Prints JSON.")});
    if (!parser.parse(QStringList{QStringLiteral("panelctl ") + command} + arguments)) {
        exit_code = usage_fault(command, parser.errorText());
        return false;
    }
    if (parser.isSet(help)) {
        const QString usage = QStringLiteral("Usage: ");
        QString text = parser.helpText();
        text.replace(usage + QCoreApplication::arguments().at(0),
                     usage + QStringLiteral("panelctl ") + command);
        print_line(text.trimmed());
        exit_code = EXIT_FOUND;
        return false;
    }
    return true;
}

bool read_options(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                  int& exit_code) {
    if (!read_arguments(parser, command, arguments, exit_code)) {
        return false;
    }
    const QStringList words = parser.positionalArguments();
    if (!words.isEmpty()) {
        exit_code = usage_fault(command, QStringLiteral("unexpected \"%1\"").arg(words.first()));
    }
    return words.isEmpty();
}

bool read_number(const QString& command, const QString& text, qint64& number) {
    bool is_number = false;
    number = text.toLongLong(&is_number, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    if (!is_number) {
        usage_fault(command, QStringLiteral("\"%1\" is not a whole number").arg(text));
    }
    return is_number;
}

int run_action(const QCommandLineParser& parser, const QString& command, const char* default_action,
               const command_action* actions, std::size_t count) {
    QStringList words = parser.positionalArguments();
    const QString name = words.isEmpty() ? QLatin1String(default_action) : words.takeFirst();
    const command_action* end = actions + count;
    const command_action* action = std::find_if(
        actions, end, [&name](const command_action& each) { return name == QLatin1String(each.name); });
    if (action == end) {
        return usage_fault(command, QStringLiteral("unknown action \"%1\"").arg(name));
    }
    if (words.size() != action->argument_count) {
        return usage_fault(command, QStringLiteral("%1 takes %2 words, not %3")
                                        .arg(name)
                                        .arg(action->argument_count)
                                        .arg(words.size()));
    }
    return action->run(words, parser.isSet(QLatin1String(JSON_OPTION)));
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM",
                "offscreen"); // nothing is shown; the library needs an application all the same
    }
    qInstallMessageHandler(drop_start_up_remark);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QCoreApplication::setApplicationName(QStringLiteral("panelctl"));
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    if (arguments.isEmpty()) {
        report_fault(QStringLiteral("no command; see panelctl --help"));
        return EXIT_USAGE;
    }
    const QString name = arguments.takeFirst();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print_help();
        return finish_output(EXIT_FOUND);
    }
    if (name == QLatin1String("--version")) {
        print_line(QStringLiteral("panelctl " PANEL_VIEW_VERSION));
        return finish_output(EXIT_FOUND);
    }
    return finish_output(run_command(name, arguments));
}
