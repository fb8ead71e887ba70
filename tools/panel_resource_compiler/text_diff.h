#ifndef TEXT_DIFF_H
#define TEXT_DIFF_H

#include <iosfwd>
#include <string>
#include <vector>

namespace velarion {

/** The lines of a text with their ends; the last one may lack it. */
std::vector<std::string> lines_with_ends(const std::string& text);

/**
 * Writes the differences of two texts as a unified diff, which patch(1) takes. It costs little for large
 * tables; lines that stand once in both texts and kept their order are never told to differ.
 *
 * @param path  names both texts
 */
void write_unified_diff(const std::string& path, const std::string& before, const std::string& after,
                        std::ostream& output);

} // namespace velarion

#endif
