#include "svg_path.h"

#include "svg_numbers.h"

#include <QPointF>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace velarion {

namespace {

constexpr double PI = 3.14159265358979323846;
constexpr double DEGREE = PI / 180;

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

} // namespace

double svg_path_length(const QString& data) {
    path_measure measure;
    svg_cursor cursor(data);
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

double svg_polygon_length(const QString& points, bool is_closed) {
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

} // namespace velarion
