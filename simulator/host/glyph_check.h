#ifndef GLYPH_CHECK_H
#define GLYPH_CHECK_H

#include <QFont>
#include <QString>

namespace velarion {

/** The characters of a text, each once, that no font of the panel shows. */
QString missing_glyphs(const QString& text, const QFont& font);

} // namespace velarion

#endif
