#ifndef CATALOGUE_FIGURES_H
#define CATALOGUE_FIGURES_H

#include "image_catalogue.h"
#include "message_catalogue.h"

#include <map>
#include <string>
#include <vector>

namespace velarion {

/**
 * Compares a catalogue with its golden file figures.tsv (columns name and figure), which says how many
 * messages, rows, images and files of each kind there are, and what some of them are. A catalogue without the
 * file has none to keep.
 *
 * @param report  receives each figure that differs, and each name that stands for no figure
 */
void check_catalogue_figures(const std::string& folder, const message_catalogue& messages,
                             const std::vector<catalogue_image>& images, diagnostics& report);

/** @return those of the figures with these names that a catalogue has, by name */
std::map<std::string, std::string> figures_of_catalogue(const std::vector<std::string>& names,
                                                        const message_catalogue& messages,
                                                        const std::vector<catalogue_image>& images);

} // namespace velarion

#endif
