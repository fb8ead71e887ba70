#ifndef SCRATCH_CATALOGUE_H
#define SCRATCH_CATALOGUE_H

#include "diagnostics.h"
#include "scratch_folder.h"

#include <functional>
#include <string>

/**
 * A small good catalogue in the folder "catalogue" of a scratch folder: the messages 1 on row 2 and 2 on
 * row 1, where row 2 holds the name of its language, and one image.
 */
class scratch_catalogue {
public:
    scratch_catalogue();

    /** Writes a file of the catalogue, named from its folder. */
    void write(const std::string& name, const std::string& contents) const {
        folder_.write("catalogue/" + name, contents);
    }
    std::string path() const { return folder_.path("catalogue"); }
    const scratch_folder& folder() const { return folder_; }

    /** The lines that a piece of work reports; the catalogue's files are named from its folder. */
    std::string reports_of(const std::function<void(diagnostics& report)>& work) const;
    /** What reading the catalogue's messages and texts reports. */
    std::string reports_of_reading() const;
    /** A text that names files of the catalogue, with these named from its folder. */
    std::string without_path(std::string text) const;

private:
    scratch_folder folder_;
};

#endif
