#include "svg_markup.h"

#include "svg_limits.h"

#include <QTextCodec>

#include <algorithm>
#include <cstdint>

namespace velarion {

namespace {

QString decoded(const QByteArray& document) {
    QXmlStreamReader reader(document);
    reader.readNext(); // no more than the declaration
    QTextCodec* codec = QTextCodec::codecForName(reader.documentEncoding().toString().toLatin1());
    codec = QTextCodec::codecForUtfText(document, codec ? codec : QTextCodec::codecForName("UTF-8"));
    return codec->toUnicode(document);
}

/** Sizes of entities with all that they refer to. */
class entity_sizes {
public:
    explicit entity_sizes(const QXmlStreamEntityDeclarations& entities) {
        for (const QXmlStreamEntityDeclaration& entity : entities) {
            values_.insert(entity.name().toString(), entity.value().toString());
        }
    }

    /** @return the size; beyond the limit where it has none, 0 for an entity that the document lacks */
    std::int64_t of(const QString& name, int depth = 0) {
        const std::int64_t too_large = std::int64_t{SVG_BYTES_LIMIT} + 1;
        const int most_nested = 256;
        const auto known = sizes_.constFind(name);
        if (known != sizes_.constEnd() || !values_.contains(name)) {
            return known != sizes_.constEnd() ? known.value() : 0;
        }
        if (depth > most_nested) {
            return too_large;
        }
        const QString value = values_.value(name);
        std::int64_t size = value.size();
        for (int at = value.indexOf(QLatin1Char('&')); at >= 0 && size < too_large;
             at = value.indexOf(QLatin1Char('&'), at + 1)) {
            size += of(value.mid(at + 1, value.indexOf(QLatin1Char(';'), at) - at - 1), depth + 1);
        }
        sizes_.insert(name, std::min(size, too_large));
        return sizes_.value(name);
    }

private:
    QHash<QString, QString> values_;
    QHash<QString, std::int64_t> sizes_;
};

} // namespace

svg_markup::svg_markup(const QByteArray& document)
    : text_(decoded(document)) {}

bool svg_markup::is_readable() {
    bool is_fine = true;
    while (is_fine && at_ < text_.size()) {
        if (text_.at(at_) == QLatin1Char('&')) {
            scan_reference();
        } else if (text_.at(at_) != QLatin1Char('<')) {
            ++at_;
        } else if (is_at("<!DOCTYPE")) {
            is_fine = scan_document_type();
        } else if (!skip_past("<!--") && !skip_past("<![CDATA[") && !skip_past("<?")) {
            is_fine = scan_tag();
        }
    }
    return is_fine;
}

bool svg_markup::is_at(const char* mark) const {
    int at = at_;
    for (; *mark != '\0'; ++mark, ++at) {
        if (at >= text_.size() || text_.at(at) != QLatin1Char(*mark)) {
            return false;
        }
    }
    return true;
}

/** Skips a comment, an instruction or a section of characters that begins here. */
bool svg_markup::skip_past(const char* mark) {
    if (!is_at(mark)) {
        return false;
    }
    const char* end = mark[1] == '?' ? "?>" : (mark[2] == '-' ? "-->" : "]]>");
    const int found = text_.indexOf(QLatin1String(end), at_ + static_cast<int>(qstrlen(mark)));
    at_ = found < 0 ? text_.size() : found + static_cast<int>(qstrlen(end));
    return true;
}

void svg_markup::skip_blanks() {
    while (at_ < text_.size() && text_.at(at_).isSpace()) {
        ++at_;
    }
}

/** Counts a reference by its name; a mark that begins none is an error. */
void svg_markup::scan_reference() {
    const QString ends = QString::fromLatin1(";&<>\"'");
    const int begin = ++at_;
    while (at_ < text_.size() && !ends.contains(text_.at(at_)) && !text_.at(at_).isSpace()) {
        ++at_;
    }
    if (is_at(";") && text_.at(begin) != QLatin1Char('#')) {
        ++references_[text_.mid(begin, at_ - begin)];
    }
}

/** A tag of any kind, up to its end. */
bool svg_markup::scan_tag() {
    int attributes = 0;
    for (++at_; at_ < text_.size() && text_.at(at_) != QLatin1Char('>');) {
        const QChar character = text_.at(at_);
        if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
            const int end = text_.indexOf(character, at_ + 1);
            for (++at_; at_ < text_.size() && at_ != end;) {
                if (text_.at(at_) == QLatin1Char('&')) {
                    scan_reference();
                } else {
                    ++at_;
                }
            }
            at_ = std::min(at_ + 1, text_.size());
            continue;
        }
        attributes += character == QLatin1Char('=') ? 1 : 0;
        ++at_;
    }
    return attributes <= SVG_ATTRIBUTE_LIMIT;
}

bool svg_markup::scan_document_type() {
    bool is_inside = false; // of the brackets
    while (at_ < text_.size()) {
        const QChar character = text_.at(at_);
        if (skip_past("<!--") || skip_past("<?")) {
            continue;
        }
        if (is_at("<!ENTITY")) {
            if (!scan_entity()) {
                return false;
            }
            continue;
        }
        if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
            scan_literal();
            continue;
        }
        parameter_references_ += character == QLatin1Char('%') ? 1 : 0;
        is_inside = character == QLatin1Char('[') || (is_inside && character != QLatin1Char(']'));
        ++at_;
        if (!is_inside && character == QLatin1Char('>')) {
            break;
        }
    }
    const std::int64_t expanded = std::int64_t{parameter_references_} * longest_parameter_;
    return (parameter_references_ == 0 || !has_nested_parameters_) && expanded <= SVG_BYTES_LIMIT;
}

QString svg_markup::scan_literal() {
    const int begin = at_ + 1;
    const int end = text_.indexOf(text_.at(at_), begin);
    at_ = end < 0 ? text_.size() : end + 1;
    return text_.mid(begin, end < 0 ? -1 : end - begin);
}

/** @return false for one that is external, or whose text has too many attributes for one element */
bool svg_markup::scan_entity() {
    at_ += static_cast<int>(sizeof("<!ENTITY")) - 1;
    skip_blanks();
    const bool is_parameter = is_at("%");
    at_ += is_parameter ? 1 : 0;
    skip_blanks();
    while (at_ < text_.size() && !text_.at(at_).isSpace() && !is_at(">")) {
        ++at_; // its name
    }
    skip_blanks();
    if (is_at("SYSTEM") || is_at("PUBLIC")) {
        return false;
    }
    if (!is_at("\"") && !is_at("'")) {
        return true; // an error
    }
    const QString value = scan_literal();
    if (is_parameter) {
        longest_parameter_ = std::max(longest_parameter_, value.size());
        has_nested_parameters_ =
            has_nested_parameters_ || value.contains(QLatin1Char('%')) || value.contains(QLatin1String("&#"));
    }
    return value.count(QLatin1Char('=')) <= SVG_ATTRIBUTE_LIMIT;
}

bool svg_markup::has_plain_entities(const QXmlStreamEntityDeclarations& entities) const {
    entity_sizes sizes(entities);
    for (const QXmlStreamEntityDeclaration& entity : entities) {
        if (!entity.systemId().isEmpty() || !entity.publicId().isEmpty()) {
            return false;
        }
    }
    std::int64_t total = 0;
    for (auto reference = references_.constBegin(); reference != references_.constEnd(); ++reference) {
        total += sizes.of(reference.key()) * reference.value();
        if (total > SVG_BYTES_LIMIT) {
            return false;
        }
    }
    return true;
}

} // namespace velarion
