#ifndef ID_DIRECTORY_H
#define ID_DIRECTORY_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velarion {

/**
 * Tells where in a table, ascending by id, an id can stand: few records of which a search remains. Made once
 * for a table of constants, then readable from any thread.
 *
 * The span of the ids is divided into fewer equal parts than there are records, and the place of each part's
 * first record is kept.
 */
template <typename RECORD> class id_directory {
public:
    /** Records from @c first up to, but not with, @c last. */
    struct range {
        std::size_t first;
        std::size_t last;
    };

    /**
     * @param table  ascending by id, without repetition; outlives the directory
     * @param id     the member that holds the id
     */
    id_directory(const RECORD* table, std::size_t count, std::int32_t RECORD::*id) {
        if (count == 0) {
            return;
        }
        first_id_ = table[0].*id;
        const std::uint32_t span = distance(table[count - 1].*id);
        while ((span >> shift_) >= count) {
            ++shift_;
        }
        starts_.reserve((span >> shift_) + 2);
        for (std::size_t i = 0; i < count; ++i) {
            while (starts_.size() <= distance(table[i].*id) >> shift_) {
                starts_.push_back(static_cast<std::uint32_t>(i));
            }
        }
        starts_.push_back(static_cast<std::uint32_t>(count));
    }

    /** @return where the id stands if the table has it; empty when it cannot have it */
    range find(std::int32_t id) const {
        const std::size_t part =
            distance(id) >> shift_; // of an id below the first one: beyond the last part, or of other ids
        if (part + 1 >= starts_.size()) {
            return {0, 0};
        }
        return {starts_[part], starts_[part + 1]};
    }

private:
    std::uint32_t distance(std::int32_t id) const {
        return static_cast<std::uint32_t>(id) - static_cast<std::uint32_t>(first_id_);
    }

    std::int32_t first_id_ = 0;
    unsigned int shift_ = 0;
    std::vector<std::uint32_t> starts_;
};

} // namespace velarion

#endif
