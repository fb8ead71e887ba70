#include "svg_survey.h"

#include "svg_gradients.h"
#include "svg_limits.h"
#include "svg_markup.h"
#include "svg_numbers.h"
#include "svg_path.h"
#include "svg_pictures.h"
#include "svg_quick_scan.h"
#include "svg_shape.h"
#include "svg_style.h"

#include <QFileInfo>
#include <QHash>
#include <QPair>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <vector>

namespace velarion {

namespace {

constexpr int NONE = -1;
constexpr int LEVELS_LIMIT = SVG_DEPTH_LIMIT + 2; // with the document's own and the innermost element

enum KIND { OTHER, STRUCTURE, DEFINITIONS, SHAPE, TEXT, USE };

KIND kind_of(const QString& element) {
    static const QHash<QString, KIND> kinds = [] {
        const struct {
            const char* names;
            KIND kind;
        } rows[] = {{"svg g switch", STRUCTURE},
                    {"defs", DEFINITIONS},
                    {"path rect circle ellipse line polyline polygon image video", SHAPE},
                    {"text textArea tspan", TEXT},
                    {"use", USE}};
        QHash<QString, KIND> table;
        for (const auto& row : rows) {
            for (const QString& name : QString::fromLatin1(row.names).split(QLatin1Char(' '))) {
                table.insert(name, row.kind);
            }
        }
        return table;
    }();
    return kinds.value(element, OTHER);
}

QString value_of(const QXmlStreamAttributes& attributes, const char* name) {
    return attributes.value(QLatin1String(name)).toString();
}

QString id_of(const QXmlStreamAttributes& attributes) {
    const QString id = value_of(attributes, "id");
    return id.isEmpty() ? value_of(attributes, "xml:id") : id;
}

class svg_survey {
public:
    svg_survey(QString path, svg_budget& budget)
        : path_(std::move(path))
        , budget_(budget) {}

    bool examine(const QByteArray& document, const QSize& size);

private:
    /** What the toolkit draws, as a tree in which uses point elsewhere. */
    struct ELEMENT {
        KIND kind;
        int scope; ///< the element whose ids it sees
        int next = NONE;
        int first_part = NONE;
        int last_part = NONE;
        int target = NONE; ///< of a use
        int style = NONE;
        float length = 0;
        int height = 0; ///< of the tree of parts and targets; 0: not measured yet
        int count = 0;  ///< of elements drawn in that tree
    };
    struct STROKE {
        bool is_stroked = false;
        bool is_scaling = true;
        double dash_length = 0;
        double stretch = 1;
    };
    using SCOPED_ID = QPair<int, QString>;

    bool start_element(const QXmlStreamReader& reader);
    void add_element(KIND kind, const QString& name, const QXmlStreamAttributes& attributes);
    void add_glyph(const QString& name, const QXmlStreamAttributes& attributes);
    void resolve_targets();
    void apply_style_sheet();
    bool measure(int index, int depth);
    bool is_stroke_plain(int index, STROKE stroke);
    double stretch_of_root(const QXmlStreamAttributes& attributes) const;

