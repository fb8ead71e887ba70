#include "stage_plan.h"

#include "dvc_pnl_rmg_property.h"
#include "panel_stage.h"
#include "simulation.h"
#include "simulator_options.h"

#include <QStringList>

#include <algorithm>
#include <optional>

namespace velarion {

namespace {

bool contains(const std::vector<language_choice>& languages, const language_choice& language) {
    return std::find(languages.begin(), languages.end(), language) != languages.end();
}

void report_unknown_language(int id, const std::vector<language_choice>& known) {
    QStringList ids;
    for (const language_choice& language : known) {
        ids.append(language_word(language));
    }
    report_simulator_fault(
        QStringLiteral("language %1 is neither a standard one nor in one of the slots; there are %2")
            .arg(id)
            .arg(ids.join(QLatin1String(", "))));
}

} // namespace

bool make_stage_plan(const simulator_options& options, const simulation& panel, stage_plan& plan) {
    if (options.screen.isEmpty()) {
        plan.views = all_screen_views();
    } else if (const std::optional<screen_view> view = panel_stage::find_view(options.screen)) {
        plan.views = {*view};
    } else {
        report_simulator_fault(QStringLiteral("no screen \"%1\"; see --list-screens").arg(options.screen));
        return false;
    }
    const std::vector<language_choice> known = panel.languages();
    for (const int id : options.languages) {
        const language_choice choice = simulation::choice_of(id);
        if (!contains(known, choice)) {
            report_unknown_language(id, known);
            return false;
        }
        if (!contains(plan.languages, choice)) {
            plan.languages.push_back(choice);
        }
    }
    if (plan.languages.empty()) {
        plan.languages = known;
    }
    return true;
}

QString language_word(const language_choice& language) {
    return QString::number(language.language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION
                               ? language.option_language_id
                               : language.language_id);
}

} // namespace velarion
