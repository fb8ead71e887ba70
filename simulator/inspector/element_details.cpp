#include "element_details.h"

#include "tables.h"

#include <QFontInfo>

namespace velarion {

namespace {

QString code_points(const QString& characters) {
    QStringList codes;
    for (const uint code : characters.toUcs4()) {
        codes.append(QStringLiteral("U+%1").arg(code, 4, 16, QLatin1Char('0')).toUpper());
    }
    return codes.join(QLatin1Char(' '));
}

QString describe_font(const QFont& font) {
    return QStringLiteral("%1, %2 px%3; shown in %4")
        .arg(font.family())
        .arg(font.pixelSize())
        .arg(QLatin1String(font.bold() ? ", bold" : ""), QFontInfo(font).family());
}

} // namespace

QString describe_faults(const text_finding& text) {
    QStringList faults;
    if (text.overflows) {
        const QSize over = text.shown.needed - text.shown.box.size();
        faults.append(over.width() > 0
                          ? QStringLiteral("overflows its box by %1 px").arg(over.width())
                          : QStringLiteral("overflows its box by %1 px in height").arg(over.height()));
    }
    if (text.overlaps) {
        faults.append(QStringLiteral("overlaps another text"));
    }
    if (!text.missing_glyphs.isEmpty()) {
        faults.append(QStringLiteral("no font of the panel shows %1").arg(code_points(text.missing_glyphs)));
    }
    if (text.fell_back()) {
        faults.append(text.origin.has_no_text() ? QStringLiteral("there is no text")
                                                : QStringLiteral("fell back to English"));
    }
    return faults.join(QStringLiteral("; "));
}

QString describe_faults(const picture_finding& picture) {
    return picture.is_missing() ? QStringLiteral("no picture") : QString();
}

element_details details_of(const text_finding& text) {
    const text_origin& origin = text.origin;
    element_details details;
    details.title = text.shown.text.left(200);
    auto& rows = details.rows;
    const bool is_message = text.shown.message.is_message();
    if (is_message) {
        rows.append({QStringLiteral("Id"), text.shown.message.id()});
    }
    if (origin.row >= 0) {
        rows.append({QStringLiteral("Name"), origin.name});
        rows.append({QStringLiteral("Row"), QString::number(origin.row)});
    }
    rows.append({QStringLiteral("From"), describe_origin(origin)});
    rows.append({QStringLiteral("Place"), describe_box(text.shown.box)});
    rows.append({QStringLiteral("Box"), describe_size(text.shown.box.size())});
    rows.append({QStringLiteral("Needs"), describe_size(text.shown.needed)});
    rows.append({QStringLiteral("Lines"), QString::number(text.shown.lines)});
    rows.append({QStringLiteral("Font"), describe_font(text.shown.font)});
    const QString faults = describe_faults(text);
    rows.append({QStringLiteral("Findings"), faults.isEmpty() ? QStringLiteral("none") : faults});
    return details;
}

element_details details_of(const picture_finding& picture) {
    const picture_origin& origin = picture.origin;
    element_details details;
    details.title = !origin.found_name.isEmpty() ? origin.found_name
                    : !origin.file.isEmpty()     ? origin.file
                                                 : picture.shown.id;
    auto& rows = details.rows;
    rows.append({QStringLiteral("Id"), picture.shown.id});
    if (!origin.name.isEmpty()) {
        rows.append({QStringLiteral("Name"), origin.name});
        rows.append({QStringLiteral("Table's file"), origin.file});
    }
    rows.append({QStringLiteral("File found"),
                 origin.found_name.isEmpty() ? QStringLiteral("none, result %1").arg(picture.shown.result)
                                             : origin.found_name});
    const QString state = picture.shown.suffix.isEmpty()
                              ? QString()
                              : QStringLiteral(" (asked for %1)").arg(picture.shown.suffix);
    rows.append({QStringLiteral("Variant"), describe_variant(origin.variant) + state});
    if (!picture.is_missing()) {
        rows.append({QStringLiteral("Own size"), describe_size(origin.natural_size)});
    }
    rows.append({QStringLiteral("Place"), describe_box(picture.shown.box)});
    rows.append({QStringLiteral("Box"), describe_size(picture.shown.box.size())});
    rows.append({QStringLiteral("Cached"), QLatin1String(origin.is_cached ? "yes" : "no")});
    if (picture.is_missing()) {
        rows.append({QStringLiteral("Findings"), describe_faults(picture)});
    }
    return details;
}

} // namespace velarion
