#include "device_request.h"

#include "command_line.h"
#include "device_client.h"
#include "device_names.h"
#include "platform_codes.h"
#include "platform_folder.h"

namespace velarion {

namespace {

/** Why there is no answer: no service, one that cannot be used, or one that keeps silent. */
QString describe_silence() {
    const service_sight sight = look_at_service();
    switch (sight.code) {
    case PLATFORM_OK:
        return QStringLiteral("runs as process %1 but does not answer: it may be stopped (\"kill -CONT %1\" "
                              "lets it go on), have no connection free, or be ordered not to (\"panelctl "
                              "service status\" tells)")
            .arg(sight.process);
    case PLATFORM_WOULD_BLOCK:
        return QStringLiteral("runs but does not answer, and many processes wait for it: it may be stopped");
    case PLATFORM_NOT_READY:
        return QStringLiteral("does not run; start it with panel_device_service");
    default:
        return QStringLiteral("cannot be reached (platform code %1)").arg(sight.code);
    }
}

int report_no_answer(const QString& fault) {
    report_fault(QStringLiteral("the panel device service of %1 %2")
                     .arg(QString::fromStdString(platform_folder()), fault));
    return EXIT_SERVICE;
}

} // namespace

int ask_device_service(const device_message& request, device_message& reply) {
    switch (send_request_when_ready(request, reply)) {
    case request_outcome::NO_ANSWER:
        return report_no_answer(describe_silence());
    case request_outcome::NOT_UNDERSTOOD:
        return report_no_answer(QStringLiteral("sent an answer that is not understood"));
    case request_outcome::ANSWERED:
        break;
    }
    return reply.result == DEVICE_OK ? static_cast<int>(EXIT_FOUND) : report_device_result(reply.result);
}

int report_device_result(int result) {
    if (result < 0) {
        return report_no_answer(describe_silence());
    }
    report_fault(QStringLiteral("the panel device service refused the request: %1")
                     .arg(QString::fromStdString(result_text(result))));
    const bool is_unknown =
        result == DEVICE_UNKNOWN_LED || result == DEVICE_UNKNOWN_STATUS || result == DEVICE_UNKNOWN_KEY;
    return is_unknown ? EXIT_NOT_FOUND : EXIT_SERVICE;
}

} // namespace velarion
