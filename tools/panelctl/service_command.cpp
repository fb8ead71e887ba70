#include "command.h"

#include "command_line.h"
#include "device_client.h"
#include "device_names.h"
#include "device_request.h"
#include "display.h"

#include <QJsonObject>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("service");

/** A kind of misbehaviour, and whether a value stands behind its name. */
struct fault_action {
    const char* name;
    fault_kind kind;
    bool has_value;
};

constexpr fault_action FAULTS[] = {
    {"normal", FAULT_NONE, false}, {"delay", FAULT_DELAY, true},          {"drop", FAULT_DROP, false},
    {"fail", FAULT_FAIL, true},    {"crash-at-next", FAULT_CRASH, false},
};

QString describe_fault(const std::vector<int>& values) {
    const int kind = values[STATUS_FAULT];
    QString text = QString::fromStdString(fault_name(kind));
    if (kind == FAULT_DELAY || kind == FAULT_FAIL) {
        text += QStringLiteral(" %1").arg(values[STATUS_FAULT_VALUE]);
    }
    if (kind != FAULT_NONE && values[STATUS_FAULT_REQUESTS] > 0) {
        text += QStringLiteral(" for %1 requests").arg(values[STATUS_FAULT_REQUESTS]);
    }
    return text;
}

void print_status(const std::vector<int>& values, bool as_json) {
    if (as_json) {
        print_json(QJsonDocument(
            QJsonObject{{QStringLiteral("process"), values[STATUS_PROCESS]},
                        {QStringLiteral("uptime_seconds"), values[STATUS_UPTIME]},
                        {QStringLiteral("connections"), values[STATUS_CONNECTIONS]},
                        {QStringLiteral("observers"), values[STATUS_OBSERVERS]},
                        {QStringLiteral("requests"), values[STATUS_REQUESTS]},
                        {QStringLiteral("refused"), values[STATUS_REFUSED]},
                        {QStringLiteral("fault"), QString::fromStdString(fault_name(values[STATUS_FAULT]))},
                        {QStringLiteral("fault_value"), values[STATUS_FAULT_VALUE]},
                        {QStringLiteral("fault_requests"), values[STATUS_FAULT_REQUESTS]}}));
        return;
    }
    print_table({{QStringLiteral("process"), QString::number(values[STATUS_PROCESS])},
                 {QStringLiteral("uptime"), QStringLiteral("%1 s").arg(values[STATUS_UPTIME])},
                 {QStringLiteral("connections"), QString::number(values[STATUS_CONNECTIONS])},
                 {QStringLiteral("observers"), QString::number(values[STATUS_OBSERVERS])},
                 {QStringLiteral("requests"), QString::number(values[STATUS_REQUESTS])},
                 {QStringLiteral("refused"), QString::number(values[STATUS_REFUSED])},
                 {QStringLiteral("fault"), describe_fault(values)}});
}

int show_status(bool as_json) {
    device_message reply;
    const int exit_code = ask_device_service(make_message(CONTROL_STATUS, {}), reply);
    if (exit_code != EXIT_FOUND) {
        return exit_code;
    }
    std::vector<int> values;
    for (const device_record& record : reply.records) {
        values.push_back(record.value);
    }
    values.resize(STATUS_FIELD_COUNT);
    print_status(values, as_json);
    return EXIT_FOUND;
}

int order_fault(fault_kind kind, int value, int requests) {
    device_message reply;
    return ask_device_service(make_message(CONTROL_SET_FAULT, {kind, value, requests}), reply);
}

/** The service dies without an answer, so that its silence is the success. */
int crash_service() {
    device_message reply;
    const int exit_code = ask_device_service(make_message(CONTROL_STATUS, {}), reply);
    if (exit_code != EXIT_FOUND) {
        return exit_code;
    }
    send_request(make_message(CONTROL_SET_FAULT, {FAULT_CRASH_NOW, 0, 0}), reply);
    return EXIT_FOUND;
}

int run_fault_action(const fault_action& action, const QStringList& words) {
    int value = 0;
    int requests = 0;
    const int first_optional = action.has_value ? 1 : 0;
    if (words.size() < first_optional || words.size() > first_optional + 1) {
        return usage_fault(
            COMMAND, QStringLiteral("wrong number of words behind \"%1\"").arg(QLatin1String(action.name)));
    }
    if (action.has_value && !read_number(COMMAND, words.at(0), value)) {
        return EXIT_USAGE;
    }
    if (words.size() > first_optional && !read_number(COMMAND, words.at(first_optional), requests)) {
        return EXIT_USAGE;
    }
    return order_fault(action.kind, value, requests);
}

void describe_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Shows the panel device service and lets it misbehave, to see how hosts bear it. The faults are for "
        "the\n"
        "requests of the panel library alone, for the next REQUESTS of them (all until changed without a "
        "number).\n\n"
        "  status\n"
        "  delay MILLISECONDS [REQUESTS]  replies come late\n"
        "  drop [REQUESTS]                requests are carried out but not answered\n"
        "  fail RESULT [REQUESTS]         requests are not carried out; RESULT is the answer\n"
        "  crash                          the service ends as if killed, now\n"
        "  crash-at-next                  ... when it receives the next request\n"
        "  normal                         no fault any more"));
    parser.addPositionalArgument(QStringLiteral("action"), QStringLiteral("What to do."),
                                 QStringLiteral("[ACTION [ARGUMENT...]]"));
}

} // namespace

int run_service_command(const QStringList& arguments) {
    QCommandLineParser parser;
    describe_arguments(parser);
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    QStringList words = parser.positionalArguments();
    const QString name = words.isEmpty() ? QStringLiteral("status") : words.takeFirst();
    if (words.isEmpty() && name == QLatin1String("status")) {
        return show_status(parser.isSet(QLatin1String(JSON_OPTION)));
    }
    if (words.isEmpty() && name == QLatin1String("crash")) {
        return crash_service();
    }
    for (const fault_action& action : FAULTS) {
        if (name == QLatin1String(action.name)) {
            return run_fault_action(action, words);
        }
    }
    return usage_fault(COMMAND, QStringLiteral("unknown action \"%1\", or words too many").arg(name));
}

} // namespace velarion
