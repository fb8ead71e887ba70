#ifndef SVG_BUDGET_H
#define SVG_BUDGET_H

#include <QStringList>

#include <cstdint>

namespace velarion {

/** What an SVG document and the documents within it use up together. */
struct svg_budget {
    int drawn = 0;
    int depth = 0; ///< of what is around the document that is looked at
    std::int64_t bitmap_bits = 0;
    std::int64_t bytes = 0;
    QStringList open_files; ///< canonical paths of the documents around
};

} // namespace velarion

#endif
