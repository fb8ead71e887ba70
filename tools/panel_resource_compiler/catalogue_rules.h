#ifndef CATALOGUE_RULES_H
#define CATALOGUE_RULES_H

#include "message_catalogue.h"

#include <string>
#include <vector>

namespace velarion {

// Each of these reports what its checks find, as warnings and remarks. The packs are the texts of option
// languages.

/** The messages that have no text in a language. */
void check_missing(const message_catalogue& catalogue, const std::vector<text_file>& packs,
                   diagnostics& report);

/** What looks like a slip in a single text, by itself or beside the English one. */
void check_slips(const message_catalogue& catalogue, const text_file& language, diagnostics& report);

/** English texts that are rendered in two ways in a language. */
void check_renderings(const message_catalogue& catalogue, const text_file& language, diagnostics& report);

/** Messages of one name. */
void check_duplicate_names(const message_catalogue& catalogue, diagnostics& report);

/** Rows with texts that no message uses. */
void check_unused_rows(const message_catalogue& catalogue, const std::vector<text_file>& packs,
                       diagnostics& report);

/** Files of a catalogue's folder that nothing reads. */
void check_unknown_files(const std::string& folder, diagnostics& report);

/** Texts that nobody has confirmed against the English text as it is; where nothing is kept, none. */
void check_stale(const std::string& folder, const message_catalogue& catalogue, const text_file& language,
                 diagnostics& report);

} // namespace velarion

#endif
