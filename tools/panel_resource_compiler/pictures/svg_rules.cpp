#include "svg_rules.h"

#include <QColor>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace velarion {

namespace {

using text_table = QHash<QString, const char*>;

const text_table& faulty_elements() {
    static const text_table table = {
        {"filter", "filters are not drawn; draw the effect with shapes, or leave it out"},
        {"mask",
         "masks are not applied: what they hide is drawn, and outside defs the mask itself; cut the shape"},
        {"clipPath",
         "clip paths are not applied: what they hide is drawn, and outside defs the clip path itself; "
         "cut the shape"},
        {"pattern", "patterns are not drawn, and what they fill stays empty; repeat the shape"},
        {"marker", "markers are not drawn; draw arrowheads as shapes"},
        {"symbol", "a symbol's view box is not heeded, and outside defs it is drawn where it stands; "
                   "use a g within defs"},
        {"textPath", "text on a path is not drawn; turn it into shapes"},
        {"tref", "its text is not drawn; write the text itself"},
        {"foreignObject", "is not drawn; remove it"},
        {"style",
         "style sheets are understood in part, and without type=\"text/css\" not at all on the device; "
         "write the properties at the elements"},
        {"animate", "the picture stands still; draw a movie (GIF) instead"},
        {"animateColor", "the picture stands still; draw a movie (GIF) instead"},
        {"animateMotion", "the picture stands still; draw a movie (GIF) instead"},
        {"animateTransform", "the picture stands still; draw a movie (GIF) instead"},
        {"set", "the picture stands still; draw a movie (GIF) instead"},
        {"script", "scripts are not run; remove it"},
        {"video", "is not drawn; remove it"},
        {"audio", "is not played; remove it"},
        {"textArea", "text areas are not laid out as elsewhere; use text"},
    };
    return table;
}

const QSet<QString>& known_elements() {
    static const QSet<QString> names = {"svg",
                                        "g",
                                        "defs",
                                        "switch",
                                        "use",
                                        "a",
                                        "image",
                                        "circle",
                                        "ellipse",
                                        "line",
                                        "path",
                                        "polygon",
                                        "polyline",
                                        "rect",
                                        "text",
                                        "tspan",
                                        "tbreak",
                                        "title",
                                        "desc",
                                        "metadata",
                                        "linearGradient",
                                        "stop",
                                        "font",
                                        "glyph",
                                        "font-face",
                                        "missing-glyph",
                                        "solidColor",
                                        "radialGradient",
                                        "hkern",
                                        "vkern",
                                        "discard",
                                        "font-face-src",
                                        "font-face-name",
                                        "font-face-uri",
                                        "handler"};
    return names;
}

/** Properties that change nothing on the panel; all but for their harmless values, which a second table has.
 */
const text_table& ignored_properties() {
    static const text_table table = {
        {"filter", "filters are not drawn"},
        {"mask", "masks are not applied"},
        {"clip-path", "clip paths are not applied"},
        {"clip", "clipping is not applied"},
        {"marker", "markers are not drawn"},
        {"marker-start", "markers are not drawn"},
        {"marker-mid", "markers are not drawn"},
        {"marker-end", "markers are not drawn"},
        {"mix-blend-mode", "colours are not blended; give the overlap a colour of its own"},
        {"paint-order", "the stroke always comes above the fill; draw the shape twice"},
        {"transform-origin", "is not heeded; write rotate(angle x y)"},
        {"letter-spacing", "is not heeded"},
        {"word-spacing", "is not heeded"},
        {"textLength", "is not heeded"},
        {"writing-mode", "text is always drawn along a line"},
        {"text-decoration", "is not drawn"},
        {"dominant-baseline", "text always stands on its base line; move it by y"},
        {"alignment-baseline", "text always stands on its base line; move it by y"},
        {"baseline-shift", "text always stands on its base line; move it by y"},
        {"fr", "a gradient's focus is always a point"},
    };
    return table;
}

const text_table& harmless_values() {
    static const text_table table = {
        {"mix-blend-mode", "normal"},   {"paint-order", "normal"},      {"letter-spacing", "normal"},
        {"word-spacing", "normal"},     {"writing-mode", "lr-tb"},      {"dominant-baseline", "auto"},
        {"alignment-baseline", "auto"}, {"baseline-shift", "baseline"}, {"clip", "auto"},
    };
    return table;
}

bool is_harmless(const QString& name, const QString& value) {
    const char* const harmless = harmless_values().value(name);
    return value == QLatin1String("none") || value == QLatin1String("inherit") ||
           value == QLatin1String("0") || value == QLatin1String("0px") ||
           value == QLatin1String("horizontal-tb") || (harmless && value == QLatin1String(harmless));
}

const QSet<QString>& geometry() {
    static const QSet<QString> names = {"x",  "y",  "width", "height", "cx", "cy", "r", "rx",
                                        "ry", "x1", "y1",    "x2",     "y2", "fx", "fy"};
    return names;
}

const QSet<QString>& measures() {
    static const QSet<QString> names = {"stroke-width",   "stroke-dashoffset", "stroke-dasharray",
                                        "font-size",      "opacity",           "fill-opacity",
                                        "stroke-opacity", "stop-opacity"};
    return names;
}

QString fault_of_unit(const QString& unit) {
    static const QSet<QString> resolutions = {"mm", "cm", "in", "pt", "pc"};
    if (unit.isEmpty() || unit == QLatin1String("px")) {
        return {};
    }
    if (resolutions.contains(unit)) {
        return QStringLiteral("\"%1\" counts 90 pixels an inch instead of 96; write it without a unit")
            .arg(unit);
    }
    return QStringLiteral("the unit \"%1\" is not understood; write it without a unit").arg(unit);
}

/** Strokes, dashes and opacities are read as bare numbers. */
QString fault_of_measure(const QString& attribute, const QString& unit) {
    if (unit.isEmpty() || (unit == QLatin1String("px") && attribute != QLatin1String("stroke-dasharray")) ||
        (unit == QLatin1String("%") && attribute == QLatin1String("stroke-width"))) {
        return {};
    }
    if (attribute == QLatin1String("font-size") && unit != QLatin1String("%")) {
        return fault_of_unit(unit);
    }
    return QStringLiteral("\"%1\" is not understood here; write a number alone").arg(unit);
}

QString fault_of_hex_color(const QString& value) {
    static const QRegularExpression plain(QStringLiteral("^#([0-9a-fA-F]{3}|[0-9a-fA-F]{6})$"));
    if (plain.match(value).hasMatch()) {
        return {};
    }
    return QStringLiteral(
               "the colour \"%1\" is drawn black; write #rrggbb, and the transparency as an opacity")
        .arg(value);
}

} // namespace

