#include "command.h"

#include "command_line.h"
#include "device_request.h"
#include "display.h"
#include "dvc_pnl_dec_communication.h"

#include <QJsonObject>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("key");

int send_key_event(int key, int status, bool as_json) {
    using namespace velarion;
    device_message reply;
    const int exit_code = ask_device_service(make_message(CONTROL_KEY_EVENT, {key, status}), reply);
    if (exit_code != EXIT_FOUND) {
        return exit_code;
    }
    const int told = reply.records.empty() ? 0 : reply.records.front().value;
    if (as_json) {
        print_json(QJsonDocument(QJsonObject{{QStringLiteral("key"), key},
                                             {QStringLiteral("status"), status},
                                             {QStringLiteral("observers_told"), told}}));
    } else {
        print_line(QStringLiteral("key %1: %2 observers told").arg(key).arg(told));
    }
    return EXIT_FOUND;
}

} // namespace

int run_key_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Presses and releases hard keys of the panel: the panel device service tells every "
                       "key observer.\n\n  press ID, release ID   ID: 0 to 255"));
    parser.addPositionalArgument(QStringLiteral("action"), QStringLiteral("press or release."));
    parser.addPositionalArgument(QStringLiteral("id"), QStringLiteral("The key's number."));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    const QStringList words = parser.positionalArguments();
    const bool is_press = !words.isEmpty() && words.at(0) == QLatin1String("press");
    if (words.size() != 2 || (!is_press && words.at(0) != QLatin1String("release"))) {
        return usage_fault(COMMAND, QStringLiteral("\"press ID\" or \"release ID\" is needed"));
    }
    int key = 0;
    if (!read_number(COMMAND, words.at(1), key)) {
        return EXIT_USAGE;
    }
    return send_key_event(key, is_press ? DVC_PNL_DEC_KEY_PRESSED : DVC_PNL_DEC_KEY_RELEASED,
                          parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
