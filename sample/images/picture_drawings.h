#ifndef PICTURE_DRAWINGS_H
#define PICTURE_DRAWINGS_H

#include "picture_name.h"

namespace velarion {

/** The drawings of the kinds of picture. Each fills the canvas; phase, 0 to 1, is the place in a movie's run.
 */

/** A pictogram with what qualifies it: state, mark, number, level, position, motion. */
void draw_icon(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** What a scale of steps sets, above the scale; signal strength of a wireless network. */
void draw_steps(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A toner bottle: colour and level. */
void draw_toner(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A sheet with its size written on it, or a tray. */
void draw_paper(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A sheet with staples, holes or a binding where they go. */
void draw_finishing(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A large pictogram on a card. */
void draw_illustration(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** Backgrounds, buttons and the like: stretched by the panel. */
void draw_component(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** Key caps, key popups and keyboard layouts. */
void draw_key(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** Pages as a setting lays them out. */
void draw_preview(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A figure of the help: a screen, what to touch, the figure's number. */
void draw_help(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);
/** A step of the guidance after an error: where on the device, what to do, code and step number. */
void draw_guidance(svg_canvas& canvas, const picture_name& name, const glyph_book& book, double phase);

/** How many steps a code of the error guidance has. */
int guidance_step_count(const std::string& code);

/** A disc with the sign of a mark. */
void draw_mark(svg_canvas& canvas, picture_mark mark, double x, double y, double radius,
               const palette& colors);

} // namespace velarion

#endif
