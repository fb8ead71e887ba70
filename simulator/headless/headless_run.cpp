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
#include "stage_plan.h"

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

/** Without a language on the command line, in that of the settings. */
language_choice first_language(const simulator_options& options, const stage_plan& plan) {
    return options.languages.empty() ? language_choice{} : plan.languages.front();
}

/** Tells on standard error what was found, and on which of it the run fails. */
int judge(const panel_report& report, const simulator_options& options) {
    for (const QString& line : report.lines()) {
        std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    }
    std::fprintf(stderr, "found: %s\n", describe_counts(report.counts()).toUtf8().constData());
    return has_fault(report.counts(), options.fail_on) ? SIMULATOR_FOUND_FAULTS : SIMULATOR_GOOD;
}

/** Shows all of a plan for those outputs that need it. @param report  receives what is shown */
int write_plan(panel_stage& stage, const simulator_options& options, const stage_plan& plan,
               panel_report& report) {
    int result = SIMULATOR_GOOD;
    if (!options.review.isEmpty()) {
        result = write_review(stage, plan, options.review, options.compare_with, report);
    }
    if (result == SIMULATOR_GOOD && !options.all_screens.isEmpty()) {
        result = write_all_screens(stage, plan, options.all_screens, report.is_empty() ? &report : nullptr);
    }
    if (result == SIMULATOR_GOOD && !options.report.isEmpty()) {
        if (report.is_empty()) {
            show_all(stage, plan, [&](const screen_view& view, const language_choice& language) {
                report.add(stage, view, language);
                return true;
            });
        }
        result = write_report(report, options.report) ? SIMULATOR_GOOD : SIMULATOR_FAILED;
    }
    return result;
}

/** All that is written: what was found is judged when all of it is there. */
int write_outputs(panel_stage& stage, const simulator_options& options, const stage_plan& plan) {
    panel_report report;
    int result = write_plan(stage, options, plan, report);
    if (result == SIMULATOR_GOOD && !options.screenshot.isEmpty()) {
        const language_choice language = first_language(options, plan);
        stage.show(plan.views.front(), language);
        result = write_picture(stage.picture(), options.screenshot) ? SIMULATOR_GOOD : SIMULATOR_FAILED;
        if (report.is_empty()) {
            report.add(stage, plan.views.front(), language);
        }
    }
    const bool tells = options.fail_on != 0 || !options.review.isEmpty() || !options.report.isEmpty();
    return result == SIMULATOR_GOOD && tells ? judge(report, options) : result;
}

int run_script(simulation& panel, panel_stage& stage, device_link& link, const simulator_options& options,
               const stage_plan& plan) {
    if (!options.languages.empty()) {
        stage.show_language(first_language(options, plan));
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
    device_link link;                           // which a script may start
    simulation panel(&link);
    panel_stage stage(panel, options.direction, options.has_overlay);
    stage_plan plan;
    if (!make_stage_plan(options, panel, plan)) {
        return SIMULATOR_USAGE;
    }
    const int written = options.writes() ? write_outputs(stage, options, plan) : SIMULATOR_GOOD;
    if (options.script.isEmpty() || written == SIMULATOR_FAILED) {
        return written;
    }
    const int run = run_script(panel, stage, link, options, plan);
    return run == SIMULATOR_GOOD ? written : run;
}

} // namespace velarion
