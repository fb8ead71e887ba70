#include "svg_drawing.h"

#include "svg_limits.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr int NONE = svg_element::NONE;
constexpr int LEVELS_LIMIT = SVG_DEPTH_LIMIT + 2; // with the document's own and the innermost element

} // namespace

/** @return whether the operation holds for each element that is drawn with this one */
template <typename OPERATION>
bool svg_drawing::for_all_parts(VIEW view, const svg_element& element, OPERATION operation) const {
    if (element.target != NONE && !operation(element.target)) {
        return false;
    }
    const bool is_empty =
        element.kind == svg_element::DEFINITIONS || (element.is_document && element.is_hidden);
    int next = NONE;
    for (int part = view == DRAWN && is_empty ? NONE : element.first_part; part != NONE; part = next) {
        const svg_element& one = tree_.at(part);
        const bool is_drawn = !one.is_hidden && (one.is_visible || tree_.is_all_visible());
        next = one.next;
        if (view == DRAWN && !is_drawn) {
            continue;
        }
        if (!operation(part)) {
            return false;
        }
        const bool is_chosen = element.kind == svg_element::SWITCH && !one.is_conditional;
        next = view == DRAWN && is_chosen ? NONE : next;
    }
    return true;
}

bool svg_drawing::has_end(int depth) {
    extents_[DRAWN].resize(static_cast<std::size_t>(tree_.size()));
    if (!measure(DRAWN, 0, depth)) {
        return false;
    }
    count_ = extents_[DRAWN][0].count;
    return true;
}

/** Fails for a circle too: it has no end. */
bool svg_drawing::measure(VIEW view, int index, int depth) {
    extents_[view].resize(static_cast<std::size_t>(tree_.size()));
    EXTENT& extent = extents_[view][static_cast<std::size_t>(index)];
    if (extent.height > 0) {
        return depth + extent.height <= LEVELS_LIMIT;
    }
    const svg_element& element = tree_.at(index);
    if (view == DRAWN && !element.has_box && !measure(MEASURED, index, depth)) {
        return false;
    }
    int height = 0;
    int count = 1;
    const bool is_fine = for_all_parts(view, element, [&](int part) {
        if (depth + 1 >= LEVELS_LIMIT || !measure(view, part, depth + 1)) {
            return false;
        }
        const EXTENT& one = extents_[view][static_cast<std::size_t>(part)];
        height = std::max(height, one.height);
        count += one.count;
        return count <= SVG_DRAWN_LIMIT;
    });
    extent.height = is_fine ? height + 1 : 0;
    extent.count = count;
    return is_fine;
}

bool svg_drawing::has_plain_strokes(double stretch) {
    STROKE stroke;
    stroke.stretch = stretch;
    return is_plain(DRAWN, 0, stroke);
}

/** Walks over all that is drawn, so often as it is drawn. */
bool svg_drawing::is_plain(VIEW view, int index, STROKE stroke) {
    const svg_element& element = tree_.at(index);
    const svg_style* style = tree_.style_of_element(element);
    if (style) {
        if (!has_plain_paint(*style)) {
            return false;
        }
        apply(*style, element, stroke);
    }
    if (view == DRAWN && stroke.is_stroked && stroke.dash_length > 0) {
        const double length = static_cast<double>(element.length);
        const double dashes = length * (stroke.is_scaling ? 1 : stroke.stretch) / stroke.dash_length;
        if (!(dashes <= SVG_DASH_LIMIT)) {
            return false;
        }
    }
    if (view == DRAWN && !element.has_box && !measured_.contains(index)) {
        measured_.insert(index);
        if (!is_plain(MEASURED, index, STROKE())) {
            return false;
        }
    }
    return for_all_parts(view, element, [&](int part) { return is_plain(view, part, stroke); });
}

bool svg_drawing::has_plain_paint(const svg_style& style) const {
    return std::none_of(style.paints.begin(), style.paints.end(),
                        [this](const QString& paint) { return tree_.gradients().is_circular(paint); });
}

/** What strokes with a paint that the document lacks is not drawn; a part of a text keeps the text's. */
void svg_drawing::apply(const svg_style& style, const svg_element& element, STROKE& stroke) const {
    const bool is_known =
        style.stroke_paints.isEmpty() || element.kind == svg_element::TEXT_PART ||
        std::any_of(style.stroke_paints.begin(), style.stroke_paints.end(),
                    [this](const QString& paint) { return tree_.gradients().is_known(paint); });
    const STROKE inherited = stroke;
    stroke.is_stroked = style.has_stroke_paint ? style.is_stroked && is_known : stroke.is_stroked;
    stroke.dash_length = style.has_dashes ? style.dash_length : stroke.dash_length;
    stroke.is_scaling = style.has_scaling ? style.is_scaling : stroke.is_scaling;
    stroke.stretch *= style.stretch;
    if (style.is_doubtful) {
        const bool is_shorter = inherited.dash_length > 0 && inherited.dash_length < stroke.dash_length;
        stroke.is_stroked = stroke.is_stroked || inherited.is_stroked;
        stroke.is_scaling = stroke.is_scaling && inherited.is_scaling;
        stroke.dash_length =
            is_shorter || stroke.dash_length == 0 ? inherited.dash_length : stroke.dash_length;
        stroke.stretch = std::max(stroke.stretch, inherited.stretch);
    }
}

} // namespace velarion
