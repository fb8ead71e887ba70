#include "svg_numbers.h"

#include <cmath>

namespace velarion {

double svg_cursor::take_number() {
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

QVector<double> svg_numbers(const QString& text) {
    QVector<double> numbers;
    svg_cursor cursor(text);
    for (cursor.skip_blanks(); cursor.is_at_number(); cursor.skip_separator()) {
        numbers.append(cursor.take_number());
    }
    return numbers;
}

double svg_number(const QString& text) {
    svg_cursor cursor(text);
    cursor.skip_blanks();
    return cursor.is_at_number() ? cursor.take_number() : 0;
}

} // namespace velarion
