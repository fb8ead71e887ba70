#include "dvc_pnl_utl_xml_guarded_source.h"

#include <algorithm>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

namespace velarion {

namespace {

const int DOCUMENT_TYPE_ALONE = 1; // declarations: nothing is declared in it

} // namespace

dvc_pnl_utl_xml_guarded_source::dvc_pnl_utl_xml_guarded_source(QIODevice* device)
    : QXmlInputSource(device)
    , place_(BETWEEN)
    , quote_(0)
    , tail_(0)
    , is_refused_(false)
    , parentheses_(0)
    , declarations_(0)
    , declared_references_(0)
    , parameter_references_(0)
    , content_references_(0) {}

void dvc_pnl_utl_xml_guarded_source::fetchData() {
    if (is_refused_) {
        setData(QString());
        return;
    }
    QXmlInputSource::fetchData();
    if (place_ == CONTENT && declarations_ <= DOCUMENT_TYPE_ALONE) {
        return;
    }
    const QString text = data();
    const QChar* const end = text.constData() + text.size();
    const QChar* const danger =
        std::find_if(text.constData(), end, [this](QChar c) { return is_dangerous(c.unicode()); });
    if (danger != end) {
        is_refused_ = true;
        setData(text.left(static_cast<int>(danger - text.constData())));
    }
}

bool dvc_pnl_utl_xml_guarded_source::is_dangerous(ushort c) {
    go_on(c);
    if (declarations_ == 0 || (place_ == CONTENT && declarations_ == DOCUMENT_TYPE_ALONE)) {
        return false;
    }
    count(c);
    const int expansion = 1 + declared_references_ + parameter_references_ * parameter_references_;
    // What a parameter entity opens or closes is not seen here: content is taken for declarations then.
    const int uses = parameter_references_ == 0 ? content_references_ : declared_references_;
    return parentheses_ > MOST_PARENTHESES || declarations_ > MOST_DECLARATIONS ||
           expansion * std::max(uses, 1) > MOST_EXPANSIONS;
}

void dvc_pnl_utl_xml_guarded_source::count(ushort c) {
    if (c == '&') {
        ++(place_ == CONTENT ? content_references_ : declared_references_);
    } else if (c == '%' && place_ != CONTENT) {
        ++parameter_references_;
    } else if (c == '(' && place_ != CONTENT) {
        ++parentheses_;
    }
}

void dvc_pnl_utl_xml_guarded_source::go_on(ushort c) {
    switch (place_) {
    case BETWEEN:
        place_ = c == '<' ? OPENED : BETWEEN;
        break;
    case OPENED:
        go_on_behind_opening(c);
        break;
    case MARKED:
        place_ = c == '-' ? COMMENT_OPENED : DECLARATION;
        declarations_ += place_ == DECLARATION ? 1 : 0;
        break;
    case COMMENT_OPENED:
        place_ = COMMENT;
        break;
    case DECLARATION:
        go_on_in_declaration(c);
        break;
    case COMMENT:
        place_ = c == '>' && tail_ >= 2 ? BETWEEN : COMMENT;
        tail_ = c == '-' ? tail_ + 1 : 0;
        break;
    case INSTRUCTION:
        place_ = c == '>' && tail_ >= 1 ? BETWEEN : INSTRUCTION;
        tail_ = c == '?' ? tail_ + 1 : 0;
        break;
    case CONTENT:
        break;
    }
}

void dvc_pnl_utl_xml_guarded_source::go_on_behind_opening(ushort c) {
    tail_ = 0;
    quote_ = 0;
    if (c == '!') {
        place_ = MARKED;
    } else if (c == '?') {
        place_ = INSTRUCTION;
    } else {
        place_ = parameter_references_ == 0 ? CONTENT : BETWEEN;
    }
}

/** A "[" opens the declarations inside the document type declaration. */
void dvc_pnl_utl_xml_guarded_source::go_on_in_declaration(ushort c) {
    if (quote_ != 0) {
        quote_ = c == quote_ ? 0 : quote_;
    } else if (c == '"' || c == '\'') {
        quote_ = c;
    } else if (c == '[' || c == '>') {
        place_ = BETWEEN;
    }
}

} // namespace velarion