    QString path_;
    svg_budget& budget_;
    QSize size_;
    bool has_dashes_ = false;
    double root_stretch_ = 1;
    std::vector<ELEMENT> elements_;
    std::vector<int> open_; ///< by open XML element: what it became, or NONE
    std::vector<svg_style> styles_;
    std::vector<QPair<QString, QPair<QString, QStringList>>> names_; ///< by style: element, id, classes
    QHash<SCOPED_ID, int> named_elements_;
    std::vector<QPair<int, QString>> open_uses_; ///< whose target may come later
    svg_gradients gradients_;
    svg_style_sheet style_sheet_;
    bool is_in_style_ = false;
    double longest_glyph_ = 0;
    double least_units_ = 1000;
};

bool svg_survey::examine(const QByteArray& document, const QSize& size) {
    size_ = size;
    svg_markup markup(document);
    has_dashes_ = document.toLower().contains("dash") || document.contains('&') || document.contains('\\') ||
                  document.contains('\0');
    if (!markup.is_readable()) {
        return false;
    }
    QXmlStreamReader reader(document);
    reader.setNamespaceProcessing(false); // as the toolkit's own SVG reader
    bool is_fine = true;
    while (is_fine && !reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            is_fine = markup.has_plain_entities(reader.entityDeclarations());
            break;
        case QXmlStreamReader::ProcessingInstruction:
            is_fine = reader.processingInstructionTarget() != QLatin1String("xml-stylesheet");
            break;
        case QXmlStreamReader::StartElement:
            is_fine = start_element(reader);
            break;
        case QXmlStreamReader::EndElement:
            open_.pop_back();
            is_in_style_ = is_in_style_ && reader.name() != QLatin1String("style");
            break;
        case QXmlStreamReader::Characters:
            if (is_in_style_) {
                style_sheet_.add(reader.text().toString());
            }
            break;
        default:
            break;
        }
    }
    if (!is_fine || elements_.empty()) {
        return is_fine; // without an element, it is no SVG document
    }
    resolve_targets();
    apply_style_sheet();
    if (!measure(0, budget_.depth)) {
        return false;
    }
    budget_.drawn += elements_[0].count;
    gradients_.find_circles();
    const bool needs_strokes = has_dashes_ || gradients_.has_circles();
    STROKE stroke;
    stroke.stretch = root_stretch_;
    return budget_.drawn <= SVG_DRAWN_LIMIT && (!needs_strokes || is_stroke_plain(0, stroke));
}

bool svg_survey::start_element(const QXmlStreamReader& reader) {
    const int depth = budget_.depth + static_cast<int>(open_.size());
    const QString name = reader.name().toString();
    const QXmlStreamAttributes attributes = reader.attributes();
    if (depth >= LEVELS_LIMIT || attributes.size() > SVG_ATTRIBUTE_LIMIT) {
        return false;
    }
    const KIND kind = kind_of(name);
    open_.push_back(NONE);
    if (kind != OTHER) {
        add_element(kind, name, attributes);
    } else if (name.endsWith(QLatin1String("Gradient"))) {
        gradients_.add(id_of(attributes), value_of(attributes, "xlink:href"));
    } else if (name == QLatin1String("style")) {
        const QString type = value_of(attributes, "type");
        is_in_style_ = is_in_style_ || type.isEmpty() || type.toLower() == QLatin1String("text/css");
    } else {
        add_glyph(name, attributes);
    }
    if (name != QLatin1String("image")) {
        return true;
    }
    budget_.depth += static_cast<int>(open_.size());
    const bool is_drawable = is_drawable_picture(value_of(attributes, "xlink:href"), path_, budget_);
    budget_.depth -= static_cast<int>(open_.size());
    return is_drawable;
}

void svg_survey::add_element(KIND kind, const QString& name, const QXmlStreamAttributes& attributes) {
    int parent = NONE;
    for (std::size_t level = open_.size(); level > 0 && parent == NONE; --level) {
        const int open = open_[level - 1];
        const KIND above = open == NONE ? OTHER : elements_[static_cast<std::size_t>(open)].kind;
        parent = above == STRUCTURE || above == DEFINITIONS ? open : NONE;
    }
    const int index = static_cast<int>(elements_.size());
    ELEMENT element = {};
    element.kind = kind;
    element.next = element.first_part = element.last_part = element.target = element.style = NONE;
    int scope = 0;
    if (parent != NONE) {
        ELEMENT& above = elements_[static_cast<std::size_t>(parent)];
        scope = above.scope;
        (above.first_part == NONE ? above.first_part
                                  : elements_[static_cast<std::size_t>(above.last_part)].next) = index;
        above.last_part = index;
    } else {
        root_stretch_ = stretch_of_root(attributes);
    }
    element.scope = name == QLatin1String("svg") ? index : scope;
    if (has_dashes_) {
        element.length = static_cast<float>(svg_outline_length(name, attributes));
    }
    const QString id = id_of(attributes);
    const QString class_name = value_of(attributes, "class");
    const svg_style style = style_of(attributes);
    if (has_dashes_ || !style.is_plain() || !class_name.isEmpty() || !id.isEmpty()) {
        element.style = static_cast<int>(styles_.size());
        styles_.push_back(style);
        names_.push_back(qMakePair(name, qMakePair(id, class_name.split(QLatin1Char(' ')))));
    }
    if (!id.isEmpty()) {
        named_elements_.insert(SCOPED_ID(scope, id), index);
    }
    if (kind == USE) {
        QString target = value_of(attributes, "xlink:href").mid(1);
        target = target.isEmpty() ? value_of(attributes, "href").mid(1) : target;
        element.target = named_elements_.value(SCOPED_ID(scope, target), NONE);
        if (element.target == NONE) {
            open_uses_.push_back(qMakePair(index, target));
        }
    }
    elements_.push_back(element);
    open_.back() = index;
}

void svg_survey::resolve_targets() {
    for (const auto& use : open_uses_) {
        ELEMENT& element = elements_[static_cast<std::size_t>(use.first)];
        element.target = named_elements_.value(SCOPED_ID(element.scope, use.second), NONE);
    }
}

void svg_survey::add_glyph(const QString& name, const QXmlStreamAttributes& attributes) {
    if (name == QLatin1String("font-face")) {
        const double units = svg_number(value_of(attributes, "units-per-em"));
        least_units_ = units > 0 ? std::min(least_units_, units) : least_units_;
    } else if (has_dashes_ && (name == QLatin1String("glyph") || name == QLatin1String("missing-glyph"))) {
        longest_glyph_ = std::max(longest_glyph_, svg_path_length(value_of(attributes, "d")));
    }
}

/** Fails for a circle too: it has no end. */
bool svg_survey::measure(int index, int depth) {
    ELEMENT& element = elements_[static_cast<std::size_t>(index)];
    if (element.height > 0) {
        return depth + element.height <= LEVELS_LIMIT;
    }
    int height = 0;
    int count = 1;
    const auto add = [&](int part) {
        if (depth + 1 >= LEVELS_LIMIT || !measure(part, depth + 1)) {
            return false;
        }
        height = std::max(height, elements_[static_cast<std::size_t>(part)].height);
        count += elements_[static_cast<std::size_t>(part)].count;
        return count <= SVG_DRAWN_LIMIT;
    };
    bool is_fine = element.target == NONE || add(element.target);
    for (int part = element.kind == DEFINITIONS ? NONE : element.first_part; is_fine && part != NONE;) {
        const ELEMENT& one = elements_[static_cast<std::size_t>(part)];
        const bool is_hidden = one.style != NONE && styles_[static_cast<std::size_t>(one.style)].is_hidden;
        is_fine = is_hidden || add(part);
        part = one.next;
    }
    element.height = is_fine ? height + 1 : 0;
    element.count = count;
    return is_fine;
}

void svg_survey::apply_style_sheet() {
    for (std::size_t i = 0; i < styles_.size(); ++i) {
        style_sheet_.apply(names_[i].first, names_[i].second.first, names_[i].second.second, styles_[i]);
    }
}

/** Walks over all that is drawn, so often as it is drawn. */
bool svg_survey::is_stroke_plain(int index, STROKE stroke) {
    const ELEMENT& element = elements_[static_cast<std::size_t>(index)];
    if (element.style != NONE) {
        const svg_style& style = styles_[static_cast<std::size_t>(element.style)];
        stroke.is_stroked = style.has_stroke_paint ? style.is_stroked : stroke.is_stroked;
        stroke.dash_length = style.has_dashes ? style.dash_length : stroke.dash_length;
        stroke.is_scaling = style.has_scaling ? style.is_scaling : stroke.is_scaling;
        stroke.stretch *= style.stretch;
        for (const QString& paint : style.paints) {
            if (gradients_.is_circular(paint)) {
                return false;
            }
        }
    }
    if (stroke.is_stroked && stroke.dash_length > 0) {
        const double units_of_text = 100; // what text is drawn in
        const double length = element.kind == TEXT ? longest_glyph_ * units_of_text / least_units_
                                                   : static_cast<double>(element.length);
        const double dashes = length * (stroke.is_scaling ? 1 : stroke.stretch) / stroke.dash_length;
        if (!(dashes <= SVG_DASH_LIMIT)) {
            return false;
        }
    }
    bool is_fine = element.target == NONE || is_stroke_plain(element.target, stroke);
    for (int part = element.kind == DEFINITIONS ? NONE : element.first_part; is_fine && part != NONE;) {
        const ELEMENT& one = elements_[static_cast<std::size_t>(part)];
        const bool is_hidden = one.style != NONE && styles_[static_cast<std::size_t>(one.style)].is_hidden;
        is_fine = is_hidden || is_stroke_plain(part, stroke);
        part = one.next;
    }
    return is_fine;
}

/** How far the whole drawing is stretched to the size asked for. */
double svg_survey::stretch_of_root(const QXmlStreamAttributes& attributes) const {
    const QVector<double> box = svg_numbers(value_of(attributes, "viewBox"));
    const double width = svg_number(value_of(attributes, "width"));
    const double height = svg_number(value_of(attributes, "height"));
    const double own_width = box.size() == 4 ? box[2] : width;
    const double own_height = box.size() == 4 ? box[3] : height;
    const double wanted_width = size_.isEmpty() ? std::max(width, own_width) : size_.width();
    const double wanted_height = size_.isEmpty() ? std::max(height, own_height) : size_.height();
    if (!(own_width > 0) || !(own_height > 0)) {
        return std::max(1.0, std::max(wanted_width, wanted_height));
    }
    return std::max(wanted_width / own_width, wanted_height / own_height);
}

} // namespace

bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size) {
    svg_budget budget;
    budget.bytes = document.size();
    if (!path.isEmpty()) {
        budget.open_files.append(QFileInfo(path).canonicalFilePath());
    }
    return is_drawable_svg(document, path, size, budget);
}

bool is_drawable_svg(const QByteArray& document, const QString& path, const QSize& size, svg_budget& budget) {
    return is_surely_harmless(document) || svg_survey(path, budget).examine(document, size);
}

} // namespace velarion
