#include "svg_tree.h"

#include "svg_numbers.h"
#include "svg_path.h"
#include "svg_shape.h"

#include <QStringList>

#include <algorithm>

namespace velarion {

namespace {

constexpr int NONE = svg_element::NONE;
constexpr int LOST = -2;                 // a group where none may stand: older toolkits draw it by reference
constexpr double UNITS_OF_TEXT = 100;    // that a letter is drawn in, whatever its size
constexpr double OUTLINE_OF_TEXT = 1500; // of an ornate letter, in these units

svg_element::KIND kind_of(const QString& element) {
    static const QHash<QString, svg_element::KIND> kinds = [] {
        const struct {
            const char* names;
            svg_element::KIND kind;
        } rows[] = {{"svg g", svg_element::STRUCTURE},
                    {"switch", svg_element::SWITCH},
                    {"defs", svg_element::DEFINITIONS},
                    {"path circle ellipse line polyline polygon", svg_element::SHAPE},
                    {"rect image", svg_element::FRAME},
                    {"text textArea", svg_element::TEXT},
                    {"tspan", svg_element::TEXT_PART},
                    {"use", svg_element::USE}};
        QHash<QString, svg_element::KIND> table;
        for (const auto& row : rows) {
            for (const QString& name : QString::fromLatin1(row.names).split(QLatin1Char(' '))) {
                table.insert(name, row.kind);
            }
        }
        return table;
    }();
    return kinds.value(element, svg_element::OTHER);
}

bool is_structure(svg_element::KIND kind) {
    return kind == svg_element::STRUCTURE || kind == svg_element::SWITCH || kind == svg_element::DEFINITIONS;
}

QString value_of(const QXmlStreamAttributes& attributes, const char* name) {
    return attributes.value(QLatin1String(name)).toString();
}

QString id_of(const QXmlStreamAttributes& attributes) {
    const QString id = value_of(attributes, "id");
    return id.isEmpty() ? value_of(attributes, "xml:id") : id;
}

bool has_condition(const QXmlStreamAttributes& attributes) {
    return std::any_of(attributes.begin(), attributes.end(), [](const QXmlStreamAttribute& attribute) {
        return attribute.qualifiedName().startsWith(QLatin1String("required")) ||
               attribute.qualifiedName() == QLatin1String("systemLanguage");
    });
}

/** @return false for a picture, and a rectangle that a toolkit may find empty */
bool is_surely_drawn(const QString& frame, const QXmlStreamAttributes& attributes) {
    return frame == QLatin1String("rect") && value_of(attributes, "width").toDouble() > 0 &&
           value_of(attributes, "height").toDouble() > 0;
}

} // namespace

void svg_tree::begin(const QString& name, const QXmlStreamAttributes& attributes) {
    const svg_element::KIND kind = kind_of(name);
    open_.push_back(NONE);
    if (kind == svg_element::OTHER) {
        add_other(name, attributes);
    } else {
        add_element(kind, name, attributes);
    }
}

void svg_tree::end(const QString& name) {
    open_.pop_back();
    is_in_style_ = is_in_style_ && name != QLatin1String("style");
}

void svg_tree::add_text(const QString& text) {
    if (is_in_style_) {
        style_sheet_.add(text);
        return;
    }
    const auto open = std::find_if(open_.rbegin(), open_.rend(), [](int index) { return index >= 0; });
    if (!has_dashes_ || open == open_.rend()) {
        return;
    }
    svg_element& element = element_at(*open);
    if (element.kind == svg_element::TEXT || element.kind == svg_element::TEXT_PART) {
        element.length += static_cast<float>(text.size() * OUTLINE_OF_TEXT);
    }
}

void svg_tree::finish() {
    for (const auto& use : open_uses_) {
        add_target(element_at(use.first), use.first, use.second);
    }
    gradients_.find_circles();
    const auto glyph = static_cast<float>(longest_glyph_ * UNITS_OF_TEXT / least_units_);
    for (svg_element& element : elements_) {
        const bool is_text = element.kind == svg_element::TEXT || element.kind == svg_element::TEXT_PART;
        element.length = is_text ? std::max(element.length, glyph) : element.length;
    }
}

const svg_style* svg_tree::style_of_element(const svg_element& element) const {
    return element.style == NONE ? nullptr : &styles_[static_cast<std::size_t>(element.style)];
}

/** What stands in a shape is lost, and takes part where a frame without extent or picture is lost itself. */
svg_tree::PLACE svg_tree::place_of(svg_element::KIND kind) const {
    PLACE place;
    for (auto open = open_.rbegin(); open != open_.rend(); ++open) {
        if (*open == NONE) {
            continue;
        }
        const svg_element::KIND above = *open == LOST ? svg_element::FRAME : at(*open).kind;
        if (above == svg_element::FRAME) {
            place.is_doubtful = true;
            continue;
        }
        const bool is_part_of_text = kind == svg_element::TEXT_PART;
        if (is_part_of_text ? above == svg_element::TEXT : is_structure(above)) {
            place.parent = *open;
        }
        break;
    }
    return place;
}

void svg_tree::add_element(svg_element::KIND kind, const QString& name,
                           const QXmlStreamAttributes& attributes) {
    const bool is_root = elements_.empty();
    const PLACE place = place_of(kind);
    const QString id = id_of(attributes);
    if (place.is_doubtful && !id.isEmpty()) {
        doubtful_ids_.insert(id);
    }
    if (!is_root && place.parent == NONE) {
        open_.back() = is_structure(kind) ? LOST : NONE;
        return;
    }
    const int index = size();
    svg_element element;
    element.kind =
        kind == svg_element::FRAME && is_surely_drawn(name, attributes) ? svg_element::SHAPE : kind;
    element.is_document = name == QLatin1String("svg");
    element.has_box = !element.is_document || svg_has_box(attributes);
    element.is_conditional = has_condition(attributes);
    const int scope = is_root ? 0 : at(place.parent).scope;
    element.scope = element.is_document ? index : scope;
    element.length = has_dashes_ ? static_cast<float>(svg_outline_length(name, attributes)) : 0;
    svg_style style = style_of(attributes);
    if (!style_sheet_.is_empty()) {
        style_sheet_.apply(name, id, value_of(attributes, "class").split(QLatin1Char(' ')), style);
    }
    element.is_hidden = style.is_hidden;
    element.style = add_style(style);
    set_visible(element, place.parent, style.visibility);
    if (kind == svg_element::USE) {
        QString target = value_of(attributes, "xlink:href").mid(1);
        target = target.isEmpty() ? value_of(attributes, "href").mid(1) : target;
        add_target(element, index, target);
    }
    elements_.push_back(element);
    if (!is_root) {
        add_part(place.parent, index);
    }
    if (!is_root && !id.isEmpty() && kind != svg_element::TEXT_PART) {
        named_elements_.insert(SCOPED_ID(scope, id), index);
    }
    open_.back() = index;
}

void svg_tree::add_other(const QString& name, const QXmlStreamAttributes& attributes) {
    if (name == QLatin1String("linearGradient") || name == QLatin1String("radialGradient")) {
        gradients_.add(id_of(attributes), value_of(attributes, "xlink:href"));
    } else if (name == QLatin1String("solidColor")) {
        gradients_.add_color(id_of(attributes));
    } else if (name == QLatin1String("style")) {
        const QString type = value_of(attributes, "type");
        is_in_style_ = is_in_style_ || type.isEmpty() || type.toLower() == QLatin1String("text/css");
    } else if (name == QLatin1String("font-face")) {
        const double units = svg_number(value_of(attributes, "units-per-em"));
        least_units_ = units > 0 ? std::min(least_units_, units) : least_units_;
    } else if (has_dashes_ && (name == QLatin1String("glyph") || name == QLatin1String("missing-glyph"))) {
        longest_glyph_ = std::max(longest_glyph_, svg_path_length(value_of(attributes, "d")));
    }
}

int svg_tree::add_style(const svg_style& style) {
    if (style.is_plain()) {
        return NONE;
    }
    styles_.push_back(style);
    return static_cast<int>(styles_.size()) - 1;
}

void svg_tree::add_part(int parent, int part) {
    svg_element& above = element_at(parent);
    (above.first_part == NONE ? above.first_part : element_at(above.last_part).next) = part;
    above.last_part = part;
}

/** One that is visible makes visible what it stands in, up to its document. */
void svg_tree::set_visible(svg_element& element, int parent, svg_style::VISIBILITY visibility) {
    const bool is_inherited = visibility == svg_style::INHERITED;
    const bool is_first = parent == NONE || element.is_document;
    element.is_visible = is_inherited ? is_first || at(parent).is_visible : visibility == svg_style::SHOWN;
    if (!element.is_visible || is_first) {
        return;
    }
    for (auto open = open_.rbegin(); open != open_.rend(); ++open) {
        if (*open >= 0) {
            if (at(*open).is_visible) {
                break;
            }
            element_at(*open).is_visible = true;
            if (at(*open).is_document) {
                break;
            }
        }
    }
}

/** What is doubtful counts as a circle where something draws it. */
void svg_tree::add_target(svg_element& element, int index, const QString& name) {
    element.target =
        doubtful_ids_.contains(name) ? index : named_elements_.value(SCOPED_ID(element.scope, name), NONE);
    if (element.target == NONE && index == size()) {
        open_uses_.push_back(qMakePair(index, name));
    }
}

} // namespace velarion
