#include "dvc_pnl_rmg_image_inspection.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QXmlStreamReader>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace velarion {

namespace {

const int BYTES_PER_PIXEL = 4;
const qint64 SVG_BYTES_LIMIT = qint64{16} * 1024 * 1024;
const int SVG_DEPTH_LIMIT = 256;
const int SVG_ELEMENT_LIMIT = 100000;
const char DATA_PREFIX[] = "data";
const char BASE64_MARK[] = "base64,";
const char COMPRESSION_MARK[] = "\x1F\x8B";

/** Bytes of the pixmap that a reader would deliver; 0 when it is not to be read. */
std::int64_t pixmap_bytes(QImageReader& reader) {
    const QSize size = reader.size();
    if (!dvc_pnl_rmg_is_allowed_size(size.width(), size.height())) {
        return 0;
    }
    return static_cast<std::int64_t>(size.width()) * size.height() * BYTES_PER_PIXEL;
}

bool is_vector_format(QImageReader& reader) {
    return reader.format().startsWith("svg");
}

bool is_special_file(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

/** The drawing effort of one SVG document, told from its elements and their references. */
class svg_survey {
public:
    /** @param folder  where its relative references begin; empty when it has none of its own */
    explicit svg_survey(QString folder)
        : folder_(std::move(folder)) {}

    /** @return whether the document keeps to the limits; what follows a syntax error is not looked at */
    bool examine(const QByteArray& document);

private:
    struct ELEMENT {
        QString reference;      ///< id of another element; empty without one
        std::vector<int> parts; ///< child elements
        int height = 0;         ///< of the tree of parts and references; 0: not measured yet
        int count = 0;          ///< of elements drawn in that tree
    };

    bool add_element(const QXmlStreamReader& reader);
    bool add_bitmap(const QString& reference);
    bool add_embedded_bitmap(const QString& reference);
    bool add_bitmap_file(const QString& path);
    bool add_bitmap_of(QImageReader& reader);
    bool measure(int index, int depth);

    const QString folder_;
    std::vector<ELEMENT> elements_;
    std::vector<int> open_elements_;
    std::multimap<QString, int> named_elements_;
    std::int64_t bitmap_bytes_ = 0;
};

/** The element or file that an element draws or builds on, as it is written. */
QString reference_of(const QXmlStreamReader& reader) {
    return reader.attributes().value(QLatin1String("xlink:href")).toString();
}

/** The element that an element draws or builds on, as the toolkit reads the reference; empty without one. */
QString target_of(const QXmlStreamReader& reader) {
    const QString kind = reader.name().toString();
    const QString reference = reference_of(reader);
    if (kind == QLatin1String("use")) {
        return reference.mid(1);
    }
    if (kind.endsWith(QLatin1String("Gradient"))) {
        return reference.startsWith(QLatin1Char('#')) ? reference.mid(1) : reference;
    }
    return QString();
}

/** Entities are fine as names for long texts, not for multiplying them. */
bool has_plain_entities(const QXmlStreamReader& reader, const QByteArray& document) {
    std::int64_t longest = 0;
    for (const QXmlStreamEntityDeclaration& entity : reader.entityDeclarations()) {
        const QString value = entity.value().toString();
        if (value.contains(QLatin1Char('&'))) {
            return false;
        }
        longest = std::max<std::int64_t>(longest, value.size());
    }
    return longest * document.count('&') <= SVG_BYTES_LIMIT;
}

bool svg_survey::examine(const QByteArray& document) {
    QXmlStreamReader reader(document);
    reader.setNamespaceProcessing(false); // as the toolkit's own SVG reader
    bool is_fine = true;
    while (is_fine && !reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            is_fine = has_plain_entities(reader, document);
            break;
        case QXmlStreamReader::StartElement:
            is_fine = add_element(reader);
            break;
        case QXmlStreamReader::EndElement:
            open_elements_.pop_back();
            break;
        default:
            break;
        }
    }
    return is_fine && (elements_.empty() || measure(0, 1));
}

bool svg_survey::add_element(const QXmlStreamReader& reader) {
    if (elements_.size() >= SVG_ELEMENT_LIMIT || open_elements_.size() >= SVG_DEPTH_LIMIT) {
        return false;
    }
    const int index = static_cast<int>(elements_.size());
    elements_.push_back(ELEMENT());
    elements_.back().reference = target_of(reader);
    if (!open_elements_.empty()) {
        elements_[static_cast<std::size_t>(open_elements_.back())].parts.push_back(index);
    }
    open_elements_.push_back(index);
    for (const char* attribute : {"id", "xml:id"}) {
        const QString name = reader.attributes().value(QLatin1String(attribute)).toString();
        if (!name.isEmpty()) {
            named_elements_.insert(std::make_pair(name, index));
        }
    }
    return reader.name() != QLatin1String("image") || add_bitmap(reference_of(reader).trimmed());
}

bool svg_survey::add_bitmap(const QString& reference) {
    if (reference.startsWith(QLatin1String(DATA_PREFIX))) {
        return add_embedded_bitmap(reference);
    }
    const bool is_elsewhere = !folder_.isEmpty() && QFileInfo(reference).isRelative();
    return add_bitmap_file(reference) &&
           (!is_elsewhere || add_bitmap_file(folder_ + QLatin1Char('/') + reference));
}

bool svg_survey::add_embedded_bitmap(const QString& reference) {
    const int mark = reference.lastIndexOf(QLatin1String(BASE64_MARK));
    if (mark < 0) {
        return true; // the toolkit draws nothing
    }
    QByteArray bytes =
        QByteArray::fromBase64(reference.mid(mark + static_cast<int>(sizeof(BASE64_MARK)) - 1).toLatin1());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return add_bitmap_of(reader);
}

bool svg_survey::add_bitmap_file(const QString& path) {
    QImageReader reader(path);
    return !is_special_file(path) && add_bitmap_of(reader);
}

bool svg_survey::add_bitmap_of(QImageReader& reader) {
    if (!reader.canRead()) {
        return true;
    }
    const std::int64_t size = is_vector_format(reader) ? 0 : pixmap_bytes(reader);
    bitmap_bytes_ += size;
    return size > 0 && bitmap_bytes_ <= DVC_PNL_RMG_PIXMAP_BYTES_LIMIT;
}

/** Fails for a circle too: it has no end. */
bool svg_survey::measure(int index, int depth) {
    ELEMENT& element = elements_[static_cast<std::size_t>(index)];
    if (element.height > 0) {
        return depth + element.height <= SVG_DEPTH_LIMIT + 1;
    }
    int height = 0;
    int count = 1;
    const auto add = [&](int part) {
        const ELEMENT& measured = elements_[static_cast<std::size_t>(part)];
        if (depth >= SVG_DEPTH_LIMIT || !measure(part, depth + 1)) {
            return false;
        }
        height = std::max(height, measured.height);
        count += measured.count;
        return count <= SVG_ELEMENT_LIMIT;
    };
    const auto targets = named_elements_.equal_range(element.reference); // no element has an empty name
    const bool is_measured =
        std::all_of(element.parts.begin(), element.parts.end(), add) &&
        std::all_of(targets.first, targets.second, [&](const auto& target) { return add(target.second); });
    element.height = is_measured ? height + 1 : 0;
    element.count = count;
    return is_measured;
}

bool is_drawable(const QByteArray& document, const QString& folder) {
    return !document.startsWith(COMPRESSION_MARK) && svg_survey(folder).examine(document);
}

/** Looks at a vector picture before the toolkit's reader parses it. */
bool is_drawable(QIODevice& device, const QString& folder) {
    return device.size() <= SVG_BYTES_LIMIT && is_drawable(device.readAll(), folder) && device.seek(0);
}

bool is_loadable(QImageReader& reader, const QString& folder) {
    return (!is_vector_format(reader) || is_drawable(*reader.device(), folder)) && pixmap_bytes(reader) > 0;
}

} // namespace

bool dvc_pnl_rmg_is_allowed_size(int width, int height) {
    return width > 0 && height > 0 &&
           static_cast<std::int64_t>(width) * height <= DVC_PNL_RMG_PIXMAP_BYTES_LIMIT / BYTES_PER_PIXEL;
}

bool dvc_pnl_rmg_is_loadable_image_file(const QString& path) {
    if (is_special_file(path)) {
        return false;
    }
    QImageReader reader(path);
    return is_loadable(reader, QFileInfo(path).absolutePath());
}

bool dvc_pnl_rmg_is_loadable_image(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return is_loadable(reader, QString());
}

bool dvc_pnl_rmg_is_drawable_svg_file(const QString& path) {
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
           is_drawable(file, QFileInfo(path).absolutePath());
}

bool dvc_pnl_rmg_is_drawable_svg(const QByteArray& document) {
    return is_drawable(document, QString());
}

} // namespace velarion
