#ifndef SVG_REFERENCES_H
#define SVG_REFERENCES_H

#include <QByteArray>
#include <QString>

namespace velarion {

/**
 * Makes the references of an SVG document's bitmaps absolute, so that its bytes are drawn like its file.
 *
 * @param path  of the file
 * @return the document as it is when it has none that are relative, or when it has an error
 */
QByteArray with_absolute_references(const QByteArray& document, const QString& path);

} // namespace velarion

#endif
