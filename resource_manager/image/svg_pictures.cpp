#include "svg_pictures.h"

#include "gzip_inflater.h"
#include "picture_file.h"
#include "picture_header.h"
#include "picture_size.h"
#include "svg_limits.h"
#include "svg_survey.h"

#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QUrl>

namespace velarion {

namespace {

constexpr int LEVELS_OF_DOCUMENT = 100; // a document within another takes more of the stack

/** Takes a document out of its reader. @return false when it exceeds the budget */
bool take_document(QImageReader& reader, svg_budget& budget, QByteArray& document) {
    const QByteArray bytes = reader.device()->read(SVG_BYTES_LIMIT + 1);
    reader.device()->seek(0);
    budget.bytes += bytes.size();
    if (bytes.size() > SVG_BYTES_LIMIT) {
        return false;
    }
    document = bytes;
    if (is_gzip(bytes)) {
        const gzip_result result = inflate_gzip(bytes, SVG_BYTES_LIMIT, document);
        if (result != GZIP_INFLATED) {
            document.clear();
            return result == GZIP_BROKEN; // the toolkit draws nothing
        }
        budget.bytes += document.size();
    }
    return budget.bytes <= SVG_BYTES_LIMIT;
}

/** @param path  of its file; empty without one */
bool is_drawable_document(QImageReader& reader, const QString& path, svg_budget& budget) {
    const QString file = path.isEmpty() ? QString() : QFileInfo(path).canonicalFilePath();
    QByteArray document;
    if (budget.open_files.contains(file) || !take_document(reader, budget, document)) {
        return false;
    }
    svg_budget inner = budget;
    inner.depth += LEVELS_OF_DOCUMENT;
    if (!file.isEmpty()) {
        inner.open_files.append(file);
    }
    const bool is_drawable = is_drawable_svg(document, path, QSize(), inner);
    inner.depth = budget.depth;
    inner.open_files = budget.open_files;
    budget = inner;
    return is_drawable;
}

/** @param path  of its file; empty without one */
bool is_drawable_picture_of(QImageReader& reader, const QString& path, svg_budget& budget) {
    if (!reader.canRead()) {
        return true;
    }
    const bool is_drawable = reader.format().startsWith("svg") ? is_drawable_document(reader, path, budget)
                                                               : reader.supportsOption(QImageIOHandler::Size);
    if (!is_drawable) {
        return false;
    }
    budget.bitmap_bits += pixmap_bits(bitmap_size(reader));
    return budget.bitmap_bits < PIXMAP_BITS_END;
}

bool are_drawable_bytes(const QByteArray& bytes, svg_budget& budget) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return is_drawable_picture_of(reader, QString(), budget);
}

bool is_drawable_file(const QString& reference, const QString& path, svg_budget& budget) {
    const bool is_beside = !path.isEmpty() && QUrl(reference).isRelative();
    const QString given = is_beside ? QFileInfo(path).absoluteDir().absoluteFilePath(reference) : reference;
    const picture_file file = find_picture_file(given);
    if (file.path.isEmpty()) {
        return !file.is_special;
    }
    QImageReader reader(file.path);
    return is_drawable_picture_of(reader, file.path, budget);
}

} // namespace

bool is_drawable_picture(const QString& reference, const QString& path, svg_budget& budget) {
    const QString trimmed = reference.trimmed();
    if (trimmed.isEmpty()) {
        return true;
    }
    if (!trimmed.startsWith(QLatin1String("data"))) {
        return is_drawable_file(trimmed, path, budget);
    }
    const QString mark = QString::fromLatin1("base64,");
    const int begin = trimmed.lastIndexOf(mark);
    return begin < 0 ||
           are_drawable_bytes(QByteArray::fromBase64(trimmed.mid(begin + mark.size()).toLatin1()), budget);
}

} // namespace velarion
