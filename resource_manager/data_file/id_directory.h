#ifndef ID_DIRECTORY_H
#define ID_DIRECTORY_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velarion {

/**
 * Finds the records of a table, ascending by id, faster than a search of the whole. Made once for a table of
 * constants, then readable from any thread.
 *
 * The span of the ids is divided into equal parts, and the place of each part's first record is kept: few
 * records remain to be searched.
 *
 * @tparam ID  the member that holds the id
 */
template <typename RECORD, std::int32_t RECORD::*ID> class id_directory {
public:
    /** @param table  ascending by id, without repetition; outlives the directory */
    id_directory(const RECORD* table, std::size_t count)
        : table_(table) {
        if (count == 0) {
            return;
        }
        first_id_ = table[0].*ID;
        const std::uint32_t span = distance(table[count - 1].*ID);
        while ((span >> shift_) >= count) {
            ++shift_;
        }
        starts_.reserve((span >> shift_) + 2);
        for (std::size_t i = 0; i < count; ++i) {
            starts_.resize(std::max(starts_.size(), (distance(table[i].*ID) >> shift_) + std::size_t(1)),
                           static_cast<std::uint32_t>(i));
        }
        starts_.push_back(static_cast<std::uint32_t>(count));
    }

    /** @return the record with the id, or null */
    const RECORD* find(std::int32_t id) const {
        const std::size_t part =
            distance(id) >> shift_; // of an id below the first one: beyond the last part, or of other ids
        if (part + 1 >= starts_.size()) {
            return nullptr;
        }
        std::size_t lower = starts_[part];
        std::size_t upper = starts_[part + 1];
        while (lower < upper) {
            const std::size_t middle = (lower + upper) / 2;
            const RECORD& record = table_[middle];
            if (record.*ID == id) {
                return &record;
            }
            if (record.*ID < id) {
                lower = middle + 1;
            } else {
                upper = middle;
            }
        }
        return nullptr;
    }

private:
    std::uint32_t distance(std::int32_t id) const {
        return static_cast<std::uint32_t>(id) - static_cast<std::uint32_t>(first_id_);
    }

    const RECORD* table_;
    std::int32_t first_id_ = 0;
    unsigned int shift_ = 0;
    std::vector<std::uint32_t> starts_;
};

} // namespace velarion

#endif
