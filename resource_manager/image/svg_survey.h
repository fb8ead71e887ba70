#ifndef SVG_SURVEY_H
#define SVG_SURVEY_H

#include "svg_budget.h"

#include <QByteArray>
#include <QSize>
#include <QString>

namespace velarion {

/**
 * Tells an SVG document that would exhaust the stack, the memory or the patience of whoever draws it, by
 * its elements, their references and their strokes. Nothing is drawn; files that it refers to are looked at.
 *
 * @param document  not compressed
 * @param path      of its file, from whose folder relative references count; empty without one
 * @param size      that it will be drawn at, in device pixels; an empty one is its natural size
 * @return false also for what is no SVG document
 */
[[nodiscard]] bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size);
/** The same for a document within others, the quick scan before it. @param budget  what it takes is added */
[[nodiscard]] bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size,
                                   svg_budget& budget);

} // namespace velarion

#endif
