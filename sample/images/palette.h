#ifndef PALETTE_H
#define PALETTE_H

#include <string>

namespace velarion {

/** The colours of a picture by what they are for; drawn/PALETTE.md tells how they are used. */
struct palette {
    std::string background = "#1f2a36";
    std::string surface = "#2b3948";
    std::string raised = "#3a4b5d";
    std::string line = "#465a6e";
    std::string foreground = "#f2f5f7";
    std::string accent = "#3fa7e0";
    std::string ink = "#10202d";
    std::string dim = "#72839a";
    std::string warn = "#f2b134";
    std::string error = "#e5484d";
    std::string ok = "#4bb978";
};

/** For the darker twins of pictures. */
inline palette darker_palette() {
    palette colors;
    colors.background = "#151d26";
    colors.surface = "#1d2833";
    colors.raised = "#293643";
    colors.line = "#354554";
    colors.foreground = "#c3ccd4";
    colors.accent = "#2f86b6";
    colors.dim = "#586779";
    colors.warn = "#c08e2a";
    colors.error = "#b93d41";
    colors.ok = "#3b9360";
    return colors;
}

/** All strokes in one colour: of what is off, or stands on an accent plate. */
inline palette one_color_palette(const palette& base, const std::string& color) {
    palette colors = base;
    colors.foreground = colors.accent = colors.warn = colors.error = colors.ok = color;
    return colors;
}

} // namespace velarion

#endif
