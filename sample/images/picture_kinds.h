#ifndef PICTURE_KINDS_H
#define PICTURE_KINDS_H

#include "picture_drawings.h"

namespace velarion {

/** How the pictures of a kind are made. */
struct picture_kind {
    void (*draw)(svg_canvas&, const picture_name&, const glyph_book&, double phase);
    double width; ///< of the drawing
    double height;
    double pixel_scale; ///< of bitmaps
    int frames;         ///< of movies
    int frame_delay;    ///< in hundredths of a second
};

/** The kind of a picture, by how its name begins; an icon when nothing tells otherwise. */
picture_kind kind_of(const picture_name& name);

/** Draws one moment of a picture as an SVG document. */
std::string draw_document(const picture_name& name, const glyph_book& book, double phase);

} // namespace velarion

#endif
