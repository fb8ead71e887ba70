#ifndef REVIEW_PAGE_H
#define REVIEW_PAGE_H

#include "panel_report.h"
#include "screen_pictures.h"

#include <QJsonObject>
#include <QString>

namespace velarion {

/**
 * Writes a folder for people with a browser and nothing else: index.html, every view in every language as a
 * picture in screens/, what each shows and what is wrong with it in data.js.
 *
 * @param earlier  folder of an earlier review, whose pictures are compared with these; empty: none
 * @param report   receives what is shown
 * @return an exit code; faults are reported
 */
int write_review(panel_stage& stage, const stage_plan& plan, const QString& folder, const QString& earlier,
                 panel_report& report);

} // namespace velarion

#endif
