#include "xml_expansion_counter.h"

#include <algorithm>

namespace velarion {

namespace {

bool is_space(ushort c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool is_quote(ushort c) {
    return c == '"' || c == '\'';
}

bool is_predefined(const QString& name) {
    return name == QLatin1String("amp") || name == QLatin1String("lt") || name == QLatin1String("gt") ||
           name == QLatin1String("apos") || name == QLatin1String("quot");
}

/** The reader keeps the low 16 bits of a number. @return whether it takes the reference at all */
bool read_character(const QString& name, QChar& character) {
    bool is_number = false;
    const bool is_hexadecimal = name.startsWith(QLatin1String("#x"));
    const uint number =
        is_hexadecimal ? name.mid(2).toUInt(&is_number, 16) : name.mid(1).toUInt(&is_number, 10);
    character = QChar(static_cast<ushort>(number & 0xffffU));
    return is_number;
}

} // namespace

xml_expansion_counter::xml_expansion_counter()
    : place_(TEXT)
    , context_(PROLOG)
    , quote_(0)
    , reference_(0)
    , tail_(0)
    , has_entity_name_ended_(false)
    , entity_kind_(GENERAL)
    , counts_{}
    , searched_(0)
    , uses_(0)
    , expanded_(0)
    , parentheses_(0)
    , is_finished_(false)
    , is_over_(false) {}

bool xml_expansion_counter::take(ushort c) {
    go_on(c);
    while (!expansions_.empty() && !is_over_ && !is_finished_) {
        expansion& innermost = expansions_.back();
        if (innermost.position == innermost.text.size()) {
            expansions_.pop_back();
        } else {
            go_on(innermost.text.at(innermost.position++).unicode());
        }
    }
    return !is_over_;
}

void xml_expansion_counter::go_on(ushort c) {
    if (reference_ != 0) {
        go_on_in_reference(c);
        return;
    }
    if (quote_ != 0) {
        go_on_in_literal(c);
        return;
    }
    switch (place_) {
    case TEXT:
        go_on_in_text(c);
        break;
    case OPENED:
        go_on_behind_opening(c);
        break;
    case MARKED:
        go_on_behind_mark(c);
        break;
    case COMMENT_OPENED:
        place_ = COMMENT;
        break;
    case COMMENT:
        go_on_to_end(c, '-', 2);
        break;
    case INSTRUCTION:
        go_on_to_end(c, '?', 1);
        break;
    case SECTION:
        go_on_to_end(c, ']', 2);
        break;
    case KEYWORD:
        go_on_in_keyword(c);
        break;
    case ENTITY:
        go_on_in_entity(c);
        break;
    default:
        go_on_in_markup(c);
    }
}

void xml_expansion_counter::go_on_in_text(ushort c) {
    if (c == '<') {
        place_ = OPENED;
    } else if ((c == '&' && context_ == CONTENT) || (c == '%' && context_ == SUBSET)) {
        reference_ = c;
    } else if (c == ']' && context_ == SUBSET) {
        place_ = DOCUMENT_TYPE;
    }
}

void xml_expansion_counter::go_on_behind_opening(ushort c) {
    tail_ = 0;
    if (c == '!') {
        place_ = MARKED;
    } else if (c == '?') {
        place_ = INSTRUCTION;
    } else {
        place_ = TAG;
        context_ = CONTENT;
        is_finished_ = counts_[GENERAL] == 0;
    }
}

void xml_expansion_counter::go_on_behind_mark(ushort c) {
    if (c == '-') {
        place_ = COMMENT_OPENED;
    } else if (c == '[') {
        place_ = SECTION;
    } else {
        place_ = KEYWORD;
        name_ = QChar(c);
    }
}

/** @param marks  how many of @p mark must stand before the ">" that ends the markup */
void xml_expansion_counter::go_on_to_end(ushort c, ushort mark, int marks) {
    if (c == '>' && tail_ >= marks) {
        place_ = TEXT;
    }
    tail_ = c == mark ? tail_ + 1 : 0;
}

void xml_expansion_counter::go_on_in_keyword(ushort c) {
    if (!is_space(c)) {
        name_ += QChar(c);
        return;
    }
    if (name_ == QLatin1String("DOCTYPE")) {
        place_ = DOCUMENT_TYPE;
    } else if (name_ == QLatin1String("ENTITY")) {
        place_ = ENTITY;
    } else if (name_ == QLatin1String("ATTLIST")) {
        place_ = ATTRIBUTES;
    } else {
        place_ = name_ == QLatin1String("ELEMENT") ? ELEMENT : OTHER;
    }
    name_.clear();
    entity_name_.clear();
    has_entity_name_ended_ = false;
    entity_kind_ = GENERAL;
    parentheses_ = 0;
}

void xml_expansion_counter::go_on_in_markup(ushort c) {
    if (is_quote(c)) {
        quote_ = c;
    } else if (c == '>') {
        context_ = place_ == DOCUMENT_TYPE ? PROLOG : context_;
        place_ = TEXT;
    } else if (place_ == DOCUMENT_TYPE && c == '[') {
        context_ = SUBSET;
        place_ = TEXT;
    } else if (place_ == ELEMENT && (c == '(' || c == ')')) {
        parentheses_ += c == '(' ? 1 : -1;
        is_over_ = parentheses_ > MOST_PARENTHESES;
    }
}

void xml_expansion_counter::go_on_in_entity(ushort c) {
    if (is_space(c)) {
        has_entity_name_ended_ = !entity_name_.isEmpty();
    } else if (!has_entity_name_ended_) {
        if (c == '%' && entity_name_.isEmpty()) {
            entity_kind_ = PARAMETER;
        } else {
            entity_name_ += QChar(c);
        }
    } else if (is_quote(c)) {
        quote_ = c;
        place_ = ENTITY_VALUE;
        entity_value_.clear();
    } else {
        declare(EXTERNAL);
        place_ = OTHER;
    }
}

void xml_expansion_counter::go_on_in_literal(ushort c) {
    if (c == quote_) {
        quote_ = 0;
        if (place_ == ENTITY_VALUE) {
            declare(entity_kind_);
            place_ = OTHER;
        }
    } else if ((c == '&' && (place_ == TAG || place_ == ATTRIBUTES || place_ == ENTITY_VALUE)) ||
               (c == '%' && place_ == ENTITY_VALUE)) {
        reference_ = c;
    } else if (place_ == ENTITY_VALUE) {
        entity_value_ += QChar(c);
    }
}

void xml_expansion_counter::go_on_in_reference(ushort c) {
    if (c != ';') {
        name_ += QChar(c);
        return;
    }
    end_reference();
    name_.clear();
}

void xml_expansion_counter::end_reference() {
    const bool is_parameter = reference_ == '%';
    reference_ = 0;
    if (is_parameter) {
        expand(PARAMETER);
    } else if (place_ == ENTITY_VALUE) {
        keep_reference();
    } else if (!is_predefined(name_)) {
        expand(GENERAL);
    }
}

/** In an entity's value a character is taken at once, an entity when the value is used. */
void xml_expansion_counter::keep_reference() {
    QChar character;
    if (!name_.startsWith(QLatin1Char('#'))) {
        entity_value_ += QLatin1Char('&') + name_ + QLatin1Char(';');
    } else if (read_character(name_, character)) {
        entity_value_ += character;
    }
}

void xml_expansion_counter::declare(KIND kind) {
    if (!entities_.insert(std::make_pair(entity_name_, entity{kind, entity_value_})).second ||
        kind == EXTERNAL) {
        return;
    }
    ++counts_[kind];
    searched_ += kind == GENERAL ? qint64(counts_[GENERAL]) * entity_value_.size() : 0;
    is_over_ = counts_[GENERAL] + counts_[PARAMETER] > MOST_DECLARATIONS || searched_ > MOST_SEARCHED;
}

void xml_expansion_counter::expand(KIND kind) {
    const auto found = entities_.find(name_);
    if (found == entities_.end() || found->second.kind != kind) {
        return;
    }
    QString text = found->second.value;
    if (quote_ != 0) {
        text.replace(QLatin1Char('"'), QLatin1String("&quot;"));
        text.replace(QLatin1Char('\''), QLatin1String("&apos;"));
    } else if (kind == PARAMETER) {
        text = QLatin1Char(' ') + text + QLatin1Char(' ');
    }
    ++uses_;
    expanded_ += text.size();
    is_over_ = uses_ > MOST_EXPANSIONS || expanded_ > MOST_EXPANDED;
    expansions_.push_back(expansion{text, 0});
    // More of them can only be open when an entity contains itself, and that the reader reports.
    const std::size_t most_open =
        static_cast<std::size_t>(std::max(counts_[GENERAL], counts_[PARAMETER])) + 1;
    is_finished_ = is_finished_ || expansions_.size() > most_open;
}

} // namespace velarion
