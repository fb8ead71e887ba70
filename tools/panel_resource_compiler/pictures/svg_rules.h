#ifndef SVG_RULES_H
#define SVG_RULES_H

#include <QString>

namespace velarion {

// What a toolkit of SVG Tiny 1.2 makes of what larger drawing programs write. Each rule returns what happens,
// for artists, or an empty text.

/** An element of the SVG namespace that is not drawn, or not as it is meant. */
QString fault_of_element(const QString& name);

/** Whether the toolkit draws an element of the name. */
bool is_drawn_element(const QString& name);

/**
 * A property, as an attribute or in a "style" attribute.
 *
 * @param element  that has it
 */
QString fault_of_property(const QString& element, const QString& name, const QString& value);

/** A property that is heeded as an attribute but not in a "style" attribute. */
QString fault_of_style_property(const QString& name);

/** Whether a property's value is a colour or a reference to a gradient. */
bool is_paint(const QString& property);
/** A colour, "none", or a reference such as "url(#a)", whose target is not looked for. */
QString fault_of_paint(const QString& value);
/** @return the id in "url(#id)"; empty for anything else */
QString paint_reference(const QString& value);

/** Whether an attribute's value is a length, or a list of them. */
bool is_length(const QString& attribute);
QString fault_of_length(const QString& attribute, const QString& value);

} // namespace velarion

#endif
