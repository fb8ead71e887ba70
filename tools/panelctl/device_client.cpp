#include "device_client.h"

#include "command.h"
#include "device_names.h"
#include "dvc_pnl_dec_communication.h"
#include "message_layer.h"
#include "osw.h"
#include "platform_codes.h"
#include "platform_folder.h"

#include <limits>
#include <vector>

namespace {

using velarion::bmc_mc_client;

const int READINESS_CHECKS = 200;
const unsigned long READINESS_PAUSE = 300; // platform time units
const long MODE = 1;

bool is_service_ready() {
    for (int check = 0; check < READINESS_CHECKS; ++check) {
        if (bmc_mc_client::bmc_mc_check_facade(velarion::DVC_PNL_DEC_SERVICE_NAME, MODE) != 0) {
            return true;
        }
        emwOSWSleep(READINESS_PAUSE);
    }
    return false;
}

/** @param answer  the reply, whole; empty on failure. @return a platform code */
long exchange(const panel_device::DEVICE_MESSAGE& request, std::vector<char>& answer) {
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
    report_fault(QStringLiteral("the panel device service of %1 %2; start it with panel_device_service")
                     .arg(QString::fromStdString(panel_platform::platform_folder()), fault));
    return EXIT_SERVICE;
}

} // namespace

int ask_device_service(const panel_device::DEVICE_MESSAGE& request, panel_device::DEVICE_MESSAGE& reply) {
    if (!is_service_ready()) {
        return report_no_answer(QStringLiteral("does not run"));
    }
    std::vector<char> answer;
    const long code = exchange(request, answer);
    if (code != panel_platform::PLATFORM_OK) {
        return report_no_answer(QStringLiteral("did not answer (platform code %1)").arg(code));
    }
    if (decode_message(answer.data(), answer.size(), reply) != panel_device::DEVICE_OK) {
        return report_no_answer(QStringLiteral("sent an answer that is not understood"));
    }
    return reply.result == panel_device::DEVICE_OK ? static_cast<int>(EXIT_FOUND)
                                                   : report_device_result(reply.result);
}

bool send_to_device_service(const panel_device::DEVICE_MESSAGE& request) {
    std::vector<char> answer;
    return exchange(request, answer) == panel_platform::PLATFORM_OK;
}

int report_device_result(int result) {
    if (result < 0) {
        return report_no_answer(QStringLiteral("did not answer"));
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
