#include "svg_survey.h"

#include "svg_drawing.h"
#include "svg_limits.h"
#include "svg_markup.h"
#include "svg_numbers.h"
#include "svg_pictures.h"
#include "svg_quick_scan.h"
#include "svg_tree.h"

#include <QFileInfo>
#include <QVector>
#include <QXmlStreamReader>

#include <algorithm>

namespace velarion {

namespace {

constexpr int LEVELS_LIMIT = SVG_DEPTH_LIMIT + 2; // with the document's own and the innermost element

QString value_of(const QXmlStreamAttributes& attributes, const char* name) {
    return attributes.value(QLatin1String(name)).toString();
}

bool may_have_dashes(const QByteArray& document) {
    return document.toLower().contains("dash") || document.contains('&') || document.contains('\\') ||
           document.contains('\0');
}

/** How far the whole drawing is stretched to the size asked for. */
double stretch_of_root(const QXmlStreamAttributes& attributes, const QSize& size) {
    const QVector<double> box = svg_numbers(value_of(attributes, "viewBox"));
    const double width = svg_number(value_of(attributes, "width"));
    const double height = svg_number(value_of(attributes, "height"));
    const double own_width = box.size() == 4 ? box[2] : width;
    const double own_height = box.size() == 4 ? box[3] : height;
    const double wanted_width = size.isEmpty() ? std::max(width, own_width) : size.width();
    const double wanted_height = size.isEmpty() ? std::max(height, own_height) : size.height();
    if (!(own_width > 0) || !(own_height > 0)) {
        return std::max(1.0, std::max(wanted_width, wanted_height));
    }
    return std::max(wanted_width / own_width, wanted_height / own_height);
}

class svg_survey {
public:
    /** @param path  of the document's file; empty without one */
    svg_survey(const QByteArray& document, const QString& path, const QSize& size, svg_budget& budget)
        : markup_(document)
        , reader_(document)
        , may_have_dashes_(may_have_dashes(document))
        , tree_(may_have_dashes_)
        , path_(path)
        , size_(size)
        , budget_(budget) {
        reader_.setNamespaceProcessing(false); // as the toolkit's own SVG reader
    }

    [[nodiscard]] bool is_drawable();

private:
    bool read_next();
    bool read_element();
    bool has_drawable_elements();

    svg_markup markup_;
    QXmlStreamReader reader_;
    bool may_have_dashes_;
    svg_tree tree_;
    const QString& path_;
    const QSize& size_;
    svg_budget& budget_;
    double stretch_ = 1;
};

bool svg_survey::is_drawable() {
    bool is_fine = markup_.is_readable();
    while (is_fine && !reader_.atEnd()) {
        is_fine = read_next();
    }
    tree_.finish();
    return is_fine && (tree_.is_empty() || has_drawable_elements()); // without one, it is no SVG document
}

bool svg_survey::read_next() {
    switch (reader_.readNext()) {
    case QXmlStreamReader::DTD:
        return markup_.has_plain_entities(reader_.entityDeclarations());
    case QXmlStreamReader::ProcessingInstruction:
        return reader_.processingInstructionTarget() != QLatin1String("xml-stylesheet");
    case QXmlStreamReader::StartElement:
        return read_element();
    case QXmlStreamReader::EndElement:
        tree_.end(reader_.name().toString());
        return true;
    case QXmlStreamReader::Characters:
        tree_.add_text(reader_.text().toString());
        return true;
    default:
        return true;
    }
}

bool svg_survey::read_element() {
    const QString name = reader_.name().toString();
    const QXmlStreamAttributes attributes = reader_.attributes();
    if (budget_.depth + tree_.depth() >= LEVELS_LIMIT || attributes.size() > SVG_ATTRIBUTE_LIMIT) {
        return false;
    }
    if (tree_.is_empty()) {
        stretch_ = stretch_of_root(attributes, size_);
    }
    tree_.begin(name, attributes);
    if (name != QLatin1String("image")) {
        return true;
    }
    const int depth = tree_.depth();
    budget_.depth += depth;
    const bool is_drawable = is_drawable_picture(value_of(attributes, "xlink:href"), path_, budget_);
    budget_.depth -= depth;
    return is_drawable;
}

bool svg_survey::has_drawable_elements() {
    svg_drawing drawing(tree_);
    if (!drawing.has_end(budget_.depth)) {
        return false;
    }
    budget_.drawn += drawing.count();
    const bool needs_strokes = may_have_dashes_ || tree_.gradients().has_circles();
    return budget_.drawn <= SVG_DRAWN_LIMIT && (!needs_strokes || drawing.has_plain_strokes(stretch_));
}

} // namespace

bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size) {
    svg_budget budget;
    budget.bytes = document.size();
    if (!path.isEmpty()) {
        budget.open_files.append(QFileInfo(path).canonicalFilePath());
    }
    return svg_survey(document, path, size, budget).is_drawable();
}

bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size, svg_budget& budget) {
    return is_surely_harmless(document) || svg_survey(document, path, size, budget).is_drawable();
}

} // namespace velarion
