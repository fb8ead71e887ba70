#include "svg_shape.h"

#include "svg_numbers.h"
#include "svg_path.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace velarion {

namespace {

constexpr int NONE = -1;
constexpr double PI = 3.14159265358979323846;
constexpr double DEGREE = PI / 180;

double length_of(const QString& text) {
    const struct {
        const char* unit;
        double pixels;
    } units[] = {{"in", 90}, {"cm", 35.43307}, {"mm", 3.543307}, {"pt", 1.25}};
    const QString trimmed = text.trimmed();
    double length = std::fabs(svg_number(trimmed));
    for (const auto& unit : units) {
        length *= trimmed.endsWith(QLatin1String(unit.unit)) ? unit.pixels : 1;
    }
    return length;
}

} // namespace

double svg_stretch(const QString& transform) {
    double stretch = 1;
    int begin = 0;
    int next = NONE;
    for (int open = transform.indexOf(QLatin1Char('(')); open != NONE; open = next) {
        next = transform.indexOf(QLatin1Char('('), open + 1);
        const QString name = transform.mid(begin, open - begin);
        const QVector<double> numbers =
            svg_numbers(transform.mid(open + 1, next == NONE ? NONE : next - open - 1));
        double largest = 0;
        double squares = 0;
        for (int i = 0; i < std::min(numbers.size(), 4); ++i) {
            largest = std::max(largest, std::fabs(numbers[i]));
            squares += numbers[i] * numbers[i];
        }
        if (name.contains(QLatin1String("scale"))) {
            stretch *= largest;
        } else if (name.contains(QLatin1String("matrix"))) {
            stretch *= std::sqrt(squares);
        } else if (name.contains(QLatin1String("skew"))) {
            stretch *= 1 + std::fabs(std::tan(largest * DEGREE));
        }
        begin = open + 1;
    }
    return stretch;
}

bool svg_has_box(const QXmlStreamAttributes& attributes) {
    QString box = attributes.value(QLatin1String("viewBox")).toString();
    for (const char blank : {' ', '\r', '\n', '\t'}) {
        box.replace(QLatin1Char(blank), QLatin1Char(','));
    }
    QStringList numbers = box.split(QLatin1Char(','));
    numbers.removeAll(QString());
    const int corners = 4;
    if (numbers.size() == corners) {
        return svg_number(numbers[2]) != 0 || svg_number(numbers[3]) != 0;
    }
    return svg_number(attributes.value(QLatin1String("width")).toString()) != 0 &&
           svg_number(attributes.value(QLatin1String("height")).toString()) != 0;
}

double svg_outline_length(const QString& element, const QXmlStreamAttributes& attributes) {
    const auto text = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
    const auto number = [&](const char* name) { return std::fabs(svg_number(text(name))); };
    if (element == QLatin1String("path")) {
        return svg_path_length(text("d"));
    }
    if (element == QLatin1String("polygon") || element == QLatin1String("polyline")) {
        return svg_polygon_length(text("points"), element == QLatin1String("polygon"));
    }
    if (element == QLatin1String("circle")) {
        return 2 * PI * number("r");
    }
    if (element == QLatin1String("ellipse")) {
        return 2 * PI * std::max(number("rx"), number("ry"));
    }
    if (element == QLatin1String("line")) {
        return std::hypot(svg_number(text("x2")) - svg_number(text("x1")),
                          svg_number(text("y2")) - svg_number(text("y1")));
    }
    return element == QLatin1String("rect") ? 2 * (length_of(text("width")) + length_of(text("height"))) : 0;
}

} // namespace velarion
