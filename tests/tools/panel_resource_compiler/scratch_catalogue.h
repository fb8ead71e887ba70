#ifndef SCRATCH_CATALOGUE_H
#define SCRATCH_CATALOGUE_H

#include "process.h"
#include "scratch_folder.h"

#include <string>
#include <vector>

/**
 * A small good catalogue in the folder "catalogue" of a scratch folder: the messages 1 on row 2 and 2 on
 * row 1, where row 2 holds the name of its language, one image, and the pack 86.
 */
class scratch_catalogue {
public:
    scratch_catalogue();

    /** Writes a file of the catalogue, named from its folder. */
    void write(const std::string& name, const std::string& contents) const {
        folder_.write("catalogue/" + name, contents);
    }
    void write_pack(const std::string& id, const std::string& properties = "font_family = Pack Sans\n",
                    const std::string& texts = "row\ttext\n2\tPack\n") const;
    std::string path(const std::string& name) const { return folder_.path("catalogue/" + name); }
    const scratch_folder& folder() const { return folder_; }

    /**
     * Runs the compiler on it; commands that write tables do so into the folder "out", or where @p arguments
     * say otherwise at the end. Its reports name the files from the catalogue's folder, and do without the
     * note that ends them early.
     */
    process_result run(const std::string& command, const std::vector<std::string>& arguments = {}) const;

private:
    scratch_folder folder_;
};

#endif
