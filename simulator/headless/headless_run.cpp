#include "headless_run.h"

#include "device_link.h"
#include "device_script.h"
#include "message_log.h"
#include "panel_report.h"
#include "panel_stage.h"
#include "review_page.h"
#include "screen_pictures.h"
#include "script_runner.h"
#include "service_keeper.h"
#include "simulation.h"

#include <algorithm>
#include <cstdio>

namespace velarion {

namespace {

int list_screens() {
    for (const screen_entry& screen : all_screens()) {
        std::printf("%-20s %s\n", screen.name, screen.description);
        for (const screen_view& view : all_screen_views()) {
            if (QLatin1String(view.screen) == QLatin1String(screen.name) &&
                QLatin1String(view.name) != QLatin1String(screen.name)) {
                std::printf("  %s\n", view.name);
            }
        }
    }
    return SIMULATOR_GOOD;
}

/** @return SIMULATOR_GOOD, or SIMULATOR_USAGE after a name or a language that is not there */
int make_plan(const simulator_options& options, const simulation& panel, stage_plan& plan) {
    if (options.screen.isEmpty()) {
        plan.views = all_screen_views();
    } else if (const screen_view* view = panel_stage::find_view(options.screen)) {
        plan.views = {*view};
    } else {
        report_simulator_fault(QStringLiteral("no screen \"%1\"; see --list-screens").arg(options.screen));
        return SIMULATOR_USAGE;
    }
    const std::vector<language_choice> known = panel.languages();
    for (const int id : options.languages) {
        const language_choice choice = simulation::choice_of(id);
        if (std::find(known.begin(), known.end(), choice) == known.end()) {
            QStringList ids;
            for (const language_choice& language : known) {
                ids.append(language_word(language));
            }
            report_simulator_fault(
                QStringLiteral("language %1 is neither a standard one nor in one of the slots; "
                               "there are %2")
                    .arg(id)
                    .arg(ids.join(QLatin1String(", "))));
            return SIMULATOR_USAGE;
        }
        plan.languages.push_back(choice);
    }
    if (plan.languages.empty()) {
        plan.languages = known;
    }
    return SIMULATOR_GOOD;
}

int write_screenshot(panel_stage& stage, const simulator_options& options, const stage_plan& plan) {
    stage.show(plan.views.front(), options.languages.empty() ? language_choice{} : plan.languages.front());
    return write_picture(stage.picture(), options.screenshot) ? SIMULATOR_GOOD : SIMULATOR_FAILED;
}

/** Tells on standard error what was found, and on which of it the run fails. */
int judge(const panel_report& report, const simulator_options& options) {
    for (const QString& line : report.lines()) {
        std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    }
    std::fprintf(stderr, "found: %s\n", qPrintable(describe_counts(report.counts())));
    return has_fault(report.counts(), options.fail_on) ? SIMULATOR_FOUND_FAULTS : SIMULATOR_GOOD;
}

int write_panel_report(panel_stage& stage, const simulator_options& options, const stage_plan& plan) {
    panel_report report;
    show_all(stage, plan, [&](const screen_view& view, const language_choice& language) {
        report.add(stage, view, language);
        return true;
    });
    return write_report(report, options.report) ? judge(report, options) : SIMULATOR_FAILED;
}

int write_review_page(panel_stage& stage, const simulator_options& options, const stage_plan& plan) {
    panel_report report;
    const int result = write_review(stage, plan, options.review, options.compare_with, report);
    return result == SIMULATOR_GOOD ? judge(report, options) : result;
}

int run_script(simulation& panel, panel_stage& stage, device_link& link, const simulator_options& options,
               const stage_plan& plan) {
    if (!options.languages.empty()) {
        stage.show_language(plan.languages.front());
    }
    service_keeper service(link);
    if (options.service) {
        service.begin(*options.service);
    }
    script_runner runner(panel);
    add_panel_commands(runner, panel, stage);
    add_panel_conditions(runner, panel, stage);
    add_device_words(runner, link, service);
    return runner.run(options.script);
}

} // namespace

int run_headless(const simulator_options& options) {
    if (options.lists_screens) {
        return list_screens();
    }
    const trace_log traces(options.is_verbose); // kept from standard error
    device_link link; // which a script may start
    simulation panel(&link);
    panel_stage stage(panel, options.direction);
    stage_plan plan;
    int result = make_plan(options, panel, plan);
    if (result == SIMULATOR_GOOD && !options.screenshot.isEmpty()) {
        result = write_screenshot(stage, options, plan);
    }
    if (result == SIMULATOR_GOOD && !options.all_screens.isEmpty()) {
        result = write_all_screens(stage, plan, options.all_screens);
    }
    if (result == SIMULATOR_GOOD && !options.review.isEmpty()) {
        result = write_review_page(stage, options, plan);
    }
    if (result == SIMULATOR_GOOD && !options.report.isEmpty()) {
        result = write_panel_report(stage, options, plan);
    }
    if (result == SIMULATOR_GOOD && !options.script.isEmpty()) {
        result = run_script(panel, stage, link, options, plan);
    }
    return result;
}

} // namespace velarion
