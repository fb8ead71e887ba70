#include "svg_style.h"

#include "svg_numbers.h"
#include "svg_shape.h"

#include <algorithm>

namespace velarion {

namespace {

constexpr char INHERIT[] = "inherit";
constexpr char NONE[] = "none";
constexpr int MOST_DASHES = 32; // the toolkit takes no more of a pattern

bool is_hexadecimal(QChar character) {
    bool is_digit = false;
    QString(character).toInt(&is_digit, 16);
    return is_digit;
}

/** Style text without comments and escapes. */
QString plain_text(const QString& css) {
    QString text;
    for (int at = 0; at < css.size(); ++at) {
        if (css.at(at) == QLatin1Char('/') && at + 1 < css.size() && css.at(at + 1) == QLatin1Char('*')) {
            const int end = css.indexOf(QLatin1String("*/"), at + 2);
            at = end < 0 ? css.size() : end + 1;
        } else if (css.at(at) != QLatin1Char('\\')) {
            text.append(css.at(at));
        } else {
            const int most_digits = 6;
            int end = at + 1;
            while (end < css.size() && end <= at + most_digits && is_hexadecimal(css.at(end))) {
                ++end;
            }
            if (end == at + 1) {
                continue; // the next character stands for itself
            }
            text.append(QChar(css.mid(at + 1, end - at - 1).toUInt(nullptr, 16) & 0xFFFFU));
            at = end < css.size() && css.at(end).isSpace() ? end : end - 1;
        }
    }
    return text;
}

/** The id in "url(#id)". A style sheet's may have quotes and blanks around it. */
void add_paint(const QString& value, QStringList& paints) {
    const int begin = value.indexOf(QLatin1Char('#'));
    const int end = value.indexOf(QLatin1Char(')'), begin);
    if (begin > 0 && end > begin && value.contains(QLatin1String("url"), Qt::CaseInsensitive)) {
        const QString id = value.mid(begin + 1, end - begin - 1);
        paints.append(id);
        paints.append(id.trimmed());
    }
}

double mean_dash(const QString& value) {
    QVector<double> numbers = svg_numbers(value);
    if (numbers.size() % 2 != 0) {
        numbers += QVector<double>(numbers);
    }
    const int count = std::min(numbers.size(), MOST_DASHES);
    double sum = 0;
    for (int i = 0; i < count; ++i) {
        sum += std::max(numbers[i], 0.0);
    }
    return count > 0 ? 2 * sum / count : 0;
}

void apply(const QString& name, const QString& value, svg_style& style) {
    if (value.isEmpty()) {
        return;
    }
    style.has_stroke = style.has_stroke || name.startsWith(QLatin1String("stroke")) ||
                       name == QLatin1String("vector-effect");
    if (name == QLatin1String("transform")) {
        style.stretch = svg_stretch(value);
    } else if (name == QLatin1String("display")) {
        style.is_hidden = value.trimmed() == QLatin1String(NONE);
    } else if (name == QLatin1String("vector-effect")) {
        const bool is_fixed = value == QLatin1String("non-scaling-stroke");
        style.has_scaling = style.has_scaling || is_fixed || value == QLatin1String(NONE);
        style.is_scaling = is_fixed ? false : (value == QLatin1String(NONE) || style.is_scaling);
    } else if (value == QLatin1String(INHERIT)) {
        return;
    } else if (name == QLatin1String("visibility")) {
        const bool is_hidden = value == QLatin1String("hidden") || value == QLatin1String("collapse");
        style.visibility = is_hidden ? svg_style::HIDDEN : svg_style::SHOWN;
    } else if (name == QLatin1String("fill")) {
        add_paint(value, style.paints);
    } else if (name == QLatin1String("stroke")) {
        style.stroke_paints.clear();
        add_paint(value, style.stroke_paints);
        style.paints += style.stroke_paints;
        style.stroke_paints = value.startsWith(QLatin1String("url")) ? style.stroke_paints : QStringList();
        style.has_stroke_paint = true;
        style.is_stroked = value != QLatin1String(NONE);
    } else if (name == QLatin1String("stroke-dasharray")) {
        style.has_dashes = true;
        style.dash_length = mean_dash(value);
    }
}

/** Those behind a value belong to it. */
QString without_leading_blanks(const QString& text) {
    const auto begin =
        std::find_if(text.begin(), text.end(), [](QChar character) { return !character.isSpace(); });
    return text.mid(static_cast<int>(begin - text.begin()));
}

bool is_plain_name(const QString& name) {
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](QChar character) {
        return character.isLetterOrNumber() || character == QLatin1Char('-');
    });
}

/** @return whether every toolkit reads the declarations alike: without escapes, comments or errors */
bool are_plain_declarations(const QString& text) {
    const QStringList declarations = text.split(QLatin1Char(';'));
    for (int i = 0; i < declarations.size(); ++i) {
        const QString& declaration = declarations[i];
        const bool is_end = i + 1 == declarations.size() && declaration.trimmed().isEmpty();
        const bool is_plain = declaration.contains(QLatin1Char(':')) &&
                              is_plain_name(declaration.section(QLatin1Char(':'), 0, 0).trimmed()) &&
                              declaration.count(QLatin1Char('(')) == declaration.count(QLatin1Char(')')) &&
                              declaration.count(QLatin1Char('"')) % 2 == 0 &&
                              declaration.count(QLatin1Char('\'')) % 2 == 0;
        if (!is_end && !is_plain) {
            return false;
        }
    }
    return !text.contains(QLatin1Char('\\')) && !text.contains(QLatin1String("/*"));
}

void apply_declarations(const QString& text, svg_style& style) {
    for (const QString& declaration : text.split(QLatin1Char(';'))) {
        const int colon = declaration.indexOf(QLatin1Char(':'));
        if (colon > 0) {
            apply(declaration.left(colon).trimmed(), without_leading_blanks(declaration.mid(colon + 1)),
                  style);
        }
    }
}

