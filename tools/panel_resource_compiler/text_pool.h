#ifndef TEXT_POOL_H
#define TEXT_POOL_H

#include "message_catalogue.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velarion {

/**
 * The texts of all languages in the order in which they lie in memory: each once, one that another one ends
 * with inside that one, and each language's own beside each other, so that a device that shows one language
 * reads the pages of no other.
 */
class text_pool {
public:
    /** @param catalogue  outlives the pool */
    explicit text_pool(const message_catalogue& catalogue);

    /** The texts as they follow each other, a NUL behind each; the empty one is the first. */
    const std::vector<std::string_view>& texts() const { return texts_; }

    /** @return the byte at which a text of the catalogue begins */
    std::size_t place_of(std::string_view text) const { return places_.at(text); }

private:
    std::vector<std::string_view> texts_;
    std::map<std::string_view, std::size_t> places_;
};

} // namespace velarion

#endif
