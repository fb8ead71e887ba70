#include "glyph_check.h"

#include "panel_fonts.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <QVector>

namespace velarion {

namespace {

/** Of the font's picture for what it does not have. */
constexpr quint32 NO_GLYPH = 0;

/** Nor has a panel the workstation's own fonts, which the toolkit falls back to. */
bool has_no_glyph(const QList<QGlyphRun>& runs) {
    for (const QGlyphRun& run : runs) {
        if (run.glyphIndexes().contains(NO_GLYPH) || !is_panel_font(run.rawFont().familyName())) {
            return true;
        }
    }
    return false;
}

/** Whether a reader sees something of the character. */
bool is_seen(uint character) {
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
        return false;
    default:
        return true;
    }
}

} // namespace

QString missing_glyphs(const QString& text, const QFont& font) {
    QString shown = text;
    shown.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(shown, font);
    layout.beginLayout();
    while (layout.createLine().isValid()) {
    }
    layout.endLayout();
    QString missing;
    if (!has_no_glyph(layout.glyphRuns())) {
        return missing;
    }
    for (int i = 0; i < shown.size();) {
        const bool is_pair = shown.at(i).isHighSurrogate() && i + 1 < shown.size();
        const QString character = shown.mid(i, is_pair ? 2 : 1);
        if (is_seen(character.toUcs4().front()) && !missing.contains(character) &&
            has_no_glyph(layout.glyphRuns(i, character.size()))) {
            missing += character;
        }
        i += character.size();
    }
    return missing;
}

} // namespace velarion
