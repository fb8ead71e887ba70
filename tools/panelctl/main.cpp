#include "command.h"
#include "command_line.h"
#include "display.h"

#include <QApplication>

#include <cstdio>

namespace velarion {

namespace {

constexpr panelctl_command COMMANDS[] = {
    {"message", "the text of messages, by id, name, text or data file", run_message_command},
    {"messages", "the messages of the panel, all or those with words in them", run_messages_command},
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

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
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