/** As a style sheet's reader takes them: names in any case, references without quotes. */
QString with_lower_names(const QString& text) {
    QStringList declarations = text.split(QLatin1Char(';'));
    for (QString& declaration : declarations) {
        const int colon = std::max(0, declaration.indexOf(QLatin1Char(':')));
        const QString value = declaration.mid(colon).remove(QLatin1Char('"')).remove(QLatin1Char('\''));
        declaration = declaration.left(colon).toLower() + value;
    }
    return declarations.join(QString(QLatin1Char(';')));
}

/** The parts of "element.class#id" behind one mark. */
QStringList parts_of(const QString& selector, QChar mark) {
    QStringList parts;
    for (int at = selector.indexOf(mark); at >= 0; at = selector.indexOf(mark, at + 1)) {
        int end = at + 1;
        while (end < selector.size() && !QString::fromLatin1(".#:[").contains(selector.at(end))) {
            ++end;
        }
        parts.append(selector.mid(at + 1, end - at - 1));
    }
    return parts;
}

bool contains_all(const QStringList& all, const QStringList& wanted) {
    return std::all_of(wanted.begin(), wanted.end(),
                       [&](const QString& text) { return all.contains(text, Qt::CaseInsensitive); });
}

/** What may come of two rules that fit: the stroke with more dashes. */
void add_stroke(const svg_style& rule, svg_style& style) {
    style.has_stroke = style.has_stroke || rule.has_stroke;
    style.is_stroked = style.is_stroked || rule.is_stroked;
    style.has_stroke_paint = style.has_stroke_paint || rule.has_stroke_paint;
    style.is_scaling = style.is_scaling && rule.is_scaling;
    style.has_scaling = style.has_scaling || rule.has_scaling;
    const bool is_shorter = style.dash_length == 0 || rule.dash_length < style.dash_length;
    if (rule.has_dashes && (!style.has_dashes || (rule.dash_length > 0 && is_shorter))) {
        style.dash_length = rule.dash_length;
        style.has_dashes = true;
    }
}

} // namespace

svg_style style_of(const QXmlStreamAttributes& attributes) {
    svg_style style;
    const QString declarations = attributes.value(QLatin1String("style")).toString();
    if (!declarations.isEmpty()) {
        apply_declarations(plain_text(declarations), style);
        style.is_doubtful = !are_plain_declarations(declarations);
    }
    if (style.is_doubtful) { // what is hidden by them may be drawn
        style.is_hidden = false;
        style.visibility = svg_style::SHOWN;
    }
    for (const QXmlStreamAttribute& attribute : attributes) {
        apply(attribute.qualifiedName().toString(), attribute.value().toString(), style);
    }
    return style;
}

void svg_style_sheet::add(const QString& text) {
    const QString rules = plain_text(text);
    int begin = 0;
    for (int open = rules.indexOf(QLatin1Char('{')); open >= 0;
         open = rules.indexOf(QLatin1Char('{'), begin)) {
        const int close = rules.indexOf(QLatin1Char('}'), open);
        const int length = close < 0 ? -1 : close - open - 1;
        svg_style style;
        svg_style cut; // the toolkit may lose what follows a comma
        const QString declarations = with_lower_names(rules.mid(open + 1, length));
        apply_declarations(declarations, style);
        apply_declarations(QString(declarations).replace(QLatin1Char(','), QLatin1Char('|')), cut);
        if (cut.dash_length > 0 && (cut.dash_length < style.dash_length || style.dash_length == 0)) {
            style.dash_length = cut.dash_length;
        }
        has_visibility_ = has_visibility_ || style.visibility != svg_style::INHERITED;
        style.is_hidden = false;
        style.stretch = std::max(style.stretch, 1.0);
        if (!style.is_plain()) {
            add_rule(rules.mid(begin, open - begin), style);
        }
        begin = close < 0 ? rules.size() : close + 1;
    }
}

void svg_style_sheet::add_rule(const QString& selectors, const svg_style& style) {
    for (const QString& selector : selectors.split(QLatin1Char(','))) {
        const QString simplified = selector.simplified();
        const int last = std::max(
            simplified.lastIndexOf(QLatin1Char(' ')),
            std::max(simplified.lastIndexOf(QLatin1Char('>')), simplified.lastIndexOf(QLatin1Char('+'))));
        const QString part = simplified.mid(last + 1);
        int end = 0;
        while (end < part.size() && (part.at(end).isLetterOrNumber() || part.at(end) == QLatin1Char('-'))) {
            ++end;
        }
        const bool is_odd = part.contains(QLatin1Char('[')) || part.contains(QLatin1Char('@'));
        rules_.push_back(is_odd ? RULE{QString(), QStringList(), QStringList(), style}
                                : RULE{part.left(end).toLower(), parts_of(part, QLatin1Char('#')),
                                       parts_of(part, QLatin1Char('.')), style});
    }
}

void svg_style_sheet::apply(const QString& element, const QString& id, const QStringList& classes,
                            svg_style& style) const {
    const bool has_own_stroke = style.has_stroke;
    const QString lower_element = element.toLower();
    const QStringList ids(id);
    for (const RULE& rule : rules_) {
        const bool fits = (rule.element.isEmpty() || rule.element == lower_element) &&
                          contains_all(ids, rule.ids) && contains_all(classes, rule.classes);
        if (!fits) {
            continue;
        }
        style.stretch *= rule.style.stretch;
        style.paints += rule.style.paints;
        style.stroke_paints = QStringList();
        if (!has_own_stroke) {
            add_stroke(rule.style, style);
        }
    }
}

} // namespace velarion
