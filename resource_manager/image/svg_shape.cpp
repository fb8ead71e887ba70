#include "svg_shape.h"

#include <QByteArray>
#include <QPointF>

#include <algorithm>
#include <cmath>

namespace velarion {

namespace {

constexpr double PI = 3.14159265358979323846;
constexpr double DEGREE = PI / 180;

bool is_digit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/** A place in a text, at its end a NUL. */
class text_cursor {
public:
    explicit text_cursor(const QString& text)
        : at_(text.constData())
        , end_(at_ + text.size()) {}

    bool is_at_end() const { return at_ == end_; }
    QChar peek() const { return is_at_end() ? QChar() : *at_; }
    QChar take() { return is_at_end() ? QChar() : *at_++; }
    void skip_blanks() {
        while (peek().isSpace()) {
            ++at_;
        }
    }
    void skip_separator() {
        skip_blanks();
        if (peek() == QLatin1Char(',')) {
            ++at_;
        }
        skip_blanks();
    }
    bool is_at_number() const {
        const QChar next = peek();
        return is_digit(next) || next == QLatin1Char('-') || next == QLatin1Char('+') ||
               next == QLatin1Char('.');
    }
    double take_number();

private:
    void take_digits(QByteArray& digits) {
        while (is_digit(peek()) && digits.size() < MOST_CHARACTERS) {
            digits.append(take().toLatin1());
        }
    }

    static constexpr int MOST_CHARACTERS = 255; // the toolkit goes on with the next number there
    const QChar* at_;
    const QChar* end_;
};

double text_cursor::take_number() {
    QByteArray digits;
    if (peek() == QLatin1Char('-') || peek() == QLatin1Char('+')) {
        digits.append(take() == QLatin1Char('-') ? "-" : "");
    }
    take_digits(digits);
    if (peek() == QLatin1Char('.') && digits.size() < MOST_CHARACTERS) {
        digits.append(take().toLatin1());
    }
    take_digits(digits);
    if ((peek() == QLatin1Char('e') || peek() == QLatin1Char('E')) && digits.size() < MOST_CHARACTERS) {
        take();
        digits.append('e');
        if ((peek() == QLatin1Char('-') || peek() == QLatin1Char('+')) && digits.size() < MOST_CHARACTERS) {
            digits.append(take().toLatin1());
        }
        take_digits(digits);
    }
    const double value = digits.toDouble();
    return std::isnormal(static_cast<float>(value)) ? value : 0;
}

double distance(const QPointF& from, const QPointF& to) {
    return std::hypot(to.x() - from.x(), to.y() - from.y());
}

/** What path data draw, as the lengths of the polygons that control them. */
class path_measure {
public:
    double length() const { return length_; }

    /** @return whether there were enough numbers: the path ends otherwise */
    bool draw(char command, const QVector<double>& numbers);

private:
    bool draw_once(char command, const double* numbers);
    void go(const QPointF& to) {
        length_ += distance(at_, to);
        at_ = to;
    }
    void arc_to(const double* numbers, const QPointF& to);

