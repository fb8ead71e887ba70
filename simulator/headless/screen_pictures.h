#ifndef SCREEN_PICTURES_H
#define SCREEN_PICTURES_H

#include "panel_report.h"
#include "panel_stage.h"
#include "stage_plan.h"

#include <QImage>
#include <QString>

#include <functional>

namespace velarion {

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
 *
 * @param report  receives what is shown; may be null
 * @return an exit code; faults are reported
 */
int write_all_screens(panel_stage& stage, const stage_plan& plan, const QString& folder,
                      panel_report* report);

/** Writes a picture. @return whether that was possible; a fault is reported */
bool write_picture(const QImage& picture, const QString& file);
/** @param fault  receives why the picture cannot be written, for people; unchanged when it is */
bool save_picture(const QImage& picture, const QString& file, QString& fault);

/** Writes a file in the place of the one that is there. @return whether that was possible; a fault is
 * reported */
bool write_file(const QString& file, const QByteArray& bytes);

/** Makes a folder with those above it. @return whether it is there; a fault is reported */
bool make_folder(const QString& folder);

} // namespace velarion

#endif
