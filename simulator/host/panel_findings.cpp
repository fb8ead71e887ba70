#include "panel_findings.h"

#include "glyph_check.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QStyle>

namespace velarion {

namespace {

/** Where ink stands: within the lines, from the height of capitals to the base line, inside the box. */
QRect inked_area(const shown_text& text) {
    const QRect lines =
        QStyle::alignedRect(QGuiApplication::layoutDirection(), text.alignment, text.needed, text.box);
    const QFontMetrics metrics(text.font);
    return lines.adjusted(0, metrics.ascent() - metrics.capHeight(), 0, -metrics.descent()) & text.box;
}

void mark_overlaps(std::vector<text_finding>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QRect area = inked_area(texts[i].shown);
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            if (area.intersects(inked_area(texts[j].shown))) {
                texts[i].overlaps = true;
                texts[j].overlaps = true;
            }
        }
    }
}

finding_counts count(const panel_findings& findings) {
    finding_counts counts;
    for (const text_finding& text : findings.texts) {
        counts.overflows += text.overflows ? 1 : 0;
        counts.overlaps += text.overlaps ? 1 : 0;
        counts.fall_backs += text.fell_back() ? 1 : 0;
        counts.missing_glyphs += text.missing_glyphs.isEmpty() ? 0 : 1;
    }
    for (const picture_finding& picture : findings.pictures) {
        counts.missing_pictures += picture.is_missing() ? 1 : 0;
    }
    return counts;
}

} // namespace

bool text_finding::is_fault() const {
    return overflows || overlaps || !missing_glyphs.isEmpty();
}

finding_counts& finding_counts::operator+=(const finding_counts& other) {
    overflows += other.overflows;
    overlaps += other.overlaps;
    fall_backs += other.fall_backs;
    missing_glyphs += other.missing_glyphs;
    missing_pictures += other.missing_pictures;
    return *this;
}

panel_findings panel_examiner::examine(const panel_contents& contents) const {
    panel_findings findings;
    for (const shown_text& shown : contents.texts) {
        text_finding text;
        text.shown = shown;
        text.origin = texts_.find(shown.message);
        text.missing_glyphs = missing_glyphs(shown.text, shown.font);
        text.overflows = shown.overflows();
        findings.texts.push_back(text);
    }
    for (const shown_picture& shown : contents.pictures) {
        findings.pictures.push_back({shown, pictures_.find(shown)});
    }
    mark_overlaps(findings.texts);
    findings.counts = count(findings);
    return findings;
}

} // namespace velarion
