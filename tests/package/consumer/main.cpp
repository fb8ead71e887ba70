// A host that uses each of the installed libraries.
#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "host_receiver.h"
#include "message_delivery.h"
#include "platform_codes.h"
#include "settings_database.h"

#include <QApplication>

#include <cstdio>

using velarion::dvc_pnl_rmg_language_resource;

int main(int argc, char** argv) {
    std::string fault;
    if (velarion::settings_database().write("panel_language", 49, fault) != velarion::PLATFORM_OK) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        return 1;
    }
    const QApplication application(argc, argv);
    velarion::host_receiver receiver;
    const velarion::message_delivery delivery(receiver, "NOBODY");
    dvc_pnl_rmg_language_resource* language = dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    const std::string id = std::to_string(dvc_pnl_rmg_impl_message_table[0].message_id);
    std::puts(language->dvc_pnl_rmg_get_message(id.c_str()).toUtf8().constData());
    std::puts(velarion::dvc_pnl_common_utility::pixeldip2pixel(
                  "10dp+4", velarion::dvc_pnl_common_utility::ROUNDING_ROUND)
                  .c_str());
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    return 0;
}
