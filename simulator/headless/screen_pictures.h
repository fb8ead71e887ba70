#ifndef SCREEN_PICTURES_H
#define SCREEN_PICTURES_H

#include "panel_stage.h"

#include <QImage>
#include <QString>

#include <functional>
#include <vector>

namespace velarion {

/** What is to be shown: which views, in which languages. */
struct stage_plan {
    std::vector<screen_view> views;
    std::vector<language_choice> languages;
};

/** Names a language for files and people: "49". */
QString language_word(const language_choice& language);

/**
 * Shows every view in every language, the languages of a view one after the other, with the progress on
 * standard error where that is a terminal.
 *
 * @param show  called for each; false ends it
 */
bool show_all(panel_stage& stage, const stage_plan& plan,
              const std::function<bool(const screen_view&, const language_choice&)>& show);

/**
 * Writes VIEW-LANGUAGE.png for each view and language, and sheet-VIEW.png with all its languages.
 * @return an exit code; faults are reported
 */
int write_all_screens(panel_stage& stage, const stage_plan& plan, const QString& folder);

/** Writes a picture. @return whether that was possible; a fault is reported */
bool write_picture(const QImage& picture, const QString& file);

/** Writes a file in the place of the one that is there. @return whether that was possible; a fault is
 * reported */
bool write_file(const QString& file, const QByteArray& bytes);

/** Makes a folder with those above it. @return whether it is there; a fault is reported */
bool make_folder(const QString& folder);

} // namespace velarion

#endif
