#ifndef CATALOGUE_SOURCE_H
#define CATALOGUE_SOURCE_H

#include "image_catalogue.h"
#include "message_catalogue.h"

#include <string>
#include <vector>

namespace velarion {

/** All of a catalogue that the build reads. */
struct catalogue_source {
    message_catalogue messages;
    std::vector<catalogue_image> images;
    std::vector<text_file> packs; ///< by the names of their folders
};

/** The folders of a catalogue's packs, in the order of their names. */
std::vector<std::string> pack_folders(const std::string& catalogue);

/** Reads a catalogue as the build does, and reports what keeps it from building, keyboards apart. */
catalogue_source read_catalogue(const std::string& folder, diagnostics& report);

/**
 * The name under which the reports know a language: "de" for "de" and "49", "86" for "86"; empty when the
 * catalogue has none of that name.
 */
std::string language_of(const std::string& catalogue, const std::string& given);

} // namespace velarion

#endif
