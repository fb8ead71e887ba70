#ifndef PICTURE_REPORT_H
#define PICTURE_REPORT_H

#include "diagnostics.h"

#include <memory>
#include <string>
#include <vector>

class QGuiApplication;

namespace velarion {

/** A toolkit that draws without a screen, for as long as it lives. */
class offscreen_application {
public:
    offscreen_application();
    ~offscreen_application();

private:
    std::unique_ptr<QGuiApplication> application_;
};

/**
 * Lets a report leave out what ignore.tsv of a catalogue's folder holds: columns check, subject, language and
 * reason.
 *
 * @param subject  what the finding that is being reported is about; outlives the report
 */
void use_picture_ignore_list(const std::string& folder, const std::string& subject, diagnostics& report);

/** @return a fault of usage when one of the names is no check of pictures and texts' looks, nor "warnings" */
std::string unknown_check_of(const std::vector<std::string>& names);

/** Writes the summary, or all findings as JSON. @return what the command ends with */
int finish_report(const diagnostics& report, bool is_json, const std::vector<std::string>& failing);

} // namespace velarion

#endif
