#ifndef FINDINGS_JSON_H
#define FINDINGS_JSON_H

#include "diagnostics.h"

#include <map>
#include <string>

namespace velarion {

/** How many findings of a check there are in each language. */
using language_counts = std::map<std::string, std::map<std::string, std::size_t>>;

/** @return the counts of the findings that are of one language */
language_counts count_languages(const diagnostics& report);

/** Writes all findings and their counts to standard output. @param passed  what the command ends with */
void print_findings_json(const diagnostics& report, bool passed);

} // namespace velarion

#endif
