#ifndef PANEL_REPORT_H
#define PANEL_REPORT_H

#include "panel_findings.h"
#include "panel_stage.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace velarion {

/** The report on a panel, view by view; docs/simulator.md tells its form. */
class panel_report {
public:
    /** Adds what the stage shows now. */
    void add(const panel_stage& stage, const screen_view& view, const language_choice& language);

    bool is_empty() const { return views_.isEmpty(); }
    const finding_counts& counts() const { return counts_; }
    QJsonObject to_json() const;
    /** What was found, a line each, for people: "copy, 49: text 12 "Kopie" needs 80 x 20 px, has 60 x 20". */
    const QStringList& lines() const { return lines_; }

private:
    QJsonObject text_json(const QString& place, const text_finding& text);
    QJsonObject picture_json(const QString& place, const picture_finding& picture);

    panel_examiner examiner_;
    QJsonArray views_;
    QStringList lines_;
    finding_counts counts_;
};

/** @param classes  fault_class, any of them. @return whether there is one of these */
bool has_fault(const finding_counts& counts, unsigned int classes);

/** For people: "2 overflows, 1 missing picture"; "nothing" when there is none. */
QString describe_counts(const finding_counts& counts);

/** Writes the report. @return whether that was possible; a fault is reported */
bool write_report(const panel_report& report, const QString& file);

} // namespace velarion

#endif
