#ifndef STAGE_PLAN_H
#define STAGE_PLAN_H

#include "panel_languages.h"
#include "screen_table.h"

#include <QString>

#include <vector>

namespace velarion {

class simulation;
struct simulator_options;

/** What is to be shown: which views, in which languages. */
struct stage_plan {
    std::vector<screen_view> views;
    std::vector<language_choice> languages;
};

/**
 * Plans what a command line asks for: all views and languages where it names none.
 * @return false after a name or a language that is not there, which is reported
 */
bool make_stage_plan(const simulator_options& options, const simulation& panel, stage_plan& plan);

/** Names a language for files and people: "49". */
QString language_word(const language_choice& language);

} // namespace velarion

#endif
