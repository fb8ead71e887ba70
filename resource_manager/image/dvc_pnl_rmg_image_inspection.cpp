#include "dvc_pnl_rmg_image_inspection.h"

#include "gzip_inflater.h"
#include "picture_file.h"
#include "picture_header.h"
#include "picture_size.h"
#include "svg_limits.h"
#include "svg_quick_scan.h"
#include "svg_references.h"
#include "svg_survey.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>

namespace velarion {

namespace {

constexpr char VECTOR_FORMAT[] = "svg";
constexpr const char* COMPRESSED_EXTENSIONS[] = {".svgz", ".svg.gz"};

bool is_compressed_name(const QString& path) {
    for (const char* extension : COMPRESSED_EXTENSIONS) {
        if (path.endsWith(QLatin1String(extension), Qt::CaseInsensitive)) {
            return true;
        }
    }
    return false;
}

/** The toolkit takes inflated bytes for an SVG document only when they begin like one. */
bool begins_like_svg(const QByteArray& bytes) {
    const int beginning = 16;
    for (const char* mark : {"<?xml", "<svg", "<!--", "<!DOCTYPE svg"}) {
        if (bytes.left(beginning).contains(mark)) {
            return true;
        }
    }
    return false;
}

/** @param path  empty for bytes that are of no file */
bool read_svg(const QByteArray& bytes, const QString& path, const QSize& size, QByteArray& document) {
    document = bytes;
    if (is_gzip(bytes) &&
        (inflate_gzip(bytes, SVG_BYTES_LIMIT, document) != GZIP_INFLATED || !begins_like_svg(document))) {
        return false;
    }
    if (is_surely_harmless(document)) {
        return true;
    }
    const bool is_drawable = document.size() <= SVG_BYTES_LIMIT && is_drawable_svg(document, path, size);
    if (is_drawable && !path.isEmpty()) {
        document = with_absolute_references(document, path);
    }
    return is_drawable;
}

bool is_vector_format(QImageReader& reader) {
    return reader.format().startsWith(VECTOR_FORMAT);
}

bool load_svg(const QByteArray& bytes, const QString& path, QPixmap& pixmap) {
    QByteArray document;
    if (!read_svg(bytes, path, QSize(), document)) {
        return false;
    }
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, VECTOR_FORMAT);
    if (!is_allowed_size(reader.size())) {
        return false;
    }
    const QPixmap drawn = QPixmap::fromImage(reader.read());
    pixmap = drawn.isNull() ? pixmap : drawn;
    return !drawn.isNull();
}

bool load_bitmap(const QString& path, QPixmap& pixmap) {
    QPixmap loaded;
    if (!loaded.load(path) || loaded.isNull()) {
        return false;
    }
    pixmap = loaded;
    return true;
}

} // namespace

bool dvc_pnl_rmg_read_svg_file(const QString& path, const QSize& size, QByteArray& document) {
    QByteArray bytes;
    return read_file(path, SVG_BYTES_LIMIT, bytes) && (is_gzip(bytes) || !is_compressed_name(path)) &&
           read_svg(bytes, path, size, document);
}

bool dvc_pnl_rmg_read_svg(const QByteArray& bytes, const QSize& size, QByteArray& document) {
    return read_svg(bytes, QString(), size, document);
}

bool dvc_pnl_rmg_load_image_file(const QString& path, QPixmap& pixmap) {
    const QFileInfo info(path);
    if (!info.isFile() && (info.exists() || !info.completeSuffix().isEmpty())) {
        return false;
    }
    const QString file = info.isFile() ? path : find_picture_file(path).path;
    if (file.isEmpty()) {
        return false;
    }
    const QSize size = size_by_name(file);
    if (!size.isEmpty()) {
        return is_allowed_size(size) && load_bitmap(file, pixmap);
    }
    QImageReader reader(file);
    if (is_vector_format(reader)) {
        QByteArray bytes;
        return read_file(file, SVG_BYTES_LIMIT, bytes) && load_svg(bytes, file, pixmap);
    }
    return is_allowed_size(bitmap_size(reader)) && load_bitmap(file, pixmap);
}

bool dvc_pnl_rmg_load_image(const QByteArray& bytes, QPixmap& pixmap) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (is_vector_format(reader)) {
        return load_svg(bytes, QString(), pixmap);
    }
    QPixmap loaded;
    if (!is_allowed_size(bitmap_size(reader)) || !loaded.loadFromData(bytes) || loaded.isNull()) {
        return false;
    }
    pixmap = loaded;
    return true;
}

} // namespace velarion