    QPointF start_;
    QPointF at_;
    QPointF control_;
    char last_ = 0;
    double length_ = 0;
};

/** Numbers that one command takes; 0 for what is no command. */
int arguments_of(char command) {
    switch (command) {
    case 'h':
    case 'v':
        return 1;
    case 'm':
    case 'l':
    case 't':
        return 2;
    case 's':
    case 'q':
        return 4;
    case 'c':
        return 6;
    case 'a':
        return 7;
    default:
        return 0;
    }
}

bool path_measure::draw(char command, const QVector<double>& numbers) {
    const char kind = static_cast<char>(command | 0x20);
    if (kind == 'z') {
        go(start_);
        last_ = kind;
        return true;
    }
    const int step = arguments_of(kind);
    if (step == 0) {
        return numbers.isEmpty();
    }
    int at = 0;
    for (; at + step <= numbers.size(); at += step) {
        const bool is_first = at == 0;
        draw_once(kind == 'm' && !is_first ? static_cast<char>(command - 'm' + 'l') : command,
                  numbers.constData() + at);
    }
    return at == numbers.size();
}

bool path_measure::draw_once(char command, const double* n) {
    const bool is_relative = command >= 'a';
    const char kind = static_cast<char>(command | 0x20);
    const QPointF origin = is_relative ? at_ : QPointF();
    const bool is_smooth_cubic = last_ == 'c' || last_ == 's';
    const bool is_smooth_quad = last_ == 'q' || last_ == 't';
    switch (kind) {
    case 'm':
        at_ = start_ = origin + QPointF(n[0], n[1]);
        break;
    case 'l':
        go(origin + QPointF(n[0], n[1]));
        break;
    case 'h':
        go(QPointF(origin.x() + n[0], at_.y()));
        break;
    case 'v':
        go(QPointF(at_.x(), origin.y() + n[0]));
        break;
    case 'c':
    case 's': {
        const int skipped = kind == 'c' ? 2 : 0;
        const QPointF mirrored = is_smooth_cubic ? 2 * at_ - control_ : at_;
        const QPointF first = kind == 'c' ? origin + QPointF(n[0], n[1]) : mirrored;
        control_ = origin + QPointF(n[skipped], n[skipped + 1]);
        go(first);
        go(control_);
        go(origin + QPointF(n[skipped + 2], n[skipped + 3]));
        break;
    }
    case 'q':
        control_ = origin + QPointF(n[0], n[1]);
        go(control_);
        go(origin + QPointF(n[2], n[3]));
        break;
    case 't':
        control_ = is_smooth_quad ? 2 * at_ - control_ : at_;
        go(control_);
        go(origin + QPointF(n[0], n[1]));
        break;
    default:
        arc_to(n, origin + QPointF(n[5], n[6]));
        break;
    }
    last_ = kind;
    return true;
}

/** Radii that are too short are lengthened; then the angle on the circle that the ellipse is stretched from.
 */
void path_measure::arc_to(const double* numbers, const QPointF& to) {
    const double given_x = std::fabs(numbers[0]);
    const double given_y = std::fabs(numbers[1]);
    const QPointF from = at_;
    at_ = to;
    if (given_x * given_x == 0 || given_y * given_y == 0) {
        return;
    }
    const double sine = std::sin(numbers[2] * DEGREE);
    const double cosine = std::cos(numbers[2] * DEGREE);
    const double half_x = (from.x() - to.x()) / 2;
    const double half_y = (from.y() - to.y()) / 2;
    const double reach =
        std::hypot((cosine * half_x + sine * half_y) / given_x, (cosine * half_y - sine * half_x) / given_y);
    const double growth = std::max(1.0, reach);
    const double radius = std::max(given_x, given_y) * growth;
    const double half_angle = std::asin(std::min(1.0, reach / growth));
    const bool is_large = numbers[3] != 0;
    const double angle = is_large ? 2 * PI - 2 * half_angle : 2 * half_angle;
    const double rounding = 1e-12; // of the coordinates, which the toolkit gets back from angles
    const double margin = 1.2;     // of the polygon around an arc
    length_ += margin * radius * angle + radius * rounding + distance(from, to);
}

double polygon_length(const QString& points, bool is_closed) {
    const QVector<double> numbers = svg_numbers(points);
    path_measure measure;
    for (int i = 0; i + 1 < numbers.size(); i += 2) {
        measure.draw(i == 0 ? 'M' : 'L', QVector<double>() << numbers[i] << numbers[i + 1]);
    }
    if (is_closed) {
        measure.draw('Z', QVector<double>());
    }
    return measure.length();
}

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

QVector<double> svg_numbers(const QString& text) {
    QVector<double> numbers;
    text_cursor cursor(text);
    for (cursor.skip_blanks(); cursor.is_at_number(); cursor.skip_separator()) {
        numbers.append(cursor.take_number());
    }
    return numbers;
}

double svg_number(const QString& text) {
    text_cursor cursor(text);
    cursor.skip_blanks();
    return cursor.is_at_number() ? cursor.take_number() : 0;
}

double svg_stretch(const QString& transform) {
    double stretch = 1;
    int begin = 0;
    for (int open = transform.indexOf(QLatin1Char('(')); open >= 0;
         open = transform.indexOf(QLatin1Char('('), begin)) {
        const QString name = transform.mid(begin, open - begin);
        const QVector<double> numbers = svg_numbers(transform.mid(open + 1));
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

double svg_path_length(const QString& data) {
    path_measure measure;
    text_cursor cursor(data);
    bool is_fine = true;
    while (is_fine && !cursor.is_at_end()) {
        cursor.skip_blanks();
        const char command = cursor.take().toLatin1();
        const bool is_arc = command == 'a' || command == 'A';
        QVector<double> numbers;
        for (cursor.skip_blanks(); cursor.is_at_number(); cursor.skip_separator()) {
            const int argument = numbers.size() % 7;
            if (!is_arc || (argument != 3 && argument != 4)) {
                numbers.append(cursor.take_number());
            } else if (cursor.peek() == QLatin1Char('0') || cursor.peek() == QLatin1Char('1')) {
                numbers.append(cursor.take() == QLatin1Char('0') ? 0 : 1);
            } else {
                break;
            }
        }
        is_fine = measure.draw(command, numbers);
    }
    return measure.length();
}

double svg_outline_length(const QString& element, const QXmlStreamAttributes& attributes) {
    const auto text = [&](const char* name) { return attributes.value(QLatin1String(name)).toString(); };
    const auto number = [&](const char* name) { return std::fabs(svg_number(text(name))); };
    if (element == QLatin1String("path")) {
        return svg_path_length(text("d"));
    }
    if (element == QLatin1String("polygon") || element == QLatin1String("polyline")) {
        return polygon_length(text("points"), element == QLatin1String("polygon"));
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
