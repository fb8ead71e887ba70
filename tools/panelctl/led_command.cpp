#include "command.h"

#include "command_line.h"
#include "device_names.h"
#include "device_request.h"
#include "display.h"
#include "dvc_pnl_dec_facade.h"
#include "osw.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cstddef>
#include <string>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("led");
constexpr std::size_t VALUES_PER_LED = 3;

dvc_pnl_dec_facade& facade() {
    return *dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
}

int exit_code_of(int result) {
    return result == 0 ? static_cast<int>(EXIT_FOUND) : report_device_result(result);
}

void print_led_row(std::vector<QStringList>& rows, int led, int status, bool is_lit) {
    rows.push_back({QString::number(led), QString::fromStdString(led_name(led)),
                    QString::fromStdString(led_status_name(status)),
                    is_lit ? QStringLiteral("lit") : QStringLiteral("dark")});
}

QJsonObject led_as_json(int led, int status, bool is_lit) {
    return {{QStringLiteral("led"), led},
            {QStringLiteral("name"), QString::fromStdString(led_name(led))},
            {QStringLiteral("status"), QString::fromStdString(led_status_name(status))},
            {QStringLiteral("lit"), is_lit}};
}

int list_leds(const QStringList&, bool as_json) {
    device_message reply;
    const int exit_code = ask_device_service(make_message(CONTROL_LIST_LEDS, {}), reply);
    if (exit_code != EXIT_FOUND) {
        return exit_code;
    }
    std::vector<QStringList> rows;
    QJsonArray leds;
    for (std::size_t i = 0; i + VALUES_PER_LED <= reply.records.size(); i += VALUES_PER_LED) {
        const int led = reply.records[i].value;
        const int status = reply.records[i + 1].value;
        const bool is_lit = reply.records[i + 2].value != 0;
        print_led_row(rows, led, status, is_lit);
        leds.append(led_as_json(led, status, is_lit));
    }
    if (as_json) {
        print_json(QJsonDocument(leds));
    } else {
        print_table(rows);
    }
    return EXIT_FOUND;
}

/** Reads a name that @p find knows, or any number, which is the service's to judge. */
bool read_name(const QString& text, bool (*find)(const std::string&, int&), const QString& kind,
               const std::string& known, int& number) {
    if (find(text.toStdString(), number)) {
        return true;
    }
    bool is_number = false;
    if (text.toLongLong(&is_number, 0) == 0 && !is_number) {
        usage_fault(COMMAND, QStringLiteral("no %1 \"%2\"; there are %3, or their numbers from 0 on")
                                 .arg(kind, text, QString::fromStdString(known)));
        return false;
    }
    return read_number(COMMAND, text, number);
}

bool read_led(const QString& text, int& led) {
    return read_name(text, find_led, QStringLiteral("LED"), known_leds(), led);
}

bool read_status(const QString& text, int& status) {
    return read_name(text, find_led_status, QStringLiteral("status"), known_led_statuses(), status);
}

int set_led(const QStringList& arguments, bool) {
    int led = 0;
    int status = 0;
    if (!read_led(arguments.at(0), led) || !read_status(arguments.at(1), status)) {
        return EXIT_USAGE;
    }
    return exit_code_of(facade().dvc_pnl_dec_set_led_status(static_cast<DVC_PNL_DEC_LED_ID>(led),
                                                            static_cast<DVC_PNL_DEC_LED_STATUS_ID>(status)));
}

int set_all_leds_on(const QStringList&, bool) {
    return exit_code_of(facade().dvc_pnl_dec_set_all_led_on());
}

int set_all_leds_off(const QStringList&, bool) {
    return exit_code_of(facade().dvc_pnl_dec_set_all_led_off());
}

int run_timer(const QStringList& arguments, bool) {
    int values[3] = {};
    for (int i = 0; i < 3; ++i) {
        if (!read_number(COMMAND, arguments.at(i), values[i])) {
            return EXIT_USAGE;
        }
    }
    int end_status = 0;
    if (!read_status(arguments.at(3), end_status)) {
        return EXIT_USAGE;
    }
    OSW_Timer_Control timer(0);
    facade().dvc_pnl_dec_set_led_airprint_timer_proc(timer, values[0], values[1], values[2], end_status);
    return EXIT_FOUND; // the operation has no result
}

constexpr command_action ACTIONS[] = {
    {"list", 0, list_leds},           {"set", 2, set_led},     {"all-on", 0, set_all_leds_on},
    {"all-off", 0, set_all_leds_off}, {"timer", 4, run_timer},
};

} // namespace

int run_led_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows and sets the LEDs of the panel, through the panel device service.\n\n"
        "  list                          each LED, its status, whether it is lit now\n"
        "  set LED STATUS                LED: a name or number of the list; STATUS: off, on, blink_slow,\n"
        "                                blink_fast, or a number\n"
        "  all-on, all-off\n"
        "  timer LIT DARK CYCLES STATUS  lets the print_service LED be lit and dark in turn for so many\n"
        "                                milliseconds (10 to 60000) and times (0: for ever), and show\n"
        "                                STATUS then; whether the service took it, \"list\" tells"));
    parser.addPositionalArgument(QStringLiteral("action"), QStringLiteral("What to do."),
                                 QStringLiteral("[ACTION [ARGUMENT...]]"));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    return run_action(parser, COMMAND, "list", ACTIONS);
}

} // namespace velarion