bool is_drawn_element(const QString& name) {
    static const QSet<QString> names = {"use",  "image",   "circle",   "ellipse", "line",
                                        "path", "polygon", "polyline", "rect",    "text"};
    return names.contains(name);
}

QString fault_of_element(const QString& name) {
    if (const char* const fault = faulty_elements().value(name)) {
        return QString::fromUtf8(fault);
    }
    return known_elements().contains(name)
               ? QString()
               : QStringLiteral(
                     "is not known to the toolkit; what stands in it is drawn as if it were not there");
}

QString fault_of_property(const QString& element, const QString& name, const QString& value) {
    const bool is_text = element == QLatin1String("text") || element == QLatin1String("tspan");
    if (is_text &&
        (name == QLatin1String("dx") || name == QLatin1String("dy") || name == QLatin1String("rotate"))) {
        return value == QLatin1String("0")
                   ? QString()
                   : QStringLiteral("is not heeded; give each part a text of its own");
    }
    if (element == QLatin1String("tspan") && (name == QLatin1String("x") || name == QLatin1String("y"))) {
        return QStringLiteral("a tspan has no place of its own; give it a text of its own");
    }
    const bool is_list = value.contains(QLatin1Char(' ')) || value.contains(QLatin1Char(','));
    if (is_text && is_list && (name == QLatin1String("x") || name == QLatin1String("y"))) {
        return QStringLiteral("only the first place counts; give each part a text of its own");
    }
    if (name == QLatin1String("stroke-linejoin") &&
        (value == QLatin1String("arcs") || value == QLatin1String("miter-clip"))) {
        return QStringLiteral("\"%1\" is not understood; write miter, round or bevel").arg(value);
    }
    const char* const fault = ignored_properties().value(name);
    return fault && !is_harmless(name, value) ? QString::fromUtf8(fault) : QString();
}

QString fault_of_style_property(const QString& name) {
    if (name == QLatin1String("font")) {
        return QStringLiteral("is not understood; write font-family, font-size and font-weight");
    }
    return name == QLatin1String("transform") || name == QLatin1String("d") || geometry().contains(name)
               ? QStringLiteral("counts as an attribute alone; move it out of the style")
               : QString();
}

bool is_paint(const QString& property) {
    static const QSet<QString> names = {"fill", "stroke", "color", "stop-color", "solid-color"};
    return names.contains(property);
}

QString paint_reference(const QString& value) {
    static const QRegularExpression reference(QStringLiteral("^url\\(\\s*#([^)'\"\\s]+)\\s*\\)$"));
    return reference.match(value).captured(1);
}

QString fault_of_paint(const QString& value) {
    static const QSet<QString> words = {"none", "inherit", "currentColor", "transparent"};
    if (words.contains(value) || !paint_reference(value).isEmpty()) {
        return {};
    }
    if (value.startsWith(QLatin1String("url("))) {
        return QStringLiteral(
                   "\"%1\" draws nothing; write url(#name), without quotes and without a second colour")
            .arg(value);
    }
    if (value.startsWith(QLatin1Char('#'))) {
        return fault_of_hex_color(value);
    }
    if (value.startsWith(QLatin1String("rgb(")) && value.count(QLatin1Char(',')) != 3 &&
        !value.contains(QLatin1Char('/'))) {
        return {};
    }
    if (!value.contains(QLatin1Char('(')) && QColor::isValidColor(value)) {
        return {};
    }
    return QStringLiteral(
               "the colour \"%1\" is not understood and drawn black; write #rrggbb, and a transparency "
               "as an opacity")
        .arg(value);
}

bool is_length(const QString& attribute) {
    return geometry().contains(attribute) || measures().contains(attribute);
}

QString fault_of_length(const QString& attribute, const QString& value) {
    static const QRegularExpression unit(
        QStringLiteral("^\\s*[-+]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][-+]?\\d+)?([a-zA-Z%]*)\\s*$"));
    static const QSet<QString> words = {"inherit", "none",   "medium",   "small",   "large",   "x-small",
                                        "x-large", "larger", "xx-small", "smaller", "xx-large"};
    for (const QString& part :
         value.split(QRegularExpression(QStringLiteral("[\\s,]+")), Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch match = unit.match(part);
        if (!match.hasMatch()) {
            return words.contains(part)
                       ? QString()
                       : QStringLiteral("\"%1\" is not understood; write a number").arg(value);
        }
        const QString found = match.captured(1);
        const QString fault = measures().contains(attribute) ? fault_of_measure(attribute, found)
                              : found == QLatin1String("%")  ? QString()
                                                             : fault_of_unit(found);
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}

} // namespace velarion
