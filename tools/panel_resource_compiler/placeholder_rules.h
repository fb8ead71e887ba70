#ifndef PLACEHOLDER_RULES_H
#define PLACEHOLDER_RULES_H

#include "message_catalogue.h"
#include "text_rules.h"

#include <array>
#include <string>

namespace velarion {

/** How often each of the placeholders "%1" to "%9" stands in a text. */
using placeholder_counts = std::array<std::size_t, 9>;

placeholder_counts count_placeholders(const std::string& text);

/**
 * What is wrong with the placeholders of a text.
 *
 * @param row  where the text belongs, which it is part of when it is that of a standard language
 */
std::vector<text_fault> placeholder_faults(const catalogue_row& row, const std::string& text);

/**
 * Reports the texts whose placeholders are not those of their row, of the standard languages. What most of a
 * row's texts hold is right, or else what the English text holds. Empty texts are left out: a row may be
 * meant for some languages only.
 */
void check_placeholders(const message_catalogue& catalogue, diagnostics& report);

/** The same for the texts of a pack, which have no say in what is right. */
void check_pack_placeholders(const message_catalogue& catalogue, const text_file& pack, diagnostics& report);

} // namespace velarion

#endif
