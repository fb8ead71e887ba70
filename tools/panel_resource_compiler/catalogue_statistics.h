#ifndef CATALOGUE_STATISTICS_H
#define CATALOGUE_STATISTICS_H

#include "catalogue_source.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velarion {

/** The texts of a language, in the catalogue or in one screen area. */
struct text_statistics {
    std::size_t messages = 0;     ///< with a row of texts: not row 1
    std::size_t texts = 0;        ///< rows with one that messages of the area use
    std::size_t empty = 0;        ///< rows without one
    std::size_t shared = 0;       ///< rows with one that several messages of the catalogue use
    std::size_t unused = 0;       ///< rows with one that no message uses; of the whole catalogue alone
    std::size_t labels = 0;       ///< texts of the form "X: Y"
    std::size_t longest = 0;      ///< characters
    std::int32_t longest_row = 0; ///< 0 when there is no text
    std::int32_t longest_id = 0;  ///< a message that shows it; 0 when none does
};

struct language_statistics {
    std::string language;
    text_statistics all;
    std::map<std::string, text_statistics> areas; ///< by the word behind "MSG_"
};

/** @return the standard languages in the order of their indexes, then the packs */
std::vector<language_statistics> count_texts(const catalogue_source& source);

} // namespace velarion

#endif
