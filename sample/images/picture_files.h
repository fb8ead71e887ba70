#ifndef PICTURE_FILES_H
#define PICTURE_FILES_H

#include "output_folder.h"
#include "picture_kinds.h"

#include <set>
#include <string>
#include <vector>

namespace velarion {

/** Makes the files of the panel's image directory. */
class picture_files {
public:
    /**
     * @param drawn_folder   pictures drawn by hand: they are copied, and stand before generated ones
     * @param own_folder     an integrator's: its pictures stand before the drawn ones; empty without one
     * @param output_folder  must exist; nothing outside of it is written
     */
    picture_files(const glyph_book& book, const std::string& drawn_folder, const std::string& own_folder,
                  const std::string& output_folder);

    /**
     * Tells all files that belong to the pictures of an image list: with their states, the drawn pictures and
     * the placeholders.
     *
     * @param names  receives them; incomplete when it fails
     */
    bool find_names(const std::set<std::string>& files, std::set<std::string>& names,
                    std::string& fault) const;

    /** Makes one file by its name's extension; what another call made of that name is replaced. */
    bool make(const std::string& file, std::string& fault) const;

    /** Copies all drawn pictures and an integrator's own, also those that no image of the table names. */
    bool copy_drawn(std::string& fault) const;

    /**
     * Makes the states "_on" and "_off" of a navigation icon or a soft key, where they are not drawn; other
     * pictures have none.
     */
    bool make_states(const std::string& file, std::string& fault) const;

    /** Whether a file is made from its name, though none of its words has a pictogram. */
    bool is_generic(const std::string& file) const;

    /** The placeholders for pictures that are missing: ERROR_IMAGE.png and ERROR_MOVIE.gif. */
    bool make_placeholders(std::string& fault) const;

private:
    bool find_drawn(std::set<std::string>& names, std::string& fault) const;
    bool is_drawn(const std::string& file) const;
    std::string path_of_drawn(const std::string& file) const;
    std::string document_of(const picture_name& name) const;
    bool make_bitmap(const picture_name& name, std::string& fault) const;
    bool make_movie(const picture_name& name, std::string& fault) const;

    const glyph_book& book_;
    std::string drawn_folder_;
    std::string own_folder_;
    output_folder output_;
};

} // namespace velarion

#endif
