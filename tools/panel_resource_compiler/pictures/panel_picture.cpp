#include "panel_picture.h"

#include "gzip_inflater.h"
#include "picture_file.h"
#include "picture_header.h"
#include "picture_size.h"
#include "svg_limits.h"
#include "svg_quick_scan.h"
#include "svg_survey.h"

#include <QFileInfo>
#include <QImageReader>

namespace velarion {

bool read_panel_document(const QString& path, QByteArray& document, QString& fault) {
    QByteArray bytes;
    if (QFileInfo(path).size() > SVG_BYTES_LIMIT) {
        fault = QStringLiteral("is larger than 16 MiB, which the panel does not read");
        return false;
    }
    if (!read_file(path, SVG_BYTES_LIMIT, bytes)) {
        fault = QStringLiteral("cannot be read");
        return false;
    }
    if (!is_gzip(bytes)) {
        document = bytes;
        return true;
    }
    const gzip_result result = inflate_gzip(bytes, SVG_BYTES_LIMIT, document);
    if (result == GZIP_TOO_LARGE) {
        fault = QStringLiteral("holds more than 16 MiB, compressed, which the panel does not read");
    } else if (result != GZIP_INFLATED) {
        fault = QStringLiteral("is compressed and broken");
    }
    return result == GZIP_INFLATED;
}

bool is_drawn_by_panel(const QByteArray& document, const QString& path, const QSize& size) {
    return is_surely_harmless(document) || is_drawable_svg(document, path, size);
}

panel_bitmap::panel_bitmap(const QString& path) {
    {
        QImageReader header(path);
        header.setDecideFormatFromContent(true);
        format = QString::fromLatin1(header.format());
        size = bitmap_size(header);
    }
    if (!size.isEmpty() && !is_allowed_size(size)) {
        fault = QStringLiteral("is larger than the panel draws");
        return;
    }
    QImageReader reader(path);
    image = reader.read();
    if (image.isNull()) {
        fault = QStringLiteral("cannot be read: ") + reader.errorString();
    }
}

} // namespace velarion
