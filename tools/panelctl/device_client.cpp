#include "device_client.h"

#include "command_line.h"
#include "device_names.h"
#include "dvc_pnl_dec_communication.h"
#include "file_descriptor.h"
#include "message_layer.h"
#include "message_socket.h"
#include "platform_codes.h"
#include "platform_folder.h"

#include <limits>
#include <sys/socket.h>
#include <vector>

namespace {

using velarion::bmc_mc_client;

constexpr long MODE = 1;

/** The process at the other end of a connection, also of one that it has not taken yet. */
pid_t process_behind(const panel_platform::file_descriptor& connection) {
    ucred peer = {};
    socklen_t length = sizeof peer;
    return ::getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 ? peer.pid : 0;
}

/** Why there is no answer: no service, one that cannot be used, or one that keeps silent. */
QString describe_silence() {
    panel_platform::file_descriptor connection;
    const int code = panel_platform::connect_to_service(velarion::DVC_PNL_DEC_SERVICE_NAME, connection);
    if (code == panel_platform::PLATFORM_OK) {
        const QString process = QString::number(process_behind(connection));
        return QStringLiteral("runs as process %1 but does not answer: it may be stopped (\"kill -CONT %1\" "
                              "lets it go on), have no connection free, or be ordered not to (\"panelctl "
                              "service status\" tells)")
            .arg(process);
    }
    if (code == panel_platform::PLATFORM_WOULD_BLOCK) {
        return QStringLiteral("runs but does not answer, and many processes wait for it: it may be stopped");
    }
    return code == panel_platform::PLATFORM_NOT_READY
               ? QStringLiteral("does not run; start it with panel_device_service")
               : QStringLiteral("cannot be reached (platform code %1)").arg(code);
}

/** @param answer  the reply, whole; empty on failure. @return a platform code */
long exchange(const panel_device::device_message& request, std::vector<char>& answer) {
    std::vector<char> message = encode_message(request, {});
    answer.resize(panel_platform::IPC_LONGEST_MESSAGE);
    unsigned int length = static_cast<unsigned int>(answer.size());
    bmc_mc_client client;
    const long code = client.bmc_mc_send_sync_message(
        MODE, request.func_id, message.data(), static_cast<unsigned int>(message.size()), answer.data(),
        &length, velarion::DVC_PNL_DEC_SERVICE_NAME);
    answer.resize(length);
    return code;
}

int report_no_answer(const QString& fault) {
    report_fault(QStringLiteral("the panel device service of %1 %2")
                     .arg(QString::fromStdString(panel_platform::platform_folder()), fault));
    return EXIT_SERVICE;
}

} // namespace

int ask_device_service(const panel_device::device_message& request, panel_device::device_message& reply) {
    if (bmc_mc_client::bmc_mc_check_facade(velarion::DVC_PNL_DEC_SERVICE_NAME, MODE) == 0) {
        return report_no_answer(describe_silence());
    }
    std::vector<char> answer;
    const long code = exchange(request, answer);
    if (code == panel_platform::PLATFORM_BAD_MESSAGE || code == panel_platform::PLATFORM_TOO_LARGE) {
        return report_no_answer(QStringLiteral("sent an answer that is not understood"));
    }
    if (code != panel_platform::PLATFORM_OK) {
        return report_no_answer(describe_silence());
    }
    if (decode_message(answer.data(), answer.size(), reply) != panel_device::DEVICE_OK) {
        return report_no_answer(QStringLiteral("sent an answer that is not understood"));
    }
    return reply.result == panel_device::DEVICE_OK ? static_cast<int>(EXIT_FOUND)
                                                   : report_device_result(reply.result);
}

bool send_to_device_service(const panel_device::device_message& request) {
    std::vector<char> answer;
    return exchange(request, answer) == panel_platform::PLATFORM_OK;
}

int report_device_result(int result) {
    if (result < 0) {
        return report_no_answer(describe_silence());
    }
    report_fault(QStringLiteral("the panel device service refused the request: %1")
                     .arg(QString::fromStdString(panel_device::result_text(result))));
    const bool is_unknown = result == panel_device::DEVICE_UNKNOWN_LED ||
                            result == panel_device::DEVICE_UNKNOWN_STATUS ||
                            result == panel_device::DEVICE_UNKNOWN_KEY;
    return is_unknown ? EXIT_NOT_FOUND : EXIT_SERVICE;
}

bool read_device_number(const QString& command, const QString& text, int& number) {
    qint64 value = 0;
    if (!read_number(command, text, value)) {
        return false;
    }
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
        usage_fault(command, QStringLiteral("\"%1\" does not fit into 32 bits").arg(text));
        return false;
    }
    number = static_cast<int>(value);
    return true;
}
