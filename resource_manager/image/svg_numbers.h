#ifndef SVG_NUMBERS_H
#define SVG_NUMBERS_H

#include <QByteArray>
#include <QString>
#include <QVector>

namespace velarion {

/** A place in a text, at its end a NUL. */
class svg_cursor {
public:
    explicit svg_cursor(const QString& text)
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
    static bool is_digit(QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    }
    void take_digits(QByteArray& digits) {
        while (is_digit(peek()) && digits.size() < MOST_CHARACTERS) {
            digits.append(take().toLatin1());
        }
    }

    static constexpr int MOST_CHARACTERS = 255; // the toolkit goes on with the next number there
    const QChar* at_;
    const QChar* end_;
};

/** Numbers as the toolkit reads them: separated by blanks and commas, up to what is none. */
QVector<double> svg_numbers(const QString& text);

/** @return the first of them with the blanks before it; 0 without one */
double svg_number(const QString& text);

} // namespace velarion

#endif
