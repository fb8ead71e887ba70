#ifndef EXCHANGE_IMPORT_H
#define EXCHANGE_IMPORT_H

#include "exchange_document.h"

#include <iosfwd>

namespace velarion {

struct import_rules {
    bool accepts_unfinished = false; ///< takes unfinished texts too, and removes those that were emptied
    bool skips_conflicts = false;    ///< leaves the texts in conflict as they are, with a warning
};

/** What an import does, in texts. */
struct import_counts {
    std::size_t fresh = 0; ///< texts of rows that had none
    std::size_t changed = 0;
    std::size_t same = 0;
    std::size_t removed = 0;
    std::size_t kept = 0;       ///< changed in the catalogue since the export, not in the file
    std::size_t unfinished = 0; ///< left out
    std::size_t conflicts = 0;  ///< skipped
    std::size_t absent = 0;     ///< rows of the catalogue that the file does not hold
};

/**
 * Takes a document's texts over into a language, in memory. What is taken and finished counts as confirmed.
 *
 * @param report  receives what cannot be taken: the language is usable only when it counts no error
 */
import_counts import_document(const exchange_document& document, const import_rules& rules,
                              exchange_language& language, diagnostics& report);

} // namespace velarion

#endif
