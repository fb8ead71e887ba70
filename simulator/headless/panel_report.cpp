#include "panel_report.h"

#include "screen_pictures.h"
#include "simulator_options.h"
#include "units.h"

#include <QJsonDocument>

#include <algorithm>
#include <utility>

namespace velarion {

namespace {

constexpr char FORMAT[] = "panel_report/1";

QJsonArray box_json(const QRect& box) {
    return {box.x(), box.y(), box.width(), box.height()};
}

QJsonArray size_json(const QSize& size) {
    return {size.width(), size.height()};
}

QJsonObject font_json(const QFont& font) {
    return {{QStringLiteral("family"), font.family()},
            {QStringLiteral("px"), font.pixelSize()},
            {QStringLiteral("weight"), font.weight()}};
}

QJsonArray sizes_json(const shown_text& text) {
    QJsonArray sizes;
    for (const int size : text.font_sizes) {
        sizes.append(size);
    }
    return sizes;
}

QString describe_size(const QSize& size) {
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

} // namespace

void panel_report::add(const panel_stage& stage, const screen_view& view, const language_choice& language) {
    const panel_findings found = examiner_.examine(stage.contents());
    const QString place = QStringLiteral("%1, %2").arg(QLatin1String(view.name), language_word(language));
    QJsonArray texts;
    for (const text_finding& text : found.texts) {
        texts.append(text_json(place, text));
    }
    QJsonArray pictures;
    for (const picture_finding& picture : found.pictures) {
        pictures.append(picture_json(place, picture));
    }
    views_.append(
        QJsonObject{{QStringLiteral("screen"), QLatin1String(view.name)},
                    {QStringLiteral("language"), language.language_id},
                    {QStringLiteral("option_language"), language.option_language_id},
                    {QStringLiteral("direction"), QLatin1String(stage.is_right_to_left() ? "rtl" : "ltr")},
                    {QStringLiteral("texts"), texts},
                    {QStringLiteral("pictures"), pictures}});
    counts_ += found.counts;
}

QJsonObject panel_report::text_json(const QString& place, const text_finding& text) {
    const auto note = [&](const QString& what) {
        lines_.append(QStringLiteral("%1: text %2 \"%3\" %4")
                          .arg(place, text.shown.message.id(), text.shown.text, what));
    };
    if (text.overflows) {
        note(QStringLiteral("needs %1 px, has %2")
                 .arg(describe_size(text.shown.needed), describe_size(text.shown.box.size())));
    }
    if (text.overlaps) {
        note(QStringLiteral("lies over another text"));
    }
    if (!text.missing_glyphs.isEmpty()) {
        note(QStringLiteral("has characters that no font of the panel shows: %1").arg(text.missing_glyphs));
    }
    if (text.fell_back()) {
        note(text.origin.has_no_text() ? QStringLiteral("has no text in this language")
                                       : QStringLiteral("is shown in English"));
    }
    return {{QStringLiteral("id"), text.shown.message.id()},
            {QStringLiteral("name"), text.origin.name},
            {QStringLiteral("row"), text.origin.row},
            {QStringLiteral("language"), text.origin.language_id},
            {QStringLiteral("origin"), describe_origin(text.origin)},
            {QStringLiteral("text"), text.shown.text},
            {QStringLiteral("arguments"), QJsonArray::fromStringList(text.shown.message.arguments())},
            {QStringLiteral("box"), box_json(text.shown.box)},
            {QStringLiteral("room"),
             size_json(text.shown.room.isEmpty() ? text.shown.box.size() : text.shown.room)},
            {QStringLiteral("needed"), size_json(text.shown.needed)},
            {QStringLiteral("wrap"), text.shown.wraps},
            {QStringLiteral("lines"), text.shown.lines},
            {QStringLiteral("font"), font_json(text.shown.font)},
            {QStringLiteral("font_sizes"), sizes_json(text.shown)},
            {QStringLiteral("overflow"), text.overflows},
            {QStringLiteral("overlaps"), text.overlaps},
            {QStringLiteral("fallback"), text.fell_back()},
            {QStringLiteral("missing_glyphs"), text.missing_glyphs}};
}

QJsonObject panel_report::picture_json(const QString& place, const picture_finding& picture) {
    if (picture.is_missing()) {
        lines_.append(QStringLiteral("%1: picture %2 (%3) is missing")
                          .arg(place, picture.shown.id, picture.origin.file));
    }
    return {{QStringLiteral("id"), picture.shown.id},
            {QStringLiteral("name"), picture.origin.name},
            {QStringLiteral("file"), picture.origin.found_name},
            {QStringLiteral("variant"), describe_variant(picture.origin.variant)},
            {QStringLiteral("box"), box_json(picture.shown.box)},
            {QStringLiteral("size"), size_json(picture.origin.natural_size.expandedTo({0, 0}))},
            {QStringLiteral("missing"), picture.is_missing()}};
}

QJsonObject panel_report::to_json() const {
    return {{QStringLiteral("format"), QLatin1String(FORMAT)},
            {QStringLiteral("panel"), QJsonObject{{QStringLiteral("width"), PANEL_SIZE.width()},
                                                  {QStringLiteral("height"), PANEL_SIZE.height()}}},
            {QStringLiteral("screens"), views_}};
}

bool has_fault(const finding_counts& counts, unsigned int classes) {
    const std::pair<fault_class, int> found[] = {{FAULT_OVERFLOW, counts.overflows},
                                                 {FAULT_OVERLAP, counts.overlaps},
                                                 {FAULT_GLYPHS, counts.missing_glyphs},
                                                 {FAULT_PICTURES, counts.missing_pictures},
                                                 {FAULT_FALL_BACKS, counts.fall_backs}};
    return std::any_of(std::begin(found), std::end(found), [classes](const auto& fault) {
        return (classes & fault.first) != 0 && fault.second != 0;
    });
}

QString describe_counts(const finding_counts& counts) {
    const std::pair<int, const char*> parts[] = {{counts.overflows, "overflow"},
                                                 {counts.overlaps, "overlap"},
                                                 {counts.missing_glyphs, "text with missing glyphs"},
                                                 {counts.missing_pictures, "missing picture"},
                                                 {counts.fall_backs, "fall-back to English"}};
    QStringList words;
    for (const auto& [count, what] : parts) {
        if (count != 0) {
            words.append(QStringLiteral("%1 x %2").arg(count).arg(QLatin1String(what)));
        }
    }
    return words.isEmpty() ? QStringLiteral("nothing") : words.join(QLatin1String(", "));
}

bool write_report(const panel_report& report, const QString& file) {
    return write_file(file, QJsonDocument(report.to_json()).toJson());
}

} // namespace velarion
