#ifndef SVG_FAULTS_H
#define SVG_FAULTS_H

#include <QByteArray>

#include <cstddef>
#include <string>
#include <vector>

namespace velarion {

/** A place of an SVG document that the panel's toolkit does not draw as it is meant. */
struct svg_fault {
    std::size_t line; ///< from 1; 0 stands for the whole document
    std::size_t column;
    const char* check; ///< as checks.h names it
    std::string text;
    bool is_fatal = false; ///< whether nothing is drawn at all
};

/**
 * Finds what the toolkit leaves out or draws otherwise, on a workstation or on the device. The same fault of
 * several elements is told once, at the first of them, with their number.
 *
 * @param document  not compressed
 * @return in the order of the document
 */
std::vector<svg_fault> find_svg_faults(const QByteArray& document);

} // namespace velarion

#endif
