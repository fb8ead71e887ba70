// A panel's unit test: the fake platform stands in for settings and service.
#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "fake_platform.h"

#include <QApplication>

#include <cstdio>
#include <cstring>

using namespace velarion;

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    fake_platform& platform = fake_platform_instance();
    platform.set_setting(SETTING_GROUP, SETTING_PANEL_LANGUAGE, 16, 49);
    const std::string id = std::to_string(dvc_pnl_rmg_impl_message_table[0].message_id);
    const QString text =
        dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance()->dvc_pnl_rmg_get_message(id.c_str());
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();

    const std::int32_t answer = 42;
    std::string reply(DVC_PNL_DEC_HEADER_LENGTH, '\0');
    std::memcpy(&reply[DVC_PNL_DEC_RESULT_OFFSET], &answer, sizeof answer);
    platform.add_reply(reply);
    const int result = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_set_all_led_on();
    const fake_call sent = platform.calls_of("bmc_mc_send_sync_message").at(0);
    std::printf("%s\n%s: function %d, result %d\n", text.toUtf8().constData(), sent.text.c_str(),
                static_cast<int>(sent.numbers.at(1)), result);
    return 0;
}
