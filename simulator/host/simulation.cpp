#include "simulation.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "screen_table.h"

#include <QCoreApplication>
#include <QEvent>

namespace velarion {

namespace {

dvc_pnl_rmg_language_resource& language() {
    return *dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
}

} // namespace

simulation::simulation()
    : panel_(machine_, all_screens()) {}

std::vector<language_choice> simulation::languages() {
    std::vector<language_choice> all;
    const int* standard = language().dvc_pnl_rmg_get_standard_language_id_array();
    for (int i = 0; i < language().dvc_pnl_rmg_get_standard_language_number(); ++i) {
        all.push_back({standard[i], 0});
    }
    std::vector<int> options;
    language().dvc_pnl_rmg_get_option_language_id_array(options);
    for (const int id : options) {
        if (language().dvc_pnl_rmg_is_valid_option_language(id)) {
            all.push_back({DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION, id});
        }
    }
    return all;
}

void simulation::choose_language(const language_choice& choice) {
    language().dvc_pnl_rmg_set_preferred_language(choice.language_id, choice.option_language_id);
    show_language();
}

void simulation::choose_standard_language(const language_choice& choice) {
    language().dvc_pnl_rmg_set_standard_language(choice.language_id, choice.option_language_id);
    show_language();
}

void simulation::show_language() {
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&panel_, &change);
    Q_EMIT language_changed();
}

} // namespace velarion
